// SPDX-License-Identifier: MIT
//
// VLAN lists of trunk ports, "10,20-22", and the bytes an agent keeps them in.
#pragma once

#include "pages/framework/checks.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace onudesk {

// VLAN ids 1 to 4094 in ascending order; at most 8 fit the object.
struct TrunkList {
    std::set<int> vlans;
    std::optional<CheckFailure> failure;
};

// Numbers and ranges "FIRST-LAST" between commas; a descending range adds nothing. An empty text
// only takes the focus; ids outside 1 to 4094 fail with message 3316, more than 8 with 3317, and an
// end of a range that is no number with the notice that says so.
[[nodiscard]] TrunkList parseTrunkList(std::string_view text);

// 16 bytes: two for each id, the high one first, then zeros.
[[nodiscard]] std::string trunkBytes(const std::set<int>& vlans);

// The ids of a value in hexadecimal digits, four each, as "10,20"; zeros are left out.
[[nodiscard]] std::string trunkText(const std::string& digits);

} // namespace onudesk
