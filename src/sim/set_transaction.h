// SPDX-License-Identifier: MIT
//
// The rules of a SET, binding by binding, over a store that stays as it is.
#pragma once

#include "sim/models.h"
#include "sim/staging.h"
#include "sim/store.h"

#include <cstddef>
#include <optional>
#include <set>
#include <variant>
#include <vector>

namespace onudesk::sim {

// Both arguments must outlive the transaction.
class SetTransaction {
public:
    SetTransaction(const Store& store, const std::vector<Binding>& bindings)
        : store_(store), bindings_(bindings), staging_(store, changes_) {}
    SetTransaction(const SetTransaction&) = delete;
    SetTransaction& operator=(const SetTransaction&) = delete;

    // Checks the binding and takes it in; bindings are added in order. The failure, if there is
    // one.
    [[nodiscard]] std::optional<SetStatus> add(std::size_t index);
    // Lets the models of groups carry their writes out, completes the rows that were created and
    // decides which may be active. Ends the transaction.
    [[nodiscard]] std::variant<Changes, SetFailure> finish();

private:
    struct ModelWrite {
        std::size_t group = 0;
        DeviceModel model = nullptr;
        std::size_t firstIndex = 0; // of its bindings
        GroupWrite write;
    };

    [[nodiscard]] const Value* find(const Oid& oid) const;
    [[nodiscard]] bool exists(const Oid& oid) const { return find(oid) != nullptr; }
    [[nodiscard]] bool holdsRow(const Oid& oid, RowStatus status) const;
    [[nodiscard]] std::optional<SetStatus> checkValue(const ObjectRule& rule,
                                                      const Binding& binding) const;
    [[nodiscard]] std::optional<SetStatus> setRowStatus(const ObjectRule& rule,
                                                        const Binding& binding);
    [[nodiscard]] std::optional<SetStatus> setStagedStatus(const ObjectRule& rule,
                                                           const Oid& instance, RowStatus wanted);
    [[nodiscard]] bool mayBeRow(const ObjectRule& rule, const Oid& instance) const;
    [[nodiscard]] bool createsLater(const Oid& rowStatus, std::size_t index) const;
    [[nodiscard]] bool mayCreate(const ObjectRule& rule, const Oid& instance,
                                 std::size_t index) const;
    [[nodiscard]] bool groupHolds(const ObjectRule& rule, const Oid& instance) const;
    void writeTo(const ObjectRule& rule, std::size_t index);
    [[nodiscard]] std::optional<SetFailure> runModels();
    void destroyRow(const ObjectRule& rule, const Oid& instance);
    void fillRow(const ObjectRule& rule, const Oid& instance);
    [[nodiscard]] bool mayBeActive(const ObjectRule& rule, const Oid& instance) const;
    [[nodiscard]] std::set<Oid> activeRows(const Oid& rowStatus) const;

    const Store& store_;
    const std::vector<Binding>& bindings_;
    Changes changes_;
    Staging staging_;
    std::vector<ModelWrite> modelWrites_; // in the order of the SET
    std::set<Oid> created_;               // row-status instances that did not exist before
    std::vector<Oid> activations_; // row-status instances set active, in the order of the SET
};

} // namespace onudesk::sim
