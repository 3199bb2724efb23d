// SPDX-License-Identifier: MIT
#include "pages/framework/value_map.h"

#include <algorithm>
#include <utility>

namespace onudesk {

ValueMap::ValueMap(const std::vector<ValuePair>& pairs) {
    for (const ValuePair& pair : pairs) {
        addPair(pair.text, pair.value);
    }
    complete();
}

ValueMap ValueMap::numbers(int first, int last) {
    ValueMap map;
    for (int number = first; number <= last; ++number) {
        map.addPair(std::to_string(number), std::to_string(number));
    }
    return map;
}

void ValueMap::addPair(std::string text, std::string value) {
    entries_.try_emplace(text, value);
    pairs_.push_back({std::move(text), std::move(value)});
}

void ValueMap::complete() {
    for (const ValuePair& pair : pairs_) {
        entries_.try_emplace(pair.value, pair.text);
    }
    std::ranges::stable_sort(pairs_, {}, &ValuePair::text);
}

std::optional<std::string> ValueMap::translate(const std::string& key) const {
    const auto found = entries_.find(key);
    return found == entries_.end() ? std::nullopt : std::optional(found->second);
}

bool ValueMap::hasValue(const std::string& value) const {
    return std::ranges::find(pairs_, value, &ValuePair::value) != pairs_.end();
}

std::string ValueMap::textOf(const std::string& value) const {
    const auto found = std::ranges::find(pairs_, value, &ValuePair::value);
    return found == pairs_.end() ? std::string() : found->text;
}

} // namespace onudesk
