// SPDX-License-Identifier: MIT
#include "pages/framework/field_kinds.h"
#include "pages/vlan/plain_pages.h"

namespace onudesk {

TablePage onuPortModeSetting() {
    const ValueMap modes({{"untagged", "1"}, {"tagged", "2"}, {"unmodify", "3"}});
    return {.rules = {.helpKeyId = 6252,
                      .onDecoded = OnDecoded::followsFlag,
                      .flagSetsRefresh = true,
                      .resultText = "maintable",
                      .minimumValues = 1},
            .columns = {{.titleId = 67701}, {.titleId = 67702, .position = 0, .codes = modes}},
            .dialog = {.name = "TOnuPortModeItem",
                       .fields = {{.control = "portNoEdt", .labelId = 67701, .position = 0},
                                  comboField("ifModeComb", 67702, 1, "lanTagMode", modes)},
                       .ok = {"Button1", message::okay},
                       .cancel = {"Button2", message::cancel},
                       .registersWhenShown = true}};
}

} // namespace onudesk
