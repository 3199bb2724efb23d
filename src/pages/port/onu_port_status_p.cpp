// SPDX-License-Identifier: MIT
#include "pages/port/onu_port_status_p.h"

#include "pages/port/port_maps.h"

#include <utility>

#include <QScrollBar>

namespace onudesk {

namespace {

constexpr std::size_t kAdvertised = 4;
constexpr int kMemoLines = 8;

} // namespace

TOnuPortStatusP::TOnuPortStatusP(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = 6219,
                  .onDecoded = OnDecoded::followsFlag,
                  .onFailedDecode = OnFailedDecode::leaves,
                  .minimumValues = 5},
                 parent) {
    setObjectName(QStringLiteral("TOnuPortStatusP"));
    const PortMaps maps;
    buildForm({
        {.control = "IndexEdit", .labelId = message::portNumber},
        {.control = "stateComb",
         .labelId = 61707,
         .kind = ControlKind::combo,
         .position = 0,
         .codes = maps.states.keepingUnknown()},
        portSetting("flowconComb", "flowconRabtn", 61708, 1, "lanFlowControl", maps.flowControl),
        portSetting("shutdownComb", "shutdownRabtn", 61709, 2, "lanShutDown", maps.switches),
        portSetting("autonegComb", "autonegRabtn", 61710, 3, "lanautoNeg", maps.switches),
        {.control = "noticeMemo", .labelId = 61712, .kind = ControlKind::memo},
    });
    IndexEdit = fields().control<QLineEdit>("IndexEdit");
    noticeMemo = fields().control<QPlainTextEdit>("noticeMemo");
    noticeMemo->setFixedHeight(noticeMemo->fontMetrics().lineSpacing() * kMemoLines);
    start();
}

void TOnuPortStatusP::prepareRefresh() {
    notices_.clear();
    noticeMemo->clear();
}

void TOnuPortStatusP::showReply(const ReadResult& result) {
    ConfigPage::showReply(result);
    setControlText(*IndexEdit, std::to_string(session().SubIndex));
    for (const std::string& text : capabilities(result.values[kAdvertised])) {
        notices_ << (text == kNoCapability ? QString() : shown(text));
    }
    noticeMemo->setPlainText(notices_.join(QLatin1Char('\n')));
    noticeMemo->verticalScrollBar()->setValue(0);
}

void TOnuPortStatusP::bindWrite(WriteRequest& request) {
    fields().bind(request, session().OnuIndexText + "." + stateOf(*IndexEdit).text);
}

void TOnuPortStatusP::configBtnClick() {
    reloadCatalogue();
    if (WriteRequest request = newRequest()) {
        bindWrite(request);
        finishWrite(std::move(request));
    }
}

} // namespace onudesk
