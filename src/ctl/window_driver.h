// SPDX-License-Identifier: MIT
//
// Works the real window through its controls, without a screen.
#pragma once

#include "ctl/driven_window.h"
#include "host/client_host.h"

#include <cstdint>
#include <functional>
#include <vector>

#include <QObject>
#include <QString>

class QApplication;
class QTreeWidget;
class QWidget;

namespace onudesk::ctl {

struct TreeItem {
    int depth = 0; // below the root node
    std::int32_t itemType = 0;
    bool heading = false;
    QString caption;
};

class WindowDriver : public DrivenWindow {
public:
    // One at a time on a host.
    WindowDriver(QApplication& application, host::ClientHost& host);
    ~WindowDriver() override;
    WindowDriver(const WindowDriver&) = delete;
    WindowDriver& operator=(const WindowDriver&) = delete;

    // Opens the window on the ONU, does the work in it and closes it.
    void run(const host::OnuTarget& target, const std::function<void()>& work);
    // Opens the window on the ONU and returns when it is closed; `start` is called once it is open.
    void runUntilClosed(const host::OnuTarget& target, const std::function<void()>& start);

    // The following only while the window is open.
    [[nodiscard]] QWidget* window() const override { return window_; }
    [[nodiscard]] QWidget* page() const override;
    Result<QWidget*> openPage(std::int32_t itemType) override;
    [[nodiscard]] QString captionOf(std::int32_t itemType) const override;
    [[nodiscard]] std::vector<TreeItem> items() const;

    [[nodiscard]] bool observed() const override { return host_.engine().unobserved() == 0; }
    [[nodiscard]] bool answered() const override { return host_.engine().outstanding() == 0; }
    [[nodiscard]] bool quiet() const override { return host_.quiet(); }
    // Returns when quiet.
    void waitUntilQuiet() const;

private:
    void askAgain();
    void tellChange();
    [[nodiscard]] QTreeWidget* tree() const;
    bool clickItem(std::int32_t itemType);

    QApplication& application_;
    host::ClientHost& host_;
    QObject context_; // calls that wait in the event loop end with it
    host::OnuTarget target_;
    QWidget* window_ = nullptr;
};

} // namespace onudesk::ctl
