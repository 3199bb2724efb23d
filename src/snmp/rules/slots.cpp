// SPDX-License-Identifier: MIT
#include "snmp/rules/slots.h"

#include <algorithm>

namespace onudesk {

Slots::Slots(const AgentState& state, Changes& changes, const Oid& rowStatus)
    : state_(state), changes_(changes) {
    for (const ObjectRule* rule : state.objects().stagedObjects(rowStatus)) {
        if (rule->slots && rule->schema.access != ObjectAccess::readOnly) {
            objects_.push_back(rule);
            if (rule->schema.unique == Uniqueness::alone) {
                key_ = rule;
            } else if (rule->schema.unique == Uniqueness::together) {
                together_.push_back(rule);
            }
        }
    }
}

const Value* Slots::written(const ObjectRule& rule, const Oid& slot) const {
    return lookUp(state_.staged(), changes_.staged, rule.column.joined(slot));
}

const Value* Slots::held(const ObjectRule& rule, const Oid& slot) const {
    return lookUp(state_.values(), changes_.values, rule.column.joined(slot));
}

std::vector<Oid> Slots::slotsBelow(const Oid& instance) const {
    const Values keys = below(state_.values(), changes_.values, key_->column.joined(instance));
    std::vector<Oid> slots;
    slots.reserve(keys.size());
    for (const auto& [oid, value] : keys) {
        slots.push_back(key_->instanceOf(oid));
    }
    return slots;
}

// The slot itself, or those of its number in all rows beside its own.
std::vector<Oid> Slots::targets(const Oid& slot) const {
    const bool spreads = std::ranges::any_of(objects_, [&](const ObjectRule* rule) {
        const Value* value = written(*rule, slot);
        return rule->schema.spread && value != nullptr && *value == integerValue(1);
    });
    if (!spreads) {
        return {slot};
    }
    std::vector<Oid> slots = slotsBelow(slot.head(slot.size() - 2));
    std::erase_if(slots, [&](const Oid& each) { return each.last() != slot.last(); });
    return slots;
}

bool Slots::isFilled(const Oid& slot) const {
    return *held(*key_, slot) != key_->defaultValue(slot);
}

bool Slots::areSame(const Oid& one, const Oid& other) const {
    const auto same = [&](const ObjectRule* rule) {
        const Value* left = held(*rule, one);
        const Value* right = held(*rule, other);
        return left != nullptr && right != nullptr && *left == *right;
    };
    return same(key_) || (!together_.empty() && std::ranges::all_of(together_, same));
}

SetResult Slots::fill(const Oid& slot) {
    if (slot.size() < 2 || held(*key_, slot) == nullptr) {
        return SetStatus::noCreation;
    }
    for (const Oid& target : targets(slot)) {
        for (const ObjectRule* rule : objects_) {
            const Value* value = written(*rule, slot);
            changes_.values[rule->column.joined(target)] =
                value != nullptr ? *value : rule->defaultValue(target);
        }
        const auto isSame = [&](const Oid& other) {
            return other != target && isFilled(other) && areSame(target, other);
        };
        if (!isFilled(target) ||
            std::ranges::any_of(slotsBelow(target.head(target.size() - 1)), isSame)) {
            return SetStatus::inconsistentValue;
        }
    }
    return {};
}

SetResult Slots::empty(const Oid& written) {
    const Value* wanted = this->written(*key_, written);
    for (const Oid& slot : slotsBelow(written.head(written.size() - 1))) {
        if (wanted != nullptr && isFilled(slot) && *held(*key_, slot) == *wanted) {
            for (const ObjectRule* rule : objects_) {
                changes_.values[rule->column.joined(slot)] = rule->defaultValue(slot);
            }
            return {};
        }
    }
    return SetStatus::inconsistentValue;
}

} // namespace onudesk
