// SPDX-License-Identifier: MIT
#include "snmp/rules/staging.h"

#include "snmp/rules/slots.h"

#include <algorithm>

namespace onudesk {

namespace {

Oid entryOf(const Oid& row, std::int64_t number) {
    return row.joined(Oid{static_cast<Oid::Arc>(number)});
}

} // namespace

bool Staging::exists(const Oid& oid) const {
    return lookUp(state_.values(), changes_.values, oid) != nullptr;
}

bool Staging::governs(const ObjectRule& status) const {
    return !state_.objects().stagedObjects(status.column).empty();
}

Values Staging::held(const Oid& rowStatus, const Oid& row) const {
    Values all;
    for (const ObjectRule* rule : state_.objects().stagedObjects(rowStatus)) {
        all.merge(below(state_.staged(), changes_.staged, rule->column.joined(row)));
    }
    return all;
}

Staging::Rules Staging::entryObjects(const Oid& rowStatus) const {
    Rules rules = state_.objects().stagedObjects(rowStatus);
    std::erase_if(rules, [](const ObjectRule* rule) { return !rule->entries; });
    return rules;
}

// The instance of the entry that values wait for.
std::optional<Oid> Staging::heldEntry(const Oid& rowStatus, const Oid& row) const {
    for (const auto& [oid, value] : held(rowStatus, row)) {
        const ObjectRule& rule = *state_.objects().find(oid);
        if (rule.entries) {
            return rule.instanceOf(oid);
        }
    }
    return std::nullopt;
}

bool Staging::entryExists(const Rules& rules, const Oid& entry) const {
    return std::ranges::any_of(
        rules, [&](const ObjectRule* rule) { return exists(rule->column.joined(entry)); });
}

std::optional<Oid> Staging::freeEntry(const Rules& rules, const Oid& row) const {
    const NumberRange numbers = *rules.front()->entries;
    for (std::int64_t number = numbers.low; number <= numbers.high; ++number) {
        if (!entryExists(rules, entryOf(row, number))) {
            return entryOf(row, number);
        }
    }
    return std::nullopt;
}

void Staging::drop(const Oid& rowStatus, const Oid& row) {
    for (const auto& [oid, value] : held(rowStatus, row)) {
        changes_.staged[oid] = std::nullopt;
    }
}

SetResult Staging::hold(const ObjectRule& rule, const VarBind& binding) {
    const Oid instance = rule.instanceOf(binding.oid);
    const std::size_t rowSize = instance.size() - (rule.entries ? 1 : 0);
    const Oid row = instance.head(rowSize);
    const bool fits = rule.entries ? rule.entries->contains(instance.last()) : exists(binding.oid);
    if (!fits || !(rule.slots || exists(rule.stagedBy->joined(row)))) {
        return SetStatus::noCreation;
    }
    if (begun_.insert(rule.stagedBy->joined(row)).second) {
        drop(*rule.stagedBy, row);
    }
    if (rule.entries && heldEntry(*rule.stagedBy, row).value_or(instance) != instance) {
        return SetStatus::inconsistentValue;
    }
    changes_.staged[binding.oid] = binding.value;
    return {};
}

SetResult Staging::commit(const ObjectRule& status, const Oid& row) {
    if (Slots slots(state_, changes_, status.column); slots) {
        const SetResult filled = slots.fill(row);
        drop(status.column, row);
        return filled;
    }
    const Oid statusOid = status.column.joined(row);
    if (!exists(statusOid)) {
        return SetStatus::noCreation;
    }
    if (const auto written = heldEntry(status.column, row)) {
        if (SetResult added = addEntry(entryObjects(status.column), row, *written); !added) {
            return added;
        }
    }
    for (const auto& [oid, value] : held(status.column, row)) {
        if (!state_.objects().find(oid)->entries) {
            changes_.values[oid] = value;
        }
    }
    drop(status.column, row);
    changes_.values[statusOid] = rowStatusValue(RowStatus::active);
    return {};
}

SetResult Staging::addEntry(const Rules& rules, const Oid& row, const Oid& written) {
    const auto entry = freeEntry(rules, row);
    if (!entry) {
        return SetStatus::inconsistentValue;
    }
    for (const ObjectRule* rule : rules) {
        const Value* own = lookUp(state_.staged(), changes_.staged, rule->column.joined(written));
        const Values others = below(state_.values(), changes_.values, rule->column.joined(row));
        const auto isOwn = [&](const Values::value_type& other) { return other.second == *own; };
        if (rule->schema.unique != Uniqueness::none &&
            (own == nullptr || std::ranges::any_of(others, isOwn))) {
            return SetStatus::inconsistentValue;
        }
        const auto value = own != nullptr ? std::optional(*own) : rule->defaultValue(*entry);
        if (value) {
            changes_.values[rule->column.joined(*entry)] = value;
        }
    }
    return {};
}

SetResult Staging::removeEntry(const ObjectRule& status, const Oid& row) {
    if (Slots slots(state_, changes_, status.column); slots) {
        const SetResult emptied = slots.empty(row);
        drop(status.column, row);
        return emptied;
    }
    const Rules rules = entryObjects(status.column);
    const auto entry = heldEntry(status.column, row);
    if (!entry || !entryExists(rules, *entry)) {
        return SetStatus::inconsistentValue;
    }
    for (const ObjectRule* rule : rules) {
        changes_.values[rule->column.joined(*entry)] = std::nullopt;
    }
    drop(status.column, row);
    return {};
}

} // namespace onudesk
