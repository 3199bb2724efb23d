// SPDX-License-Identifier: MIT
//
// Finding controls by name, as the operator would: what is in front first.
#pragma once

#include "base/result.h"

#include <string>
#include <vector>

#include <QPointer>
#include <QString>

class QDialog;
class QObject;
class QTableView;
class QTimer;
class QWidget;

namespace onudesk::ctl {

// Where to look, in this order. Dialog and page may be null.
struct Scope {
    QDialog* dialog = nullptr;
    QWidget* page = nullptr;
    QWidget* window = nullptr;
};

// Pages are the only widgets named so.
[[nodiscard]] bool isPage(const QWidget& widget);

// The open modal dialog in front of the window, or null.
[[nodiscard]] QDialog* dialogBefore(const QWidget* window);
// The open dialogs, the one in front last.
[[nodiscard]] std::vector<QDialog*> dialogsBefore(const QWidget* window);

// The widget or timer of that name; dialogs that belong to a page, and pages that are not shown,
// are no part of it. Null when there is none.
[[nodiscard]] QObject* findControl(const Scope& scope, const QString& name);

// A widget that the operator could work now. The error says why it is none: "there is no control
// x", "x is hidden", …
[[nodiscard]] Result<QWidget*> usableControl(const Scope& scope, const std::string& name);

// The tables of the dialog, else of the page.
[[nodiscard]] std::vector<QTableView*> tablesIn(const Scope& scope);

// The running Timer1 of the dialog, else of the page; null when none runs.
[[nodiscard]] QTimer* runningTimer(const Scope& scope);

} // namespace onudesk::ctl
