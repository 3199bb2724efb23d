// SPDX-License-Identifier: MIT
#include "base/hexadecimal.h"

#include "base/numbers.h"

#include <cstdint>

namespace onudesk {

std::string hexDigits(std::string_view bytes, LetterCase letters) {
    const std::string_view digits =
        letters == LetterCase::upper ? "0123456789ABCDEF" : "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const char byte : bytes) {
        const auto value = static_cast<std::uint8_t>(byte);
        text += {digits[value >> 4], digits[value & 0x0F]};
    }
    return text;
}

bool isHexDigit(char c) {
    return ('0' <= c && c <= '9') || ('a' <= c && c <= 'f') || ('A' <= c && c <= 'F');
}

std::optional<std::string> bytesFromHex(std::string_view digits) {
    std::string bytes;
    for (; digits.size() >= 2; digits.remove_prefix(2)) {
        const auto value = parseNumber<std::uint8_t>(digits.substr(0, 2), 16);
        if (!value) {
            return std::nullopt;
        }
        bytes += static_cast<char>(*value);
    }
    return digits.empty() ? std::optional(bytes) : std::nullopt;
}

} // namespace onudesk
