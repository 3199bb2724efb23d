// SPDX-License-Identifier: MIT
//
// Lists of VLANs as operators write them: "8,9,11-15".
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace onudesk {

// What stands between the commas. A comma at the end closes the last piece and opens none.
[[nodiscard]] std::vector<std::string_view> listPieces(std::string_view text);

// Adds the VLANs from `first` to `last`; a descending range adds nothing. False at the first number
// that is no VLAN id, 1 to 4094.
[[nodiscard]] bool addVlans(std::int64_t first, std::int64_t last, std::set<int>& vlans);

// The VLANs of numbers and ranges "FIRST-LAST" between commas, with blanks wherever a number begins
// or ends. Nothing when a piece is anything else, when an id is outside 1 to 4094 and when the list
// names no VLAN.
[[nodiscard]] std::optional<std::set<int>> parseVlanList(std::string_view text);

// Every id, joined by ",".
[[nodiscard]] std::string vlanListText(const std::set<int>& vlans);

} // namespace onudesk
