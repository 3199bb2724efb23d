// SPDX-License-Identifier: MIT
//
// What ONUs do with the settings of their ports and of their link.
#pragma once

#include "sim/device.h"

#include <optional>

namespace onudesk::sim {

// Module 616: the mode can be set where forward error correction is supported.
[[nodiscard]] SetResult writeFec(const GroupWrite& write, Device& device);
// Module 649: encryption can be switched on in state 0, and off in every state.
[[nodiscard]] SetResult writeEncryption(const GroupWrite& write, Device& device);
// Module 617: a port that is shut down loses its link; when it is opened again, a port that
// advertises something gets it back.
[[nodiscard]] SetResult writePortStatus(const GroupWrite& write, Device& device);
// Module 763: the ports are there for good. 4 makes a session on a port without one, 6 ends it.
[[nodiscard]] SetResult writeComSession(const GroupWrite& write, Device& device);

} // namespace onudesk::sim
