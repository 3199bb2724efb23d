// SPDX-License-Identifier: MIT
#include "pages/framework/field_kinds.h"
#include "pages/multicast/plain_pages.h"

namespace onudesk {

TablePage onuMultiReport() {
    const ValueMap tags({{"unTag", "0"}, {"Tag", "1"}});
    return {.rules = {.helpKeyId = 6229,
                      .config = {"cfgBtn", message::config},
                      .resultText = "maintable",
                      .minimumValues = 1},
            .columns = {{.titleId = message::portNumber, .required = true},
                        {.titleId = 62501, .position = 0, .codes = tags}},
            .dialog = {
                .name = "TOnuMultiReportItem",
                .titleId = 62502,
                .fields = {{.control = "portEdit", .labelId = message::portNumber, .position = 0},
                           comboField("tagComb", 62501, 1, "lanMultiTag", tags)},
                .ok = {"okBtn", message::okay}}};
}

} // namespace onudesk
