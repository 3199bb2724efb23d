// SPDX-License-Identifier: MIT
#include "ctl/commands.h"

#include "ctl/control_snapshot.h"

#include <ostream>

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPixmap>
#include <QWidget>

namespace onudesk::ctl {

namespace {

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

QString captionOf(const CommandContext& context) {
    for (const TreeItem& item : context.driver.items()) {
        if (!item.heading && item.itemType == context.options.item) {
            return item.caption;
        }
    }
    return {};
}

// Opens the item's page and waits for its values; null, with the reason told, when there is none.
QWidget* openPage(const CommandContext& context) {
    const std::int32_t item = context.options.item;
    const host::OnuTarget& target = context.options.target;
    if (target.subIndex >= 0 && target.subUnitItemType != item) {
        context.err << "onuctl: item " << item << ": --item names another one\n";
        return nullptr;
    }
    if (!context.driver.open(item)) {
        context.err << "onuctl: item " << item << ": the menu has no such item\n";
        return nullptr;
    }
    QWidget* page = context.driver.page();
    if (page == nullptr) {
        context.err << "onuctl: item " << item << ": there is no page for it\n";
        return nullptr;
    }
    context.driver.waitUntilQuiet();
    return page;
}

QJsonArray boxesJson(const std::vector<platform::Prompt>& boxes) {
    QJsonArray list;
    for (const platform::Prompt& box : boxes) {
        list.append(QJsonObject{{QLatin1String("icon"), iconName(box.icon)},
                                {QLatin1String("caption"), QString::fromStdString(box.caption)},
                                {QLatin1String("text"), QString::fromStdString(box.text)}});
    }
    return list;
}

void print(std::ostream& out, const QJsonObject& object) {
    out << QJsonDocument(object).toJson(QJsonDocument::Indented).toStdString();
}

void printPageJson(const CommandContext& context, const QWidget& page) {
    QJsonObject controls;
    for (const ControlSnapshot& control : snapshotControls(page)) {
        controls[control.name] = control.properties;
    }
    print(context.out, {{QLatin1String("item"), context.options.item},
                        {QLatin1String("class"), page.objectName()},
                        {QLatin1String("caption"), captionOf(context)},
                        {QLatin1String("controls"), controls},
                        {QLatin1String("boxes"), boxesJson(context.recorder.boxes())}});
}

void printPageText(const CommandContext& context, const QWidget& page) {
    context.out << context.options.item << ' ' << page.objectName().toStdString() << " \""
                << captionOf(context).toStdString() << "\"\n";
    for (const ControlSnapshot& control : snapshotControls(page)) {
        context.out << describe(control).toStdString() << '\n';
    }
    for (const platform::Prompt& box : context.recorder.boxes()) {
        context.out << "box " << iconName(box.icon).toStdString() << " \"" << box.caption << "\" \""
                    << box.text << "\"\n";
    }
}

} // namespace

ExitCode listItems(const CommandContext& context) {
    context.driver.waitUntilQuiet(); // a single item reads at once, and is traced
    QJsonArray list;
    for (const TreeItem& item : context.driver.items()) {
        if (context.options.json) {
            list.append(QJsonObject{{QLatin1String("item"), item.itemType},
                                    {QLatin1String("caption"), item.caption},
                                    {QLatin1String("depth"), item.depth},
                                    {QLatin1String("heading"), item.heading}});
        } else {
            context.out << std::string(static_cast<std::size_t>(item.depth) * 2, ' ')
                        << (item.heading ? "" : std::to_string(item.itemType) + " ")
                        << item.caption.toStdString() << '\n';
        }
    }
    if (context.options.json) {
        print(context.out, {{QLatin1String("items"), list}});
    }
    return exitOk;
}

ExitCode showPage(const CommandContext& context) {
    const QWidget* page = openPage(context);
    if (page == nullptr) {
        return exitUsage;
    }
    if (context.options.json) {
        printPageJson(context, *page);
    } else {
        printPageText(context, *page);
    }
    return exitOk;
}

ExitCode saveScreenshot(const CommandContext& context) {
    if (openPage(context) == nullptr) {
        return exitUsage;
    }
    context.driver.window()->setUpdatesEnabled(true);
    QCoreApplication::processEvents(); // lays out what the values changed
    const QString file = QString::fromStdString(context.options.outputFile.string());
    if (!context.driver.window()->grab().save(file, "PNG")) {
        context.err << "onuctl: " << context.options.outputFile.string()
                    << ": the picture cannot be saved\n";
        return exitClientFailed;
    }
    return exitOk;
}

} // namespace onudesk::ctl
