// SPDX-License-Identifier: MIT
#include "snmp/rules/agent_state.h"

#include <utility>

namespace onudesk {

namespace {

Delta applyTo(Values& values, const Delta& delta) {
    Delta previous;
    for (const auto& [oid, value] : delta) {
        const auto held = values.find(oid);
        previous[oid] = held == values.end() ? std::nullopt : std::optional(held->second);
        if (value) {
            values.insert_or_assign(oid, *value);
        } else {
            values.erase(oid);
        }
    }
    return previous;
}

} // namespace

const Value* lookUp(const Values& values, const Delta& delta, const Oid& oid) {
    if (const auto changed = delta.find(oid); changed != delta.end()) {
        return changed->second ? &*changed->second : nullptr;
    }
    const auto found = values.find(oid);
    return found == values.end() ? nullptr : &found->second;
}

Values below(const Values& values, const Delta& delta, const Oid& oid) {
    Values found;
    for (auto at = values.lower_bound(oid); at != values.end() && at->first.startsWith(oid); ++at) {
        found.insert(*at);
    }
    for (auto at = delta.lower_bound(oid); at != delta.end() && at->first.startsWith(oid); ++at) {
        if (at->second) {
            found.insert_or_assign(at->first, *at->second);
        } else {
            found.erase(at->first);
        }
    }
    return found;
}

AgentState::AgentState(ObjectTable objects, Values values)
    : objects_(std::move(objects)), values_(std::move(values)) {
    std::erase_if(values_, [this](const Values::value_type& entry) {
        const ObjectRule* rule = objects_.find(entry.first);
        return rule != nullptr && rule->schema.access == ObjectAccess::writeOnly;
    });
}

const Value* AgentState::find(const Oid& oid) const {
    const auto found = values_.find(oid);
    return found == values_.end() ? nullptr : &found->second;
}

const Values::value_type* AgentState::next(const Oid& oid, bool inclusive) const {
    auto found = inclusive ? values_.lower_bound(oid) : values_.upper_bound(oid);
    while (found != values_.end() && found->second.tag == Tag::null) {
        ++found;
    }
    return found == values_.end() ? nullptr : &*found;
}

Changes AgentState::apply(const Changes& changes) {
    return {.values = applyTo(values_, changes.values), .staged = applyTo(staged_, changes.staged)};
}

} // namespace onudesk
