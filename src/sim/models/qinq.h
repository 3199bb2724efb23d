// SPDX-License-Identifier: MIT
//
// Double tagging: the ONU's mode, and the VLAN ranges of its ports that get an outer VLAN or pass
// as they are.
#pragma once

#include "sim/device.h"

#include <optional>

namespace onudesk::sim {

// Mode and outer TPID. The TPID can be written while the mode is not off. The rows of both lists of
// ranges tell the mode.
[[nodiscard]] SetResult writeQinQMode(const GroupWrite& write, Device& device);

// A row status of 4 adds the range of the SET to the port, in the row of the lowest free number,
// whatever row is named; 6 removes the row that is named. In both lists of a port together no VLAN
// is in two ranges. A port without ranges has one row, number 0, for what its rows say of the port.
[[nodiscard]] SetResult writeSVlanInsert(const GroupWrite& write, Device& device);
[[nodiscard]] SetResult writeSVlanPass(const GroupWrite& write, Device& device);

} // namespace onudesk::sim
