// SPDX-License-Identifier: MIT
//
// A topic of the help book as its source has it; help_book.h shows the form.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace onudesk {

// What stands under one or more "? " lines.
struct HelpEntry {
    std::vector<std::string> heads;
    std::vector<std::string> paragraphs;
    bool more = false; // they stand below the standard explanation
};

enum class LineKind { paragraph, heading, row, item, numbered, ask, more, absent };

// Lines of a source that belong together, without their mark.
struct HelpLine {
    LineKind kind;
    std::string text;
};

struct HelpTopic {
    int key = 0;
    std::string contents;
    std::string title;
    std::vector<HelpLine> lines;
    std::vector<HelpEntry> entries;
    std::set<std::string> absent; // messages that follow from the facts but are never shown
};

[[nodiscard]] HelpTopic readTopic(const std::string& source);

} // namespace onudesk
