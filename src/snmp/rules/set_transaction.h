// SPDX-License-Identifier: MIT
//
// The rules of a SET, binding by binding, over a state that stays as it is.
#pragma once

#include "snmp/rules/agent_state.h"
#include "snmp/rules/group_write.h"
#include "snmp/rules/set_status.h"
#include "snmp/rules/staging.h"

#include <cstddef>
#include <set>
#include <vector>

namespace onudesk {

// Carries out what a SET writes to one instance of a group whose `model` attribute names a
// behaviour of its own, by adding to the changes. When it cannot be carried out, nothing of the SET
// is.
using GroupModels = std::function<SetResult(const GroupWrite& write, Delta& changes)>;

// What a SET of these bindings, as one transaction, would change, or its first failure.
[[nodiscard]] Result<Changes, SetFailure>
prepareSet(const AgentState& state, const VarBinds& bindings, const GroupModels& models);

// Both arguments must outlive the transaction.
class SetTransaction {
public:
    SetTransaction(const AgentState& state, const VarBinds& bindings)
        : state_(state), bindings_(bindings), staging_(state, changes_) {}
    SetTransaction(const SetTransaction&) = delete;
    SetTransaction& operator=(const SetTransaction&) = delete;

    // Checks the binding and takes it in; bindings are added in order.
    [[nodiscard]] SetResult add(std::size_t index);
    // Lets the models of groups carry their writes out, completes the rows that were created and
    // decides which may be active. Ends the transaction.
    [[nodiscard]] Result<Changes, SetFailure> finish(const GroupModels& models);

private:
    struct Started {
        std::size_t group = 0;
        std::size_t firstIndex = 0; // of its bindings
        GroupWrite write;
    };

    [[nodiscard]] const Value* find(const Oid& oid) const;
    [[nodiscard]] bool exists(const Oid& oid) const { return find(oid) != nullptr; }
    [[nodiscard]] bool holdsRow(const Oid& oid, RowStatus status) const;
    [[nodiscard]] SetResult checkValue(const ObjectRule& rule, const VarBind& binding) const;
    [[nodiscard]] SetResult setRowStatus(const ObjectRule& rule, const VarBind& binding);
    [[nodiscard]] SetResult setStagedStatus(const ObjectRule& rule, const Oid& instance,
                                            RowStatus wanted);
    [[nodiscard]] bool mayBeRow(const ObjectRule& rule, const Oid& instance) const;
    [[nodiscard]] bool createsLater(const Oid& rowStatus, std::size_t index) const;
    [[nodiscard]] bool mayCreate(const ObjectRule& rule, const Oid& instance,
                                 std::size_t index) const;
    [[nodiscard]] bool groupHolds(const ObjectRule& rule, const Oid& instance) const;
    void writeTo(const ObjectRule& rule, std::size_t index);
    void destroyRow(const ObjectRule& rule, const Oid& instance);
    void fillRow(const ObjectRule& rule, const Oid& instance);
    [[nodiscard]] bool mayBeActive(const ObjectRule& rule, const Oid& instance) const;
    [[nodiscard]] std::set<Oid> activeRows(const Oid& rowStatus) const;

    const AgentState& state_;
    const VarBinds& bindings_;
    Changes changes_;
    Staging staging_;
    std::vector<Started> groupWrites_; // in the order of the SET
    std::set<Oid> created_;            // row-status instances that did not exist before
    std::vector<Oid> activations_;     // row-status instances set active, in the order of the SET
};

} // namespace onudesk
