// SPDX-License-Identifier: MIT
//
// Scripts: one step per line, read whole and checked before the first one runs.
#pragma once

#include "base/result.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace onudesk::ctl {

enum class StepKind {
    open,
    wait,
    set,
    select,
    check,
    row,
    click,
    doubleClick,
    key,
    elapse,
    answer,
    print,
    screenshot,
    expectControl,
    expectBox,
    expectNoBox,
    expectWrites,
};

inline constexpr std::int32_t kNoRow = -1;

struct Step {
    StepKind kind = StepKind::wait;
    int line = 0;     // from 1
    std::string text; // as it stands in the script, without the blanks around it
    // As the manual page names them: CONTROL TEXT of `set`, CONTROL PROPERTY VALUE of `expect`, …
    // File names are absolute.
    std::vector<std::string> arguments{};
    std::int32_t number =
        0; // ITEM of `open`, N of `row` (kNoRow for none), `doubleclick`, `writes`
};

// Blank lines and lines that start with "#" are skipped; "…" makes one word of what is between the
// quotes, where \", \\ and \n stand for a quote, a backslash and a line break. The first mistake is
// named with its line, as "line 3: …". Relative file names start at the current directory.
[[nodiscard]] Result<std::vector<Step>> parseScript(std::string_view text);

// The steps in a file, "-" for standard input; errors start with the file's name.
[[nodiscard]] Result<std::vector<Step>> loadScript(const std::filesystem::path& file);

// How errors call the script.
[[nodiscard]] std::string scriptName(const std::filesystem::path& file);

// Whether the step does what an operator does, rather than look, wait or answer.
[[nodiscard]] bool isAction(StepKind kind);
// Whether the step can be done while a question is open.
[[nodiscard]] bool isForQuestions(StepKind kind);

} // namespace onudesk::ctl
