// SPDX-License-Identifier: MIT
//
// Checks of what the operator typed. They know no widgets: a failure says what to tell, the widget
// layer tells it and moves the focus.
#pragma once

#include "base/numbers.h"
#include "env/message_ids.h"
#include "platform/prompter.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace onudesk {

// A refusal in message ids. Without textId nothing is said and only the focus moves.
struct CheckFailure {
    int textId = 0;
    std::vector<std::string> arguments{};
    int captionId = message::refusalCaption;
    platform::PromptIcon icon = platform::PromptIcon::warning;
    std::string after{}; // what follows the text
};

// A decimal number of 32 bits and nothing else but blanks before it.
[[nodiscard]] std::optional<std::int32_t> wholeNumber(std::string_view text);

// The number, with a fraction and an exponent if any, that is the whole text but for blanks around
// it; the decimal point is ".".
[[nodiscard]] std::optional<double> decimalNumber(std::string_view text);

// The number, inclusive bounds: message 11068 with minimum and maximum. A text without a number
// fails.
[[nodiscard]] std::optional<CheckFailure> checkRange(std::string_view text, std::int64_t minimum,
                                                     std::int64_t maximum, int base = 10);

// 7 to 15 characters, digits and dots only, at most three digits in a group; nothing stricter.
// Message 11069.
[[nodiscard]] std::optional<CheckFailure> checkDottedQuad(std::string_view text);

// A MAC address in the form of its masked edit, "00:1a:2b:3c:4d:5e" with blanks for what was not
// typed.
struct MacCheck {
    std::string address; // lower case, blanks replaced by "0"
    std::optional<CheckFailure> failure;
};
// Refuses other characters than hexadecimal digits and blanks with `badCharacterId`, and the
// all-zero address with message 3029; caption 113.
[[nodiscard]] MacCheck checkMac(std::string_view text, int badCharacterId,
                                platform::PromptIcon icon);

inline constexpr std::size_t kMacBytes = 6;

// The bytes that hexadecimal digits stand for; separators and an odd last digit are dropped.
[[nodiscard]] std::string bytesOfHex(std::string_view digits);

// The text with ":" between every two characters; unchanged when its length is odd.
[[nodiscard]] std::string colonSeparated(const std::string& digits);

// A MAC address as lists show it, be it six bytes or their digits: lower-case digits, ":" between
// every two. Of other values every two characters are parted.
[[nodiscard]] std::string macText(const std::string& value);

// What follows the prefix and a "." in an OID, with or without a leading "."; nothing when the OID
// does not lie below the prefix.
[[nodiscard]] std::string instanceBelow(std::string_view prefix, std::string_view oid);

// The decimal 32-bit number in upper-case hexadecimal with at least `width` digits; 0 when it is
// none.
[[nodiscard]] std::string hexOfDecimal(std::string_view decimal, int width);

// The number at the front of the text, in decimal; 0 when there is none.
[[nodiscard]] std::string decimalOf(std::string_view text, int base);

} // namespace onudesk
