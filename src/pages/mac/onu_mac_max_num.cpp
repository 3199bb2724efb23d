// SPDX-License-Identifier: MIT
#include "pages/framework/field_kinds.h"
#include "pages/mac/plain_pages.h"

namespace onudesk {

TablePage onuMacMaxNum() {
    return {.rules = {.helpKeyId = 6226,
                      .config = {"cfgBtn", 64405},
                      .refresh = {"refreshBtn", 64406},
                      .resultText = "maintable",
                      .minimumValues = 1},
            .columns = {{.titleId = message::portNumber, .required = true},
                        {.titleId = 64401, .position = 0}},
            .dialog = {.name = "TOnuMacMaxNumItem",
                       .titleId = 64402,
                       .fields = {{.control = "portEdit",
                                   .labelId = message::portNumber,
                                   .typing = {.bytes = 4},
                                   .position = 0},
                                  numberField("maxnumEdit", 64403, -1, 1, "lanMaxMacLimitNum",
                                              numberIn(0, 1000))},
                       .noteId = 64404,
                       .ok = {"okBtn", message::okay}}};
}

} // namespace onudesk
