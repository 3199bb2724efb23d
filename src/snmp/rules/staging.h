// SPDX-License-Identifier: MIT
//
// Values that wait for a row status, as devices hold them that take a change over in one go.
#pragma once

#include "snmp/rules/agent_state.h"
#include "snmp/rules/set_status.h"

#include <optional>
#include <set>
#include <vector>

namespace onudesk {

// The part of one SET that concerns staged groups. Values written to a row and to one of its
// entries are held back until the row status takes them over or drops them.
class Staging {
public:
    // Both arguments must outlive this object, which adds to the changes.
    Staging(const AgentState& state, Changes& changes) : state_(state), changes_(changes) {}

    // Writes to some objects wait for the row status.
    [[nodiscard]] bool governs(const ObjectRule& status) const;
    // Holds a value back. The first one of a SET drops what earlier SETs left for the row. Fails on
    // a row that does not exist, on an entry number out of range and on a second entry.
    [[nodiscard]] SetResult hold(const ObjectRule& rule, const VarBind& binding);
    // Gives the row its values, and a new entry when values wait for one, whatever its number.
    // Fails on a row that does not exist, when no number is free and when the entry lacks a unique
    // value or another entry has it.
    // Slots are filled with the values written to them instead, as Slots says.
    [[nodiscard]] SetResult commit(const ObjectRule& status, const Oid& row);
    // Removes the entry to which values were written and drops these; the row stays. Fails when
    // there is no such entry. Slots are emptied instead, as Slots says.
    [[nodiscard]] SetResult removeEntry(const ObjectRule& status, const Oid& row);

private:
    using Rules = std::vector<const ObjectRule*>;

    [[nodiscard]] bool exists(const Oid& oid) const;
    [[nodiscard]] Values held(const Oid& rowStatus, const Oid& row) const;
    [[nodiscard]] Rules entryObjects(const Oid& rowStatus) const;
    [[nodiscard]] std::optional<Oid> heldEntry(const Oid& rowStatus, const Oid& row) const;
    [[nodiscard]] bool entryExists(const Rules& rules, const Oid& entry) const;
    [[nodiscard]] std::optional<Oid> freeEntry(const Rules& rules, const Oid& row) const;
    [[nodiscard]] SetResult addEntry(const Rules& rules, const Oid& row, const Oid& written);
    void drop(const Oid& rowStatus, const Oid& row);

    const AgentState& state_;
    Changes& changes_;
    std::set<Oid> begun_; // row-status instances that this SET held values back for
};

} // namespace onudesk
