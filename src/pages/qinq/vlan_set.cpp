// SPDX-License-Identifier: MIT
#include "pages/qinq/vlan_set.h"

#include "pages/framework/checks.h"

#include <algorithm>
#include <cstdint>

namespace onudesk {

void VlanSet::add(std::string_view first, std::string_view last) {
    const auto low = leadingNumber(first);
    const auto high = leadingNumber(last);
    if (!low || !high) {
        return;
    }
    constexpr auto kLast = static_cast<std::int64_t>(kVlans - 1);
    for (auto vlan = std::max<std::int64_t>(*low, 0); vlan <= std::min(*high, kLast); ++vlan) {
        used_.set(static_cast<std::size_t>(vlan));
    }
}

bool VlanSet::contains(std::string_view vlan) const {
    const auto number = leadingNumber(vlan).value_or(-1);
    return number >= 0 && number < static_cast<std::int64_t>(kVlans) &&
           used_.test(static_cast<std::size_t>(number));
}

} // namespace onudesk
