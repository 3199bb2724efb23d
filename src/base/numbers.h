// SPDX-License-Identifier: MIT
//
// Numbers in texts: strict ones, which are the whole text, and those at the front of a text.
#pragma once

#include <charconv>
#include <concepts>
#include <cstdint>
#include <optional>
#include <string_view>
#include <system_error>

namespace onudesk {

// What std::from_chars() makes of the whole text, `form` being a base or a std::chars_format.
template <typename Number, typename Form>
[[nodiscard]] std::optional<Number> parseWhole(std::string_view text, Form form) {
    const char* const end = text.data() + text.size();
    Number value{};
    const auto [next, error] = std::from_chars(text.data(), end, value, form);
    return error == std::errc() && next == end ? std::optional(value) : std::nullopt;
}

// The number that is the whole text: no blanks, no plus sign, nothing after it. Nothing when the
// text is anything else or does not fit.
template <std::integral Number>
[[nodiscard]] std::optional<Number> parseNumber(std::string_view text, int base = 10) {
    return parseWhole<Number>(text, base);
}
template <std::floating_point Number>
[[nodiscard]] std::optional<Number>
parseNumber(std::string_view text, std::chars_format form = std::chars_format::general) {
    return parseWhole<Number>(text, form);
}

// Takes blanks, an optional sign and digits off the front of the text. Nothing when there are no
// digits or the number needs more than 64 bits.
[[nodiscard]] std::optional<std::int64_t> takeNumber(std::string_view& text, int base = 10);

// The number at the front of a text, whatever follows it.
[[nodiscard]] std::optional<std::int64_t> leadingNumber(std::string_view text, int base = 10);
// The same as 32 bits: the nearest that fits, 0 where there is none.
[[nodiscard]] std::int32_t leadingInteger(std::string_view text);

} // namespace onudesk
