// SPDX-License-Identifier: MIT
//
// Rows that consist of memberships, as VLANs do of their sides.
#pragma once

#include "snmp/rules/agent_state.h"

namespace onudesk {

// Decides what the changes of a SET make of the memberships they write. The tag of a side is the
// object that names the side's membership object. A membership written 0 leaves the side as it is;
// any other makes the row a member there with its tag, unless the tag is the highest value that it
// can have, which ends the membership. A row that is left without memberships goes.
void settleMemberships(const AgentState& state, Changes& changes);

} // namespace onudesk
