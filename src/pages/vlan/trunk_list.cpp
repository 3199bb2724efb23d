// SPDX-License-Identifier: MIT
#include "pages/vlan/trunk_list.h"

#include "pages/framework/vlan_list.h"

#include <cstdint>

namespace onudesk {

namespace {

constexpr int kBadVlan = 3316;
constexpr int kTooManyVlans = 3317;
constexpr std::size_t kMostVlans = 8;
constexpr std::size_t kBytesPerVlan = 2;
constexpr std::size_t kDigitsPerVlan = 4;

CheckFailure plainRefusal(int textId) {
    return {textId, {}, message::refusalCaption, platform::PromptIcon::none};
}

std::optional<CheckFailure> addRange(std::int64_t first, std::int64_t last, std::set<int>& vlans) {
    return addVlans(first, last, vlans) ? std::nullopt : std::optional(plainRefusal(kBadVlan));
}

std::optional<CheckFailure> addPiece(std::string_view piece, std::set<int>& vlans) {
    const std::size_t dash = piece.find('-');
    if (dash == std::string_view::npos) {
        const std::int64_t vlan = leadingNumber(piece).value_or(0);
        return addRange(vlan, vlan, vlans);
    }
    const std::string_view ends[] = {piece.substr(0, dash), piece.substr(dash + 1)};
    for (const std::string_view end : ends) {
        if (!wholeNumber(end)) {
            return CheckFailure{message::notANumber, {std::string(end)}};
        }
    }
    return addRange(*wholeNumber(ends[0]), *wholeNumber(ends[1]), vlans);
}

} // namespace

TrunkList parseTrunkList(std::string_view text) {
    TrunkList list;
    if (text.empty()) {
        list.failure = CheckFailure{};
    }
    for (const std::string_view piece : listPieces(text)) {
        if (!list.failure) {
            list.failure = addPiece(piece, list.vlans);
        }
    }
    if (!list.failure && list.vlans.size() > kMostVlans) {
        list.failure = plainRefusal(kTooManyVlans);
    }
    return list;
}

std::string trunkBytes(const std::set<int>& vlans) {
    std::string bytes;
    for (const int vlan : vlans) {
        bytes += static_cast<char>(vlan / 256);
        bytes += static_cast<char>(vlan % 256);
    }
    bytes.resize(kMostVlans * kBytesPerVlan);
    return bytes;
}

std::string trunkText(const std::string& digits) {
    std::string text;
    for (std::size_t at = 0; at + kDigitsPerVlan <= digits.size(); at += kDigitsPerVlan) {
        const std::int64_t vlan = leadingNumber(digits.substr(at, kDigitsPerVlan), 16).value_or(0);
        if (vlan != 0) {
            text += (text.empty() ? "" : ",") + std::to_string(vlan);
        }
    }
    return text;
}

} // namespace onudesk
