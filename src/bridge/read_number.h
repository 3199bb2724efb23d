// SPDX-License-Identifier: MIT
#pragma once

#include <charconv>
#include <string_view>
#include <system_error>

namespace onudesk {

// Takes a decimal number that is the whole text: no blanks, no plus sign, nothing after it. False,
// with `number` as it was, when the text is anything else or does not fit.
template <typename Number>
[[nodiscard]] bool readNumber(std::string_view text, Number& number) {
    const char* const end = text.data() + text.size();
    Number value{};
    const auto [next, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || next != end) {
        return false;
    }
    number = value;
    return true;
}

} // namespace onudesk
