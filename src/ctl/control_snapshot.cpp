// SPDX-License-Identifier: MIT
#include "ctl/control_snapshot.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTimer>

namespace onudesk::ctl {

namespace {

QString property(const ControlSnapshot& control, const char* name) {
    return control.properties[QLatin1String(name)].toString();
}

// The kind of widgets that only hold others.
const QString kPanel = QStringLiteral("panel");

QString joined(const QJsonValue& list, const char* between) {
    QStringList texts;
    for (const auto& text : list.toArray()) {
        texts << text.toString();
    }
    return texts.join(QLatin1String(between));
}

void describeCombo(const QComboBox& combo, QJsonObject& properties) {
    QJsonArray items;
    for (int row = 0; row < combo.count(); ++row) {
        items.append(combo.itemText(row));
    }
    properties[QLatin1String("items")] = items;
    properties[QLatin1String("index")] = combo.currentIndex();
    properties[QLatin1String("text")] =
        combo.currentIndex() < 0 ? combo.placeholderText() : combo.currentText();
}

void describeTable(const QTableView& table, QJsonObject& properties) {
    QJsonArray columns;
    const QAbstractItemModel& model = *table.model();
    for (int column = 0; column < model.columnCount(); ++column) {
        if (!table.isColumnHidden(column)) {
            columns.append(model.headerData(column, Qt::Horizontal).toString());
        }
    }
    QJsonArray rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        QJsonArray cells;
        for (int column = 0; column < model.columnCount(); ++column) {
            if (!table.isColumnHidden(column)) {
                cells.append(model.index(row, column).data().toString());
            }
        }
        rows.append(cells);
    }
    const QModelIndexList selected = table.selectionModel()->selectedRows();
    properties[QLatin1String("columns")] = columns;
    properties[QLatin1String("rows")] = rows;
    properties[QLatin1String("selected")] = selected.isEmpty() ? -1 : selected.front().row();
}

// The kind of a control, and what only that kind has. Empty for widgets that are no controls.
QString describeKind(const QWidget& widget, QJsonObject& properties) {
    const QLatin1String text("text");
    const QLatin1String checked("checked");
    const QLatin1String editable("editable");
    properties[editable] = false;
    if (const auto* edit = qobject_cast<const QLineEdit*>(&widget)) {
        properties[text] = edit->displayText();
        properties[editable] = !edit->isReadOnly();
        return QStringLiteral("edit");
    }
    if (const auto* memo = qobject_cast<const QPlainTextEdit*>(&widget)) {
        properties[text] = memo->toPlainText();
        properties[editable] = !memo->isReadOnly();
        return QStringLiteral("memo");
    }
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
        describeCombo(*combo, properties);
        properties[editable] = true;
        return QStringLiteral("combo");
    }
    if (const auto* table = qobject_cast<const QTableView*>(&widget)) {
        describeTable(*table, properties);
        return QStringLiteral("table");
    }
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) {
        properties[text] = group->title();
        return QStringLiteral("group");
    }
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        properties[text] = label->text();
        return QStringLiteral("label");
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        properties[text] = button->text();
        if (button->isCheckable()) {
            properties[checked] = button->isChecked();
            properties[editable] = true;
        }
        return qobject_cast<const QCheckBox*>(button) != nullptr      ? QStringLiteral("box")
               : qobject_cast<const QRadioButton*>(button) != nullptr ? QStringLiteral("radio")
                                                                      : QStringLiteral("button");
    }
    return {};
}

} // namespace

ControlSnapshot snapshotControl(const QObject& object) {
    const QLatin1String kindKey("kind");
    const QLatin1String enabled("enabled");
    ControlSnapshot control{object.objectName(), {}};
    if (const auto* timer = qobject_cast<const QTimer*>(&object)) {
        control.properties[kindKey] = QLatin1String("timer");
        control.properties[enabled] = timer->isActive();
        control.properties[QLatin1String("editable")] = false;
    } else if (object.isWidgetType()) {
        const auto& widget = static_cast<const QWidget&>(object);
        const QString kind = describeKind(widget, control.properties);
        control.properties[kindKey] = kind.isEmpty() ? kPanel : kind;
        control.properties[enabled] = widget.isEnabled();
        control.properties[QLatin1String("visible")] = widget.isVisible();
        control.properties[QLatin1String("focus")] = widget.window()->focusWidget() == &widget;
    }
    return control;
}

std::vector<ControlSnapshot> snapshotControls(const QWidget& page) {
    std::vector<ControlSnapshot> controls;
    for (const QWidget* widget : page.findChildren<QWidget*>()) {
        const QString name = widget->objectName();
        if (name.isEmpty() || name.startsWith(QLatin1String("qt_")) ||
            widget->window() != page.window()) {
            continue;
        }
        ControlSnapshot control = snapshotControl(*widget);
        if (property(control, "kind") != kPanel) {
            controls.push_back(std::move(control));
        }
    }
    for (const QTimer* timer : page.findChildren<QTimer*>()) {
        const auto* owner = qobject_cast<const QWidget*>(timer->parent());
        if (!timer->objectName().isEmpty() && owner != nullptr &&
            owner->window() == page.window()) {
            controls.push_back(snapshotControl(*timer));
        }
    }
    return controls;
}

std::optional<QString> propertyText(const ControlSnapshot& control, const QString& property) {
    static const QString rowPrefix = QStringLiteral("row:");
    const bool isRow = property.startsWith(rowPrefix);
    const QJsonValue value = control.properties[isRow ? QStringLiteral("rows") : property];
    if (isRow) {
        const QJsonValue row = value.toArray().at(property.mid(rowPrefix.size()).toInt());
        return row.isArray() ? std::optional(joined(row, " | ")) : std::nullopt;
    }
    switch (value.type()) {
    case QJsonValue::Bool:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QJsonValue::Double:
        return QString::number(value.toInt());
    case QJsonValue::String:
        return value.toString();
    case QJsonValue::Array:
        return property == QLatin1String("rows") ? QString::number(value.toArray().size())
                                                 : joined(value, ", ");
    default:
        return std::nullopt;
    }
}

QString describe(const ControlSnapshot& control) {
    QString line = control.name.leftJustified(20) + QLatin1Char(' ') +
                   property(control, "kind").leftJustified(7);
    const QJsonObject& properties = control.properties;
    if (properties.contains(QLatin1String("text"))) {
        line += QLatin1Char('"') + property(control, "text") + QLatin1Char('"');
    }
    if (properties.contains(QLatin1String("checked"))) {
        line += properties[QLatin1String("checked")].toBool() ? QStringLiteral(" [x]")
                                                              : QStringLiteral(" [ ]");
    }
    for (const auto& row : properties[QLatin1String("rows")].toArray()) {
        line += QStringLiteral("\n    ") + joined(row, " | ");
    }
    if (!properties[QLatin1String("enabled")].toBool()) {
        line += QStringLiteral(" (disabled)");
    }
    if (properties.contains(QLatin1String("visible")) &&
        !properties[QLatin1String("visible")].toBool()) {
        line += QStringLiteral(" (hidden)");
    }
    return line;
}

} // namespace onudesk::ctl
