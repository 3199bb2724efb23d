// SPDX-License-Identifier: MIT
#include "pages/framework/field_kinds.h"
#include "pages/lt/plain_pages.h"

namespace onudesk {

namespace {

constexpr int kVoiceLine = 81601;

} // namespace

TablePage onuLTGain() {
    return {.rules = {.helpKeyId = 6268,
                      .onDecoded = OnDecoded::followsFlag,
                      .flagSetsRefresh = true,
                      .resultText = "maintable",
                      .minimumValues = 3},
            .columns = {{.titleId = kVoiceLine},
                        {.titleId = 81602, .position = 0},
                        {.titleId = 81603, .position = 1}},
            .dialog = {
                .name = "TOnuLTGainItem",
                .fields = {{.control = "portnoEdt", .labelId = kVoiceLine, .position = 0},
                           numberField("recvEdit", 81604, 2, 1, "vgonuGainRec", numberIn(0, 36)),
                           numberField("sendEdit", 81605, 2, 2, "vgonuGainSend", numberIn(0, 36)),
                           rowStatus({"vgonuGainRowStatus"})},
                .ok = {"OkBtn", message::okay},
                .cancel = {"CancelBtn", message::cancel},
                .registersWhenShown = true}};
}

} // namespace onudesk
