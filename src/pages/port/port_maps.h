// SPDX-License-Identifier: MIT
//
// What the state and settings of an Ethernet port are called, in the list of ports and on the page
// of a single one.
#pragma once

#include "pages/framework/fields.h"
#include "pages/framework/value_map.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace onudesk {

struct PortMaps {
    PortMaps();
    const ValueMap states;
    const ValueMap flowControl;
    const ValueMap switches; // shutdown and auto-negotiation
};

// A combo that is written when its radio button is chosen.
[[nodiscard]] Field portSetting(const char* control, const char* radio, int labelId,
                                std::size_t position, const char* object, const ValueMap& map);

// The advertised capabilities in a value of eight hexadecimal digits each: names of those that are
// known, digits of the others. What is left behind the last eight digits is dropped.
[[nodiscard]] std::vector<std::string> capabilities(std::string_view value);

inline constexpr const char* kNoCapability = "00000000";

} // namespace onudesk
