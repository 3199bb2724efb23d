// SPDX-License-Identifier: MIT
#include "pages/lt/onu_lt_gain.h"

namespace onudesk {

namespace {

constexpr int kVoiceLine = 81601;

Field gain(const char* control, int labelId, std::size_t column, const char* object) {
    return {.control = control,
            .labelId = labelId,
            .typing = {.bytes = 2, .digitsOnly = true},
            .position = column,
            .object = {object},
            .check = numberIn(0, 36),
            .written = Written::always};
}

} // namespace

TOnuLTGain::TOnuLTGain(Session& session, std::int32_t itemType, QWidget* parent)
    : ListPage(session, itemType,
               {.helpKeyId = 6268,
                .onDecoded = OnDecoded::followsFlag,
                .flagSetsRefresh = true,
                .resultText = "maintable",
                .minimumValues = 3},
               parent) {
    mainTable->setColumns({{.titleId = kVoiceLine},
                           {.titleId = 81602, .position = 0},
                           {.titleId = 81603, .position = 1}});
    start();
}

void TOnuLTGain::openRow(int row) {
    TOnuLTGainItem(*this, row).exec();
}

TOnuLTGainItem::TOnuLTGainItem(TOnuLTGain& page, int row)
    : ItemDialog(page,
                 {.fields = {{.control = "portnoEdt", .labelId = kVoiceLine, .position = 0},
                             gain("recvEdit", 81604, 1, "vgonuGainRec"),
                             gain("sendEdit", 81605, 2, "vgonuGainSend"),
                             constant({"vgonuGainRowStatus"}, "4")},
                  .ok = {"OkBtn", message::okay},
                  .cancel = {"CancelBtn", message::cancel}},
                 row) {}

} // namespace onudesk
