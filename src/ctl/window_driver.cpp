// SPDX-License-Identifier: MIT
#include "ctl/window_driver.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

namespace onudesk::ctl {

namespace {

// The engine has no way to wake this thread when its last request ends without a reply.
constexpr int kQuietCheckMilliseconds = 1;

int depthOf(const QTreeWidgetItem& item) {
    int depth = -1;
    for (const QTreeWidgetItem* above = item.parent(); above != nullptr; above = above->parent()) {
        ++depth;
    }
    return depth;
}

} // namespace

Recorder::Recorder()
    : prompterBefore_(platform::installPrompter(this)),
      desktopBefore_(platform::installDesktop(this)) {}

Recorder::~Recorder() {
    platform::installPrompter(prompterBefore_);
    platform::installDesktop(desktopBefore_);
}

platform::PromptAnswer Recorder::ask(const platform::Prompt& prompt) {
    boxes_.push_back(prompt);
    return prompt.buttons == platform::PromptButtons::yesNo ? platform::PromptAnswer::no
                                                            : platform::PromptAnswer::ok;
}

void WindowDriver::run(const host::OnuTarget& target, const std::function<void()>& work) {
    QTimer::singleShot(0, &application_, [&] {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->objectName() == QLatin1String("TConfigMainForm")) {
                window_ = widget;
            }
        }
        if (window_ != nullptr) {
            // Nobody looks at it; a picture paints what it needs itself.
            window_->setUpdatesEnabled(false);
            work();
            window_->close();
        }
        window_ = nullptr;
    });
    host_.show(application_, target);
}

QTreeWidget* WindowDriver::tree() const {
    return window_->findChild<QTreeWidget*>(QStringLiteral("ConfigItemTree"));
}

QWidget* WindowDriver::page() const {
    const auto* area = window_->findChild<QWidget*>(QStringLiteral("Panel1"));
    for (QWidget* child : area->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (child->isVisible() && child->objectName().startsWith(QLatin1String("TOnu"))) {
            return child;
        }
    }
    return nullptr;
}

std::vector<TreeItem> WindowDriver::items() const {
    std::vector<TreeItem> items;
    for (QTreeWidgetItemIterator node(tree()); *node != nullptr; ++node) {
        if ((*node)->parent() != nullptr) {
            items.push_back({depthOf(**node), (*node)->data(0, Qt::UserRole).toInt(),
                             (*node)->childCount() > 0, (*node)->text(0)});
        }
    }
    return items;
}

bool WindowDriver::open(std::int32_t itemType) {
    if (!tree()->isVisible()) {
        return page() != nullptr;
    }
    for (QTreeWidgetItemIterator node(tree()); *node != nullptr; ++node) {
        if ((*node)->parent() != nullptr && (*node)->childCount() == 0 &&
            (*node)->data(0, Qt::UserRole).toInt() == itemType) {
            tree()->setCurrentItem(*node);
            Q_EMIT tree()->itemClicked(*node, 0);
            return true;
        }
    }
    return false;
}

void WindowDriver::waitUntilQuiet() const {
    QTimer tick;
    tick.start(kQuietCheckMilliseconds);
    while (!host_.quiet()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

} // namespace onudesk::ctl
