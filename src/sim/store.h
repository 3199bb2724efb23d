// SPDX-License-Identifier: MIT
//
// Everything a simulated agent holds, and what SNMP may do to it.
//
//     const auto changes = store.prepare(bindings); // checks all, changes nothing
//     if (changes) {
//         Changes undo = store.apply(*changes);
//     }
#pragma once

#include "snmp/rules/set_transaction.h"

namespace onudesk::sim {

class Store : public AgentState {
public:
    using AgentState::AgentState;

    // What a SET of these bindings, as one transaction, would change, or its first failure.
    [[nodiscard]] Result<Changes, SetFailure> prepare(const VarBinds& bindings) const;
};

} // namespace onudesk::sim
