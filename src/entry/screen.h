// SPDX-License-Identifier: MIT
//
// Message boxes and help on the screen, for hosts that bring none of their own.
#pragma once

#include "platform/desktop.h"
#include "platform/prompter.h"

#include <string>

#include <QPointer>
#include <QString>

class QTextBrowser;

namespace onudesk {

// Modal boxes with plain text.
class ScreenPrompter : public platform::Prompter {
public:
    platform::PromptAnswer ask(const platform::Prompt& prompt) override;
};

// A help book is a folder of HTML pages beside where the compiled book of that name would be.
// Topics are shown in one non-modal window.
class ScreenDesktop : public platform::Desktop {
public:
    ~ScreenDesktop() override;
    void showHelp(const std::string& book, const std::string& topic) override;
    void noteCommand(const std::string& /*line*/) override {}

private:
    QPointer<QTextBrowser> viewer_;
};

} // namespace onudesk
