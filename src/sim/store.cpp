// SPDX-License-Identifier: MIT
#include "sim/store.h"

#include "sim/set_transaction.h"

#include <utility>

namespace onudesk::sim {

Store::Store(ObjectTable objects, Values values)
    : objects_(std::move(objects)), values_(std::move(values)) {
    std::erase_if(values_, [this](const Values::value_type& entry) {
        const ObjectRule* rule = objects_.find(entry.first);
        return rule != nullptr && rule->schema.access == ObjectAccess::writeOnly;
    });
}

const Value* Store::find(const Oid& oid) const {
    const auto found = values_.find(oid);
    return found == values_.end() ? nullptr : &found->second;
}

const Values::value_type* Store::next(const Oid& oid, bool inclusive) const {
    auto found = inclusive ? values_.lower_bound(oid) : values_.upper_bound(oid);
    while (found != values_.end() && found->second.tag == Tag::null) {
        ++found;
    }
    return found == values_.end() ? nullptr : &*found;
}

std::variant<Changes, SetFailure> Store::prepare(const std::vector<Binding>& bindings) const {
    SetTransaction transaction(*this, bindings);
    for (std::size_t index = 0; index < bindings.size(); ++index) {
        if (const auto status = transaction.add(index)) {
            return SetFailure{*status, index};
        }
    }
    return transaction.finish();
}

Changes Store::apply(const Changes& changes) {
    Changes previous;
    for (const auto& [oid, value] : changes) {
        const Value* held = find(oid);
        previous[oid] = held == nullptr ? std::nullopt : std::optional(*held);
        if (value) {
            values_.insert_or_assign(oid, *value);
        } else {
            values_.erase(oid);
        }
    }
    return previous;
}

} // namespace onudesk::sim
