// SPDX-License-Identifier: MIT
#include "base/text.h"

#include <algorithm>
#include <cstdint>

namespace onudesk {

namespace {

constexpr std::string_view kBreaks = "\n\r\t";

// Length of the UTF-8 sequence at the front, 0 when it is none.
std::size_t sequenceLength(std::string_view bytes) {
    const auto byteAt = [&](std::size_t at) { return static_cast<std::uint8_t>(bytes[at]); };
    const std::uint8_t lead = byteAt(0);
    const std::size_t length = lead < 0x80    ? 1
                               : lead < 0xC2  ? 0
                               : lead < 0xE0  ? 2
                               : lead < 0xF0  ? 3
                               : lead <= 0xF4 ? 4
                                              : 0;
    if (length == 0 || length > bytes.size()) {
        return 0;
    }
    for (std::size_t at = 1; at < length; ++at) {
        if ((byteAt(at) & 0xC0) != 0x80) {
            return 0;
        }
    }
    // Overlong forms, surrogates and numbers above U+10FFFF show in the second byte.
    const bool bad =
        length > 1 && ((lead == 0xE0 && byteAt(1) < 0xA0) || (lead == 0xED && byteAt(1) >= 0xA0) ||
                       (lead == 0xF0 && byteAt(1) < 0x90) || (lead == 0xF4 && byteAt(1) >= 0x90));
    return bad ? 0 : length;
}

bool isControl(std::string_view sequence) {
    const auto lead = static_cast<std::uint8_t>(sequence[0]);
    return (sequence.size() == 1 && (lead < 0x20 || lead == 0x7F)) ||
           (sequence.size() == 2 && lead == 0xC2 && static_cast<std::uint8_t>(sequence[1]) < 0xA0);
}

} // namespace

std::string_view trimmed(std::string_view text, std::string_view blanks) {
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

std::string_view withoutReturn(std::string_view line) {
    return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

Lines::Iterator& Lines::Iterator::operator++() {
    ended_ = rest_.empty();
    const std::size_t length = std::min(rest_.find('\n'), rest_.size());
    line_ = {line_.number + 1, rest_.substr(0, length)};
    rest_.remove_prefix(std::min(length + 1, rest_.size()));
    return *this;
}

bool isLine(std::string_view bytes) {
    return isText(bytes) && bytes.find_first_of(kBreaks) == std::string_view::npos;
}

bool isText(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t length = sequenceLength(bytes);
        const bool breaks = length == 1 && kBreaks.find(bytes.front()) != std::string_view::npos;
        if (length == 0 || (!breaks && isControl(bytes.substr(0, length)))) {
            return false;
        }
        bytes.remove_prefix(length);
    }
    return true;
}

} // namespace onudesk
