// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/recorder.h"

#include <cstddef>
#include <string>
#include <vector>

class QEventLoop;

namespace onudesk::ctl {

// Keeps the window's questions open, each in an event loop of its own, until they are answered.
// User-interface thread only; while it lives it is the recorder's way to ask.
class Questions {
public:
    explicit Questions(Recorder& recorder);
    ~Questions();
    Questions(const Questions&) = delete;
    Questions& operator=(const Questions&) = delete;

    [[nodiscard]] bool isOpen() const { return !open_.empty(); }
    // Of the question in front; only while one is open.
    [[nodiscard]] std::string text() const;

    // Answers the question in front and takes its box. False when none is open.
    bool answer(platform::PromptAnswer answer);
    // Acknowledges the boxes told since the last answer. False when there was none.
    bool acknowledge();
    // Further questions are answered no at once; those that are open stay open.
    void refuseMore() { refusing_ = true; }

private:
    struct Question {
        std::size_t box;
        QEventLoop* loop;
        platform::PromptAnswer answer;
    };

    platform::PromptAnswer ask();

    Recorder& recorder_;
    std::vector<Question*> open_; // the one in front last
    std::size_t acknowledged_ = 0;
    bool refusing_ = false;
};

} // namespace onudesk::ctl
