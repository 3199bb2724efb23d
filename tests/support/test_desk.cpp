// SPDX-License-Identifier: MIT
#include "support/test_desk.h"

#include <utility>

#include <gtest/gtest.h>

namespace onudesk::test {

TestDesk::TestDesk()
    : prompterBefore_(platform::installPrompter(this)),
      desktopBefore_(platform::installDesktop(this)) {}

TestDesk::~TestDesk() {
    platform::installPrompter(prompterBefore_);
    platform::installDesktop(desktopBefore_);
    for (const platform::Prompt& box : boxes_) {
        ADD_FAILURE() << "unexpected box: \"" << box.caption << "\": \"" << box.text << "\"";
    }
}

std::vector<platform::Prompt> TestDesk::takeBoxes() {
    return std::exchange(boxes_, {});
}

platform::Prompt TestDesk::takeBox() {
    std::vector<platform::Prompt> boxes = takeBoxes();
    EXPECT_EQ(boxes.size(), 1U) << "expected one box";
    return boxes.empty() ? platform::Prompt{} : boxes.front();
}

platform::PromptAnswer TestDesk::ask(const platform::Prompt& prompt) {
    boxes_.push_back(prompt);
    if (whileOpen) {
        whileOpen();
    }
    return answer;
}

void TestDesk::showHelp(const std::string& book, const std::string& topic) {
    help.push_back({book, topic});
}

void TestDesk::noteCommand(const std::string& line) {
    commands.push_back(line);
}

void TestDesk::pause(std::chrono::milliseconds time) {
    pauses.push_back(time);
    if (whilePaused) {
        whilePaused();
    }
}

} // namespace onudesk::test
