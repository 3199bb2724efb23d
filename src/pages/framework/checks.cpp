// SPDX-License-Identifier: MIT
#include "pages/framework/checks.h"

#include "bridge/read_number.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cstdio>

namespace onudesk {

namespace {

constexpr std::string_view kBlanks = " \t\r\n\v\f";
constexpr std::string_view kHexDigits = "0123456789abcdef";
constexpr std::size_t kShortestQuad = 7;
constexpr std::size_t kLongestQuad = 15;
constexpr int kLongestQuadGroup = 3;

// Takes blanks and a plus sign off the front of the text.
void skipToNumber(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    if (text.starts_with('+') && !text.substr(1).starts_with('-')) {
        text.remove_prefix(1);
    }
}

// Takes blanks, an optional sign and digits off the front of the text.
template <typename Number>
bool takeNumber(std::string_view& text, Number& value, int base) {
    skipToNumber(text);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return error == std::errc();
}

char lowerCase(char c) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

} // namespace

std::optional<std::int64_t> leadingNumber(std::string_view text, int base) {
    std::int64_t value = 0;
    return takeNumber(text, value, base) ? std::optional(value) : std::nullopt;
}

std::optional<std::int32_t> wholeNumber(std::string_view text) {
    std::int32_t value = 0;
    return takeNumber(text, value, 10) && text.empty() ? std::optional(value) : std::nullopt;
}

std::optional<double> decimalNumber(std::string_view text) {
    skipToNumber(text);
    double number = 0;
    const bool isNumber = readNumber(text.substr(0, text.find_last_not_of(kBlanks) + 1), number);
    return isNumber ? std::optional(number) : std::nullopt;
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
        if (!separator && c != ' ' && kHexDigits.find(c) == std::string_view::npos) {
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
    std::string bytes;
    std::optional<std::size_t> high;
    for (const char c : digits) {
        const std::size_t digit = kHexDigits.find(lowerCase(c));
        if (digit == std::string_view::npos) {
            continue;
        }
        if (high) {
            bytes += static_cast<char>(*high * 16 + digit);
            high.reset();
        } else {
            high = digit;
        }
    }
    return bytes;
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
    std::string digits;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        digits += kHexDigits[byte / 16];
        digits += kHexDigits[byte % 16];
    }
    return colonSeparated(digits);
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
