// SPDX-License-Identifier: MIT
//
// What line terminals do with their settings.
#pragma once

#include "sim/device.h"

#include <optional>

namespace onudesk::sim {

// Module 817: one of two PON ports can be chosen, unless the terminal has no choice (0).
[[nodiscard]] SetResult writeWorkPon(const GroupWrite& write, Device& device);

} // namespace onudesk::sim
