// SPDX-License-Identifier: MIT
#include "ctl/report.h"

#include <QDialog>
#include <QJsonArray>
#include <QJsonDocument>
#include <QWidget>

namespace onudesk::ctl {

namespace {

QJsonObject controlsOf(const QWidget& widget) {
    QJsonObject controls;
    for (const ControlSnapshot& control : snapshotControls(widget)) {
        controls[control.name] = control.properties;
    }
    return controls;
}

QString controlLines(const QWidget& widget) {
    QString lines;
    for (const ControlSnapshot& control : snapshotControls(widget)) {
        lines += describe(control) + QLatin1Char('\n');
    }
    return lines;
}

QString quoted(const QString& text) {
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString string(const QJsonObject& object, const char* key) {
    return object[QLatin1String(key)].toString();
}

} // namespace

QString iconName(platform::PromptIcon icon) {
    switch (icon) {
    case platform::PromptIcon::information:
        return QStringLiteral("information");
    case platform::PromptIcon::warning:
        return QStringLiteral("warning");
    case platform::PromptIcon::none:
        break;
    }
    return QStringLiteral("none");
}

QJsonObject pageJson(const PageReport& report, const std::vector<platform::Prompt>& boxes) {
    QJsonArray boxList;
    for (const platform::Prompt& box : boxes) {
        boxList.append(boxJson(box));
    }
    QJsonObject object{{QLatin1String("item"), report.itemType},
                       {QLatin1String("class"), report.page->objectName()},
                       {QLatin1String("caption"), report.caption},
                       {QLatin1String("controls"), controlsOf(*report.page)},
                       {QLatin1String("boxes"), boxList}};
    QJsonArray dialogs;
    for (const QDialog* dialog : report.dialogs) {
        dialogs.append(QJsonObject{{QLatin1String("class"), dialog->objectName()},
                                   {QLatin1String("caption"), dialog->windowTitle()},
                                   {QLatin1String("controls"), controlsOf(*dialog)}});
    }
    if (!dialogs.isEmpty()) {
        object[QLatin1String("dialogs")] = dialogs;
    }
    return object;
}

std::string pageText(const PageReport& report) {
    QString text = QString::number(report.itemType) + QLatin1Char(' ') + report.page->objectName() +
                   QLatin1Char(' ') + quoted(report.caption) + QLatin1Char('\n') +
                   controlLines(*report.page);
    for (const QDialog* dialog : report.dialogs) {
        text += QStringLiteral("dialog ") + dialog->objectName() + QLatin1Char(' ') +
                quoted(dialog->windowTitle()) + QLatin1Char('\n') + controlLines(*dialog);
    }
    return text.toStdString();
}

QJsonObject controlJson(const ControlSnapshot& control) {
    QJsonObject object = control.properties;
    object[QLatin1String("name")] = control.name;
    return object;
}

QJsonObject boxJson(const platform::Prompt& box) {
    return {{QLatin1String("icon"), iconName(box.icon)},
            {QLatin1String("caption"), QString::fromStdString(box.caption)},
            {QLatin1String("text"), QString::fromStdString(box.text)}};
}

std::string boxText(const platform::Prompt& box) {
    return iconName(box.icon).toStdString() + " \"" + box.caption + "\" \"" + box.text + "\"";
}

std::string writeText(const QJsonObject& request) {
    const QString suffix = string(request, "suffix");
    QString text = QStringLiteral("write ") +
                   QString::number(request[QLatin1String("item")].toInt()) +
                   (suffix.isEmpty() ? QString() : QLatin1Char(' ') + suffix) + QLatin1Char('\n');
    for (const auto& entry : request[QLatin1String("bindings")].toArray()) {
        const QJsonObject binding = entry.toObject();
        const QString value = string(binding, "text");
        const QString hex = string(binding, "hex");
        text += QStringLiteral("    ") + string(binding, "name") + QLatin1Char(' ') +
                string(binding, "oid") + QLatin1Char(' ') +
                (value.isEmpty() && !hex.isEmpty() ? QStringLiteral("0x") + hex : quoted(value)) +
                QLatin1Char('\n');
    }
    return text.toStdString();
}

std::string jsonLine(const QJsonObject& object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString() + '\n';
}

} // namespace onudesk::ctl
