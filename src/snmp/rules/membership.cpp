// SPDX-License-Identifier: MIT
#include "snmp/rules/membership.h"

#include <algorithm>
#include <set>

namespace onudesk {

namespace {

class Settlement {
public:
    Settlement(const AgentState& state, Changes& changes)
        : state_(state), changes_(changes), sides_(state.objects().sides()) {}

    void run() {
        for (const ObjectRule* side : sides_) {
            for (const Oid& row : touchedRows(*side)) {
                settle(*side, row);
            }
        }
        for (const ObjectRule* side : sides_) {
            for (const Oid& row : touchedRows(*side)) {
                if (side->rowStatus && !hasMembers(*side->rowStatus, row)) {
                    remove(*side->rowStatus, row);
                }
            }
        }
    }

private:
    [[nodiscard]] std::set<Oid> touchedRows(const ObjectRule& side) const {
        std::set<Oid> rows;
        for (const Oid& column : {side.column, *side.member}) {
            for (const auto& [oid, value] : below({}, changes_.values, column)) {
                rows.insert(oid.tail(column.size()));
            }
        }
        return rows;
    }
    [[nodiscard]] bool holds(const Oid& oid, std::int64_t number) const {
        const Value* value = lookUp(state_.values(), changes_.values, oid);
        return value != nullptr && *value == integerValue(number);
    }
    void settle(const ObjectRule& side, const Oid& row) {
        const Oid member = side.member->joined(row);
        const Oid tag = side.column.joined(row);
        if (holds(member, 0)) {
            restore(member);
            restore(tag);
        } else if (side.schema.range && holds(tag, side.schema.range->high)) {
            changes_.values[member] = integerValue(0);
            changes_.values[tag] = integerValue(0);
        }
    }
    void restore(const Oid& oid) {
        const Value* held = state_.find(oid);
        changes_.values[oid] = held == nullptr ? integerValue(0) : *held;
    }
    [[nodiscard]] bool hasMembers(const Oid& rowStatus, const Oid& row) const {
        return std::ranges::any_of(sides_, [&](const ObjectRule* side) {
            return side->rowStatus == rowStatus && !holds(side->member->joined(row), 0);
        });
    }
    void remove(const Oid& rowStatus, const Oid& row) {
        for (const ObjectRule* object : state_.objects().rowObjects(rowStatus)) {
            changes_.values[object->column.joined(row)] = std::nullopt;
        }
    }

    const AgentState& state_;
    Changes& changes_;
    const std::vector<const ObjectRule*> sides_;
};

} // namespace

void settleMemberships(const AgentState& state, Changes& changes) {
    Settlement(state, changes).run();
}

} // namespace onudesk
