// SPDX-License-Identifier: MIT
//
// Texts of bytes: blanks, lines and UTF-8 (RFC 3629).
//
//     for (const Line& line : lines(text)) { take(line.number, withoutReturn(line.text)); }
#pragma once

#include <cstddef>
#include <iterator>
#include <string_view>

namespace onudesk {

inline constexpr std::string_view kBlanks = " \t\r\n\v\f";

// The text without blanks at its ends.
[[nodiscard]] std::string_view trimmed(std::string_view text, std::string_view blanks = kBlanks);
// The text without the carriage return at its end.
[[nodiscard]] std::string_view withoutReturn(std::string_view line);

struct Line {
    int number = 0; // from 1
    std::string_view text{};
};

// The lines of a text without their line feeds; one at the end of the text begins no further line.
// The text must outlive the lines.
class Lines {
public:
    class Iterator {
    public:
        using value_type = Line;
        using difference_type = std::ptrdiff_t;
        using pointer = const Line*;
        using reference = const Line&;
        using iterator_category = std::input_iterator_tag;

        explicit Iterator(std::string_view rest) : rest_(rest) { ++*this; }
        reference operator*() const { return line_; }
        pointer operator->() const { return &line_; }
        Iterator& operator++();
        friend bool operator==(const Iterator& at, std::default_sentinel_t) { return at.ended_; }

    private:
        std::string_view rest_;
        Line line_{};
        bool ended_ = false;
    };

    explicit Lines(std::string_view text) : text_(text) {}
    [[nodiscard]] Iterator begin() const { return Iterator(text_); }
    [[nodiscard]] static std::default_sentinel_t end() { return std::default_sentinel; }

private:
    std::string_view text_;
};
[[nodiscard]] inline Lines lines(std::string_view text) {
    return Lines(text);
}

// Valid UTF-8 without control characters.
[[nodiscard]] bool isLine(std::string_view bytes);
// The same, but for line breaks and tabs.
[[nodiscard]] bool isText(std::string_view bytes);

} // namespace onudesk
