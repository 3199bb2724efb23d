// SPDX-License-Identifier: MIT
//
// Multicast settings of ports: what an ONU does with writes to modules 621 and 626.
#pragma once

#include "sim/models.h"

namespace onudesk::sim {

// Slots of a port, always there: a slot with VLAN 0 is empty. Row status 4 fills the slot with
// address, VLAN and type of the same write; 6 empties it. Refuses what no port or slot is, ports
// that are not controllable, incomplete entries and what another slot of the port holds.
[[nodiscard]] SetResult writeControllableMulticast(const GroupWrite& write, Device& device);

// The most groups of a port, and its VLANs, of which row status 4 adds some and 6 takes some out.
// Refuses everything while the ONU locks its limits, and what would leave more VLANs than groups.
[[nodiscard]] SetResult writeIgmpLimits(const GroupWrite& write, Device& device);

} // namespace onudesk::sim
