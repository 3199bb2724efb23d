// SPDX-License-Identifier: MIT
#include "pages/port/onu_port_status.h"

#include "env/language_module.h"
#include "pages/port/port_maps.h"

#include <QMouseEvent>

namespace onudesk {

namespace {

constexpr int kHint = 11316;
constexpr int kFirstTitle = 61701; // of the columns, in their order
constexpr std::size_t kAdvertised = 5;

std::string advertised(const std::string& value) {
    std::string cell;
    for (const std::string& text : capabilities(value)) {
        cell += text + ";";
    }
    return cell == std::string(kNoCapability) + ";" ? std::string() : cell;
}

} // namespace

TOnuPortStatus::TOnuPortStatus(Session& session, std::int32_t itemType, QWidget* parent)
    : ListPage(session, itemType,
               {.helpKeyId = 6219, .config = {"cfgBtn", message::config}, .minimumValues = 5},
               parent) {
    const PortMaps maps;
    mainTable->setColumns({{.titleId = kFirstTitle, .required = true},
                           {.titleId = kFirstTitle + 1, .position = 0, .codes = maps.states},
                           {.titleId = kFirstTitle + 2, .position = 1, .codes = maps.flowControl},
                           {.titleId = kFirstTitle + 3, .position = 2, .codes = maps.switches},
                           {.titleId = kFirstTitle + 4, .position = 3, .codes = maps.switches},
                           {.titleId = kFirstTitle + 5, .position = 4, .show = advertised}});
    // Writes the one setting that is chosen.
    editRowsIn({.name = "TOnuPortStatusItem",
                .titleId = 61711,
                .fields = {{.control = "IndexEdit",
                            .labelId = kFirstTitle,
                            .typing = {.bytes = 4},
                            .position = 0},
                           portSetting("flowconComb", "flowconRabtn", kFirstTitle + 2, 2,
                                       "lanFlowControl", maps.flowControl),
                           portSetting("shutdownComb", "shutdownRabtn", kFirstTitle + 3, 3,
                                       "lanShutDown", maps.switches),
                           portSetting("autonegComb", "autonegRabtn", kFirstTitle + 4, 4,
                                       "lanautoNeg", maps.switches)},
                .ok = {"okBtn", message::okay}});
    mainTable->setMouseTracking(true);
    mainTable->viewport()->installEventFilter(this);
    start();
}

bool TOnuPortStatus::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseMove) {
        mainTableMouseMove(static_cast<QMouseEvent*>(event)->position().toPoint());
    }
    return ListPage::eventFilter(watched, event);
}

void TOnuPortStatus::mainTableMouseMove(const QPoint& position) {
    const int row = mainTable->rowAt(position.y());
    QString hint;
    if (row >= 0) {
        hint =
            shown(messageText(kHint)) + QLatin1Char('\n') +
            shown(mainTable->cell(row, kAdvertised)).replace(QLatin1Char(';'), QLatin1Char('\n'));
    }
    mainTable->setToolTip(hint);
}

} // namespace onudesk
