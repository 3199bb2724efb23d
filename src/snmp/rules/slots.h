// SPDX-License-Identifier: MIT
#pragma once

#include "snmp/rules/agent_state.h"
#include "snmp/rules/set_status.h"

#include <optional>
#include <vector>

namespace onudesk {

// The slots of one row status: rows that are always there, filled or empty. The last number of an
// instance is the slot's, the one before it that of the row it belongs to. A slot is empty while
// the object that tells slots apart holds what it holds by default.
class Slots {
public:
    // Both must outlive this object, which adds to the changes.
    Slots(const AgentState& state, Changes& changes, const Oid& rowStatus);

    // False when the row status governs no slots.
    explicit operator bool() const { return key_ != nullptr; }

    // Gives the slot what was written to it and defaults for the rest; with a value that spreads,
    // the same to the slots of that number in all rows. Fails when there is no such slot, when
    // nothing tells it apart and when another filled slot of its row is the same.
    [[nodiscard]] SetResult fill(const Oid& slot);
    // Empties the slot of the row that is told apart by the value written, whatever slot that was
    // written to. Fails when there is none.
    [[nodiscard]] SetResult empty(const Oid& written);

private:
    [[nodiscard]] const Value* written(const ObjectRule& rule, const Oid& slot) const;
    [[nodiscard]] const Value* held(const ObjectRule& rule, const Oid& slot) const;
    [[nodiscard]] std::vector<Oid> slotsBelow(const Oid& instance) const;
    [[nodiscard]] std::vector<Oid> targets(const Oid& slot) const;
    [[nodiscard]] bool isFilled(const Oid& slot) const;
    [[nodiscard]] bool areSame(const Oid& one, const Oid& other) const;

    const AgentState& state_;
    Changes& changes_;
    std::vector<const ObjectRule*> objects_;  // those that can be written
    std::vector<const ObjectRule*> together_; // of them, those whose values must differ together
    const ObjectRule* key_ = nullptr;         // the one of them that tells slots apart
};

} // namespace onudesk
