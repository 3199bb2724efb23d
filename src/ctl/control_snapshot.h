// SPDX-License-Identifier: MIT
//
// What a page shows, control by control.
#pragma once

#include <vector>

#include <QJsonObject>
#include <QString>
#include <QStringList>

class QWidget;

namespace onudesk::ctl {

struct ControlSnapshot {
    QString name;
    // "kind", "text", "enabled", "visible" and, where they apply, "items", "index", "checked",
    // "columns", "rows", "selected".
    QJsonObject properties;
};

// The named controls below the widget, in the order in which they were made; plain panels are left
// out. What an edit hides behind dots stays hidden.
[[nodiscard]] std::vector<ControlSnapshot> snapshotControls(const QWidget& page);

// One line for the terminal.
[[nodiscard]] QString describe(const ControlSnapshot& control);

} // namespace onudesk::ctl
