// SPDX-License-Identifier: MIT
#include "ctl/window_driver.h"

#include "ctl/control_finder.h"
#include "onudesk/window_names.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

namespace onudesk::ctl {

namespace {

int depthOf(const QTreeWidgetItem& item) {
    int depth = -1;
    for (const QTreeWidgetItem* above = item.parent(); above != nullptr; above = above->parent()) {
        ++depth;
    }
    return depth;
}

} // namespace

WindowDriver::WindowDriver(QApplication& application, host::ClientHost& host)
    : application_(application), host_(host) {
    host_.engine().setOnSettled([this] { askAgain(); });
}

WindowDriver::~WindowDriver() {
    host_.engine().setOnSettled({});
}

// Any thread.
void WindowDriver::askAgain() {
    QMetaObject::invokeMethod(
        &context_, [this] { tellChange(); }, Qt::QueuedConnection);
}

// The engine is settled once the last reply was posted. While the window has still to handle
// replies its pump has an event in the queue, and what is asked again here stands behind that.
void WindowDriver::tellChange() {
    if (onChange) {
        onChange();
    }
    if (answered() && !quiet()) {
        askAgain();
    }
}

void WindowDriver::run(const host::OnuTarget& target, const std::function<void()>& work) {
    runUntilClosed(target, [&] {
        work();
        window_->close();
    });
}

void WindowDriver::runUntilClosed(const host::OnuTarget& target,
                                  const std::function<void()>& start) {
    target_ = target;
    QTimer::singleShot(0, &application_, [&] {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->objectName() == QLatin1String(window_names::kMainForm)) {
                window_ = widget;
            }
        }
        if (window_ != nullptr) {
            // Nobody looks at it; a picture paints what it needs itself.
            window_->setUpdatesEnabled(false);
            start();
        }
    });
    host_.show(application_, target);
    window_ = nullptr;
}

QTreeWidget* WindowDriver::tree() const {
    return window_->findChild<QTreeWidget*>(QLatin1String(window_names::kItemTree));
}

QWidget* WindowDriver::page() const {
    const auto* area = window_->findChild<QWidget*>(QLatin1String(window_names::kPageArea));
    for (QWidget* child : area->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (child->isVisible() && isPage(*child)) {
            return child;
        }
    }
    return nullptr;
}

std::vector<TreeItem> WindowDriver::items() const {
    std::vector<TreeItem> items;
    for (QTreeWidgetItemIterator node(tree()); *node != nullptr; ++node) {
        if ((*node)->parent() != nullptr) {
            items.push_back({depthOf(**node), (*node)->data(0, window_names::kItemTypeRole).toInt(),
                             (*node)->childCount() > 0, (*node)->text(0)});
        }
    }
    return items;
}

QString WindowDriver::captionOf(std::int32_t itemType) const {
    for (const TreeItem& item : items()) {
        if (!item.heading && item.itemType == itemType) {
            return item.caption;
        }
    }
    return {};
}

Result<QWidget*> WindowDriver::openPage(std::int32_t itemType) {
    const std::string item = "item " + std::to_string(itemType) + ": ";
    if (target_.subIndex >= 0 && target_.subUnitItemType != itemType) {
        return Error{item + "--item names another one"};
    }
    if (tree()->isVisible() && !clickItem(itemType)) {
        return Error{item + "the menu has no such item"};
    }
    QWidget* const opened = page();
    if (opened == nullptr) {
        return Error{item + "there is no page for it"};
    }
    return opened;
}

bool WindowDriver::clickItem(std::int32_t itemType) {
    for (QTreeWidgetItemIterator node(tree()); *node != nullptr; ++node) {
        if ((*node)->parent() != nullptr && (*node)->childCount() == 0 &&
            (*node)->data(0, window_names::kItemTypeRole).toInt() == itemType) {
            tree()->setCurrentItem(*node);
            Q_EMIT tree()->itemClicked(*node, 0);
            return true;
        }
    }
    return false;
}

void WindowDriver::waitUntilQuiet() const {
    while (!host_.quiet()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

} // namespace onudesk::ctl
