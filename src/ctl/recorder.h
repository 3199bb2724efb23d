// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop.h"
#include "platform/prompter.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace onudesk::ctl {

// Stands for the screen while it lives: keeps what the window asks or tells instead of showing it.
// User-interface thread only.
class Recorder : public platform::Prompter, public platform::Desktop {
public:
    Recorder();
    ~Recorder() override;
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    // Answers the questions; without it they are answered no.
    std::function<platform::PromptAnswer(const platform::Prompt&)> onQuestion;

    // Everything asked and told so far, oldest first.
    [[nodiscard]] const std::vector<platform::Prompt>& boxes() const { return boxes_; }
    // Boxes that somebody looked at are taken; these are the others.
    void take(std::size_t box) { taken_.insert(box); }
    [[nodiscard]] std::optional<std::size_t> oldestUntaken() const;
    // The oldest one that tells of something wrong: any but information.
    [[nodiscard]] std::optional<std::size_t> oldestUnexpected() const;

    platform::PromptAnswer ask(const platform::Prompt& prompt) override;
    void showHelp(const std::string& /*book*/, const std::string& /*topic*/) override {}
    void noteCommand(const std::string& /*line*/) override {}

private:
    std::vector<platform::Prompt> boxes_;
    std::set<std::size_t> taken_;
    platform::Prompter* prompterBefore_;
    platform::Desktop* desktopBefore_;
};

} // namespace onudesk::ctl
