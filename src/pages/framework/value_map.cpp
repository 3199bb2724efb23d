// SPDX-License-Identifier: MIT
#include "pages/framework/value_map.h"

#include <algorithm>
#include <utility>

namespace onudesk {

ValueMap::ValueMap(std::vector<ValuePair> pairs) {
    std::ranges::stable_sort(pairs, {}, &ValuePair::text);
    *this = inOrder(std::move(pairs));
}

ValueMap ValueMap::inOrder(std::vector<ValuePair> pairs) {
    ValueMap map;
    map.pairs_ = std::make_shared<const std::vector<ValuePair>>(std::move(pairs));
    return map;
}

ValueMap ValueMap::numbers(int first, int last) {
    std::vector<ValuePair> pairs;
    for (int number = first; number <= last; ++number) {
        pairs.push_back({std::to_string(number), std::to_string(number)});
    }
    return inOrder(std::move(pairs));
}

ValueMap ValueMap::keepingUnknown() const {
    ValueMap map = *this;
    map.keepsUnknown_ = true;
    return map;
}

const std::vector<ValuePair>& ValueMap::pairs() const {
    static const std::vector<ValuePair> none;
    return pairs_ == nullptr ? none : *pairs_;
}

const ValuePair* ValueMap::find(const std::string& value) const {
    const auto found = std::ranges::find(pairs(), value, &ValuePair::value);
    return found == pairs().end() ? nullptr : &*found;
}

std::string ValueMap::textOf(const std::string& value) const {
    const ValuePair* found = find(value);
    return found == nullptr ? std::string() : found->text;
}

} // namespace onudesk
