// SPDX-License-Identifier: MIT
//
// Bytes as hexadecimal digits and back.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace onudesk {

enum class LetterCase { lower, upper };

// Two digits per byte.
[[nodiscard]] std::string hexDigits(std::string_view bytes, LetterCase letters = LetterCase::upper);

[[nodiscard]] bool isHexDigit(char c);
// The bytes behind an even number of digits of either case; nothing for anything else.
[[nodiscard]] std::optional<std::string> bytesFromHex(std::string_view digits);

} // namespace onudesk
