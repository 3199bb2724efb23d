// SPDX-License-Identifier: MIT
#include "env/language_module.h"
#include "pages/lt/plain_pages.h"

namespace onudesk {

namespace {

constexpr int kVoiceLine = 81501;
constexpr int kDescription = 81504;

} // namespace

TablePage onuLTInfaStatus() {
    const ValueMap types({{"FXO", "1"}, {"FXS", "2"}, {"RD", "3"}});
    const ValueMap states({{messageText(3168), "0"}, {messageText(3169), "1"}});
    return {.rules = {.helpKeyId = 6269,
                      .onDecoded = OnDecoded::followsFlag,
                      .flagSetsRefresh = true,
                      .resultText = "maintable",
                      .minimumValues = 3},
            .columns = {{.titleId = kVoiceLine},
                        {.titleId = 81502, .position = 0, .codes = types},
                        {.titleId = 81503, .position = 1, .codes = states},
                        {.titleId = kDescription, .position = 2}},
            .dialog = {.name = "TOnuLTInfaStatusItem",
                       .fields = {{.control = "portnoEdt", .labelId = kVoiceLine, .position = 0},
                                  {.control = "descMemo",
                                   .labelId = kDescription,
                                   .kind = ControlKind::memo,
                                   .typing = {.characters = 50},
                                   .position = 3,
                                   .object = {"vgonuvoipDesc"},
                                   .written = Written::always}},
                       .ok = {"okBtn", message::okay},
                       .registersWhenShown = true}};
}

} // namespace onudesk
