// SPDX-License-Identifier: MIT
#include "doc/help_topic.h"

#include "base/numbers.h"
#include "base/text.h"

#include <optional>
#include <string_view>
#include <utility>

namespace onudesk {

namespace {

// Joins two lines; words of languages without blanks stay without one.
void join(std::string& text, const std::string& next) {
    const auto wide = [](char letter) { return static_cast<unsigned char>(letter) >= 0x80; };
    text += (wide(text.back()) && wide(next.front()) ? "" : "\n") + next;
}

std::optional<HelpLine> marked(const std::string& line) {
    const std::size_t digits = line.find_first_not_of("0123456789");
    if (digits != 0 && digits != std::string::npos && line.compare(digits, 2, ". ") == 0) {
        return HelpLine{LineKind::numbered, line.substr(digits + 2)};
    }
    static const std::pair<const char*, LineKind> marks[] = {{"## ", LineKind::heading},
                                                             {"- ", LineKind::item},
                                                             {"? ", LineKind::ask},
                                                             {"+ ", LineKind::more},
                                                             {"! ", LineKind::absent}};
    for (const auto& [mark, kind] : marks) {
        if (line.starts_with(mark)) {
            return HelpLine{kind, line.substr(std::string_view(mark).size())};
        }
    }
    if (line.find(" :: ") != std::string::npos) {
        return HelpLine{LineKind::row, line};
    }
    return std::nullopt;
}

} // namespace

HelpTopic readTopic(const std::string& source) {
    HelpTopic topic;
    bool open = false; // the last line can go on
    std::vector<HelpLine> parts;
    for (const Line& each : lines(source)) {
        const std::string line(each.text);
        if (line.starts_with("key ")) {
            topic.key = leadingInteger(line.substr(4));
        } else if (line.starts_with("contents ")) {
            topic.contents = line.substr(9);
        } else if (line.starts_with("# ")) {
            topic.title = line.substr(2);
        } else if (line.empty()) {
            open = false;
        } else if (open && line.starts_with("  ")) {
            join(parts.back().text, line.substr(line.find_first_not_of(' ')));
        } else if (auto next = marked(line)) {
            parts.push_back(std::move(*next));
            open = parts.back().kind != LineKind::heading && parts.back().kind != LineKind::ask;
        } else if (open) {
            join(parts.back().text, line);
        } else {
            parts.push_back({LineKind::paragraph, line});
            open = true;
        }
    }
    bool asked = false;
    for (HelpLine& line : parts) {
        if (line.kind == LineKind::absent) {
            topic.absent.insert(std::move(line.text));
        } else if (line.kind == LineKind::ask) {
            if (!asked) {
                topic.entries.emplace_back();
            }
            topic.entries.back().heads.push_back(std::move(line.text));
            asked = true;
        } else if (topic.entries.empty()) {
            topic.lines.push_back(std::move(line));
        } else {
            HelpEntry& entry = topic.entries.back();
            entry.more |= entry.paragraphs.empty() && line.kind == LineKind::more;
            entry.paragraphs.push_back(std::move(line.text));
            asked = false;
        }
    }
    return topic;
}

} // namespace onudesk
