// SPDX-License-Identifier: MIT
#include "pages/port/onu_port_status_p.h"

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
    buildForm({
        {.control = "IndexEdit", .labelId = message::portNumber},
        {.control = "stateComb",
         .labelId = 61707,
         .kind = ControlKind::combo,
         .position = 0,
         .codes = {&maps_.states, UnknownCode::keeps}},
        portSetting("flowconComb", "flowconRabtn", 61708, 1, "lanFlowControl", maps_.flowControl),
        portSetting("shutdownComb", "shutdownRabtn", 61709, 2, "lanShutDown", maps_.switches),
        portSetting("autonegComb", "autonegRabtn", 61710, 3, "lanautoNeg", maps_.switches),
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

void TOnuPortStatusP::fillPage(const ReadResult& result) {
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
    // The catalogue as it is now: this window may have been open for long.
    const ObjectCatalogue now = loadCatalogue(itemType());
    if (WriteRequest request(session(), now, itemType(), rules().group); request) {
        bindWrite(request);
        finishWrite(std::move(request));
    }
}

} // namespace onudesk
