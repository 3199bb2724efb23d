// SPDX-License-Identifier: MIT
#include "ctl/control_finder.h"

#include "onudesk/window_names.h"

#include <QApplication>
#include <QDialog>
#include <QTableView>
#include <QTimer>

namespace onudesk::ctl {

namespace {

const QWidget* widgetOf(const QObject& object) {
    const QObject* at = &object;
    while (at != nullptr && !at->isWidgetType()) {
        at = at->parent();
    }
    return static_cast<const QWidget*>(at);
}

// Whether the widget is on a page other than the one it is looked for in.
bool isOnOtherPage(const QWidget& widget, const QWidget& root) {
    for (const QWidget* at = &widget; at != nullptr && at != &root; at = at->parentWidget()) {
        if (isPage(*at)) {
            return true;
        }
    }
    return false;
}

QObject* findIn(QWidget* root, const QString& name) {
    if (root == nullptr || root->objectName() == name) {
        return root;
    }
    for (QObject* found : root->findChildren<QObject*>(name)) {
        const QWidget* widget = widgetOf(*found);
        const bool isControl = found->isWidgetType() || qobject_cast<QTimer*>(found) != nullptr;
        if (isControl && widget->window() == root->window() && !isOnOtherPage(*widget, *root)) {
            return found;
        }
    }
    return nullptr;
}

} // namespace

bool isPage(const QWidget& widget) {
    return widget.objectName().startsWith(QLatin1String(window_names::kPagePrefix));
}

QDialog* dialogBefore(const QWidget* window) {
    auto* const front = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    return front == window ? nullptr : front;
}

std::vector<QDialog*> dialogsBefore(const QWidget* window) {
    std::vector<QDialog*> dialogs;
    QDialog* const front = dialogBefore(window);
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* const dialog = qobject_cast<QDialog*>(widget);
        if (dialog != nullptr && dialog != front && dialog != window && dialog->isModal() &&
            dialog->isVisible()) {
            dialogs.push_back(dialog);
        }
    }
    if (front != nullptr) {
        dialogs.push_back(front);
    }
    return dialogs;
}

QObject* findControl(const Scope& scope, const QString& name) {
    for (QWidget* root : {static_cast<QWidget*>(scope.dialog), scope.page, scope.window}) {
        if (QObject* const found = findIn(root, name)) {
            return found;
        }
    }
    return nullptr;
}

Result<QWidget*> usableControl(const Scope& scope, const std::string& name) {
    QObject* const found = findControl(scope, QString::fromStdString(name));
    if (found == nullptr) {
        return Error{"there is no control " + name};
    }
    if (!found->isWidgetType()) {
        return Error{name + " cannot be worked by hand"};
    }
    auto* const widget = static_cast<QWidget*>(found);
    if (!widget->isVisible()) {
        return Error{name + " is hidden"};
    }
    if (scope.dialog != nullptr && widget->window() != scope.dialog) {
        return Error{name + " is behind the open dialog"};
    }
    if (!widget->isEnabled()) {
        return Error{name + " is disabled"};
    }
    return widget;
}

std::vector<QTableView*> tablesIn(const Scope& scope) {
    QWidget* const root = scope.dialog != nullptr ? scope.dialog : scope.page;
    std::vector<QTableView*> tables;
    if (root != nullptr) {
        for (QTableView* table : root->findChildren<QTableView*>()) {
            if (table->window() == root->window()) {
                tables.push_back(table);
            }
        }
    }
    return tables;
}

QTimer* runningTimer(const Scope& scope) {
    for (QWidget* root : {static_cast<QWidget*>(scope.dialog), scope.page}) {
        auto* const timer =
            qobject_cast<QTimer*>(findIn(root, QLatin1String(window_names::kButtonTimer)));
        if (timer != nullptr && timer->isActive()) {
            return timer;
        }
    }
    return nullptr;
}

} // namespace onudesk::ctl
