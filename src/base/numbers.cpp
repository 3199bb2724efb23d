// SPDX-License-Identifier: MIT
#include "base/numbers.h"

#include "base/text.h"

#include <algorithm>
#include <limits>

namespace onudesk {

std::optional<std::int64_t> takeNumber(std::string_view& text, int base) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    if (text.starts_with('+') && !text.substr(1).starts_with('-')) {
        text.remove_prefix(1);
    }
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return error == std::errc() ? std::optional(value) : std::nullopt;
}

std::optional<std::int64_t> leadingNumber(std::string_view text, int base) {
    return takeNumber(text, base);
}

std::int32_t leadingInteger(std::string_view text) {
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t number = leadingNumber(text).value_or(0);
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(number, Limits::min(), Limits::max()));
}

} // namespace onudesk
