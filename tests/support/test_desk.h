// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop.h"
#include "platform/prompter.h"

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace onudesk::test {

// Stands for the operator and the screen: records boxes, help and commands. A box that the test
// does not take before the end fails it.
class TestDesk : public platform::Prompter, public platform::Desktop {
public:
    TestDesk();
    ~TestDesk() override;
    TestDesk(const TestDesk&) = delete;
    TestDesk& operator=(const TestDesk&) = delete;

    // The boxes since the last call, oldest first.
    [[nodiscard]] std::vector<platform::Prompt> takeBoxes();
    // The only box since the last call; fails the test when there is none or more than one.
    platform::Prompt takeBox();

    // Runs while a box is open, or time passes.
    std::function<void()> whileOpen;
    std::function<void()> whilePaused;
    platform::PromptAnswer answer = platform::PromptAnswer::ok;

    struct Help {
        std::string book;
        std::string topic;
    };
    std::vector<Help> help;
    std::vector<std::string> commands;
    std::vector<std::chrono::milliseconds> pauses;

    platform::PromptAnswer ask(const platform::Prompt& prompt) override;
    void showHelp(const std::string& book, const std::string& topic) override;
    void noteCommand(const std::string& line) override;
    void pause(std::chrono::milliseconds time) override;

private:
    std::vector<platform::Prompt> boxes_;
    platform::Prompter* prompterBefore_;
    platform::Desktop* desktopBefore_;
};

} // namespace onudesk::test
