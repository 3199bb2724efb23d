// SPDX-License-Identifier: MIT
#include "ctl/recorder.h"

namespace onudesk::ctl {

Recorder::Recorder()
    : prompterBefore_(platform::installPrompter(this)),
      desktopBefore_(platform::installDesktop(this)) {}

Recorder::~Recorder() {
    platform::installPrompter(prompterBefore_);
    platform::installDesktop(desktopBefore_);
}

std::optional<std::size_t> Recorder::oldestUntaken() const {
    for (std::size_t box = 0; box < boxes_.size(); ++box) {
        if (!taken_.contains(box)) {
            return box;
        }
    }
    return std::nullopt;
}

std::optional<std::size_t> Recorder::oldestUnexpected() const {
    for (std::size_t box = 0; box < boxes_.size(); ++box) {
        if (!taken_.contains(box) && boxes_[box].icon != platform::PromptIcon::information) {
            return box;
        }
    }
    return std::nullopt;
}

platform::PromptAnswer Recorder::ask(const platform::Prompt& prompt) {
    boxes_.push_back(prompt);
    if (prompt.buttons != platform::PromptButtons::yesNo) {
        return platform::PromptAnswer::ok;
    }
    return onQuestion ? onQuestion(prompt) : platform::PromptAnswer::no;
}

} // namespace onudesk::ctl
