// SPDX-License-Identifier: MIT
#include "pages/framework/checks.h"

#include "base/hexadecimal.h"
#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <iterator>
#include <utility>

namespace onudesk {

namespace {

constexpr std::size_t kShortestQuad = 7;
constexpr std::size_t kLongestQuad = 15;
constexpr int kLongestQuadGroup = 3;

char lowerCase(char c) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

} // namespace

std::optional<std::int32_t> wholeNumber(std::string_view text) {
    const auto value = takeNumber(text);
    const bool fits = value && text.empty() && std::in_range<std::int32_t>(*value);
    return fits ? std::optional(static_cast<std::int32_t>(*value)) : std::nullopt;
}

std::optional<double> decimalNumber(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('+') && !text.substr(1).starts_with('-')) {
        text.remove_prefix(1);
    }
    return parseNumber<double>(text);
}

std::optional<CheckFailure> checkRange(std::string_view text, std::int64_t minimum,
                                       std::int64_t maximum, int base) {
    const auto value = leadingNumber(text, base);
    if (value && minimum <= *value && *value <= maximum) {
        return std::nullopt;
    }
    return CheckFailure{message::outOfRange, {std::to_string(minimum), std::to_string(maximum)}};
}

std::optional<CheckFailure> checkDottedQuad(std::string_view text) {
    bool good = kShortestQuad <= text.size() && text.size() <= kLongestQuad;
    int group = 0;
    for (const char c : text) {
        group = c == '.' ? 0 : group + 1;
        good = good && (c == '.' || ('0' <= c && c <= '9')) && group <= kLongestQuadGroup;
    }
    return good ? std::nullopt : std::optional(CheckFailure{message::badDottedQuad});
}

MacCheck checkMac(std::string_view text, int badCharacterId, platform::PromptIcon icon) {
    MacCheck check;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool separator = at % 3 == 2;
        const char c = lowerCase(text[at]);
        if (!separator && c != ' ' && !isHexDigit(c)) {
            check.failure = CheckFailure{badCharacterId, {}, message::errorCaption, icon};
            return check;
        }
        check.address += !separator && c == ' ' ? '0' : c;
    }
    if (check.address == "00:00:00:00:00:00") {
        check.failure = CheckFailure{message::allZeroMac, {}, message::errorCaption, icon};
    }
    return check;
}

std::string bytesOfHex(std::string_view digits) {
    std::string kept;
    std::ranges::copy_if(digits, std::back_inserter(kept), isHexDigit);
    return bytesFromHex(std::string_view(kept).substr(0, kept.size() / 2 * 2)).value_or("");
}

std::string colonSeparated(const std::string& digits) {
    if (digits.size() % 2 != 0) {
        return digits;
    }
    std::string separated;
    for (std::size_t at = 0; at < digits.size(); at += 2) {
        separated += (at == 0 ? "" : ":") + digits.substr(at, 2);
    }
    return separated;
}

std::string macText(const std::string& value) {
    const std::string bytes = value.size() == kMacBytes ? value : bytesOfHex(value);
    if (bytes.size() != kMacBytes) {
        return colonSeparated(value);
    }
    return colonSeparated(hexDigits(bytes, LetterCase::lower));
}

std::string instanceBelow(std::string_view prefix, std::string_view oid) {
    oid.remove_prefix(oid.starts_with('.') ? 1 : 0);
    if (!oid.starts_with(prefix) || !oid.substr(prefix.size()).starts_with('.')) {
        return {};
    }
    return std::string(oid.substr(prefix.size() + 1));
}

std::string hexOfDecimal(std::string_view decimal, int width) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%0*X", width,
                  static_cast<std::uint32_t>(leadingNumber(decimal).value_or(0)));
    return text.data();
}

std::string decimalOf(std::string_view text, int base) {
    return std::to_string(leadingNumber(text, base).value_or(0));
}

} // namespace onudesk
