// SPDX-License-Identifier: MIT
#include "pages/framework/vlan_list.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>

namespace onudesk {

namespace {

constexpr std::int64_t kLastVlan = 4094;

// Digits that name a VLAN, with blanks around them.
std::optional<int> vlanOf(std::string_view text) {
    const auto vlan = parseNumber<int>(trimmed(text, " \t\r\n"));
    return vlan && 1 <= *vlan && *vlan <= kLastVlan ? vlan : std::nullopt;
}

bool addPiece(std::string_view piece, std::set<int>& vlans) {
    const std::size_t dash = piece.find('-');
    const auto first = vlanOf(piece.substr(0, dash));
    const auto last = dash == std::string_view::npos ? first : vlanOf(piece.substr(dash + 1));
    return first && last && addVlans(*first, *last, vlans);
}

} // namespace

std::vector<std::string_view> listPieces(std::string_view text) {
    std::vector<std::string_view> pieces;
    while (!text.empty()) {
        pieces.push_back(text.substr(0, text.find(',')));
        text.remove_prefix(std::min(pieces.back().size() + 1, text.size()));
    }
    return pieces;
}

bool addVlans(std::int64_t first, std::int64_t last, std::set<int>& vlans) {
    for (std::int64_t vlan = first; vlan <= last; ++vlan) {
        if (vlan < 1 || vlan > kLastVlan) {
            return false;
        }
        vlans.insert(static_cast<int>(vlan));
    }
    return true;
}

std::optional<std::set<int>> parseVlanList(std::string_view text) {
    std::set<int> vlans;
    for (const std::string_view piece : listPieces(text)) {
        if (!addPiece(piece, vlans)) {
            return std::nullopt;
        }
    }
    return vlans.empty() ? std::nullopt : std::optional(vlans);
}

std::string vlanListText(const std::set<int>& vlans) {
    std::string text;
    for (const int vlan : vlans) {
        text += (text.empty() ? "" : ",") + std::to_string(vlan);
    }
    return text;
}

} // namespace onudesk
