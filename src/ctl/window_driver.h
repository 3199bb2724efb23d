// SPDX-License-Identifier: MIT
//
// Works the real window through its controls, without a screen.
#pragma once

#include "host/client_host.h"
#include "platform/desktop.h"
#include "platform/prompter.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <QString>

class QApplication;
class QTreeWidget;
class QWidget;

namespace onudesk::ctl {

// Keeps what the window asks or tells instead of showing it; questions are answered no.
class Recorder : public platform::Prompter, public platform::Desktop {
public:
    Recorder();
    ~Recorder() override;
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    [[nodiscard]] const std::vector<platform::Prompt>& boxes() const { return boxes_; }

    platform::PromptAnswer ask(const platform::Prompt& prompt) override;
    void showHelp(const std::string& /*book*/, const std::string& /*topic*/) override {}
    void noteCommand(const std::string& /*line*/) override {}

private:
    std::vector<platform::Prompt> boxes_;
    platform::Prompter* prompterBefore_;
    platform::Desktop* desktopBefore_;
};

struct TreeItem {
    int depth = 0; // below the root node
    std::int32_t itemType = 0;
    bool heading = false;
    QString caption;
};

class WindowDriver {
public:
    WindowDriver(QApplication& application, host::ClientHost& host)
        : application_(application), host_(host) {}

    // Opens the window on the ONU, does the work in it and closes it.
    void run(const host::OnuTarget& target, const std::function<void()>& work);

    // The following only during work.
    [[nodiscard]] QWidget* window() const { return window_; }
    // The page in the page area that is shown, or null.
    [[nodiscard]] QWidget* page() const;
    [[nodiscard]] std::vector<TreeItem> items() const;
    // Clicks the item in the tree; false when the menu does not have it. In single-item mode the
    // page is there already.
    bool open(std::int32_t itemType);
    // Returns when nothing is outstanding and every reply was handled.
    void waitUntilQuiet() const;

private:
    [[nodiscard]] QTreeWidget* tree() const;

    QApplication& application_;
    host::ClientHost& host_;
    QWidget* window_ = nullptr;
};

} // namespace onudesk::ctl
