// SPDX-License-Identifier: MIT
#include "ctl/commands.h"

#include "ctl/picture.h"
#include "ctl/report.h"

#include <ostream>

#include <QJsonArray>
#include <QJsonDocument>
#include <QWidget>

namespace onudesk::ctl {

namespace {

// Opens the item's page and waits for its values; null, with the reason told, when there is none.
QWidget* openPage(const CommandContext& context) {
    const Result<QWidget*> page = context.driver.openPage(context.options.item);
    if (!page) {
        context.err << "onuctl: " << page.error() << '\n';
        return nullptr;
    }
    context.driver.waitUntilQuiet();
    return *page;
}

void print(std::ostream& out, const QJsonObject& object) {
    out << QJsonDocument(object).toJson(QJsonDocument::Indented).toStdString();
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
    const PageReport report{
        context.options.item, context.driver.captionOf(context.options.item), page, {}};
    if (context.options.json) {
        print(context.out, pageJson(report, context.recorder.boxes()));
        return exitOk;
    }
    context.out << pageText(report);
    for (const platform::Prompt& box : context.recorder.boxes()) {
        context.out << "box " << boxText(box) << '\n';
    }
    return exitOk;
}

ExitCode saveScreenshot(const CommandContext& context) {
    if (openPage(context) == nullptr) {
        return exitUsage;
    }
    const std::string file = context.options.outputFile.string();
    if (!savePicture(*context.driver.window(), file)) {
        context.err << "onuctl: " << file << ": the picture cannot be saved\n";
        return exitClientFailed;
    }
    return exitOk;
}

} // namespace onudesk::ctl
