// SPDX-License-Identifier: MIT
//
// What a page shows, control by control.
#pragma once

#include <optional>
#include <vector>

#include <QJsonObject>
#include <QString>
#include <QStringList>

class QObject;
class QWidget;

namespace onudesk::ctl {

struct ControlSnapshot {
    QString name;
    // "kind", "text", "enabled", "editable", "visible", "focus" and, where they apply, "items",
    // "index", "checked", "columns", "rows", "selected". "focus" is whether keys go to the control
    // while its window is in front; "editable" is whether it holds something that the operator may
    // change while it is enabled: not what is read-only, and no labels, buttons and tables.
    QJsonObject properties;
};

// The named controls below the widget, in the order in which they were made; plain panels, and the
// dialogs that belong to the widget, are left out. What an edit hides behind dots stays hidden.
[[nodiscard]] std::vector<ControlSnapshot> snapshotControls(const QWidget& page);
// One widget or timer.
[[nodiscard]] ControlSnapshot snapshotControl(const QObject& object);

// A property as one text: true or false, numbers in decimal, items joined by ", ". Of tables "rows"
// is their number, and "row:N" the row's visible cells joined by " | ". Nothing when the control
// has no such property or row.
[[nodiscard]] std::optional<QString> propertyText(const ControlSnapshot& control,
                                                  const QString& property);

// One line for the terminal.
[[nodiscard]] QString describe(const ControlSnapshot& control);

} // namespace onudesk::ctl
