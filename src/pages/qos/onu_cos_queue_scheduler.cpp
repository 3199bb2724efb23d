// SPDX-License-Identifier: MIT
#include "pages/framework/field_kinds.h"
#include "pages/qos/cos_of_row.h"
#include "pages/qos/plain_pages.h"

namespace onudesk {

TablePage onuCOSQueueScheduler() {
    return {
        .rules = {.helpKeyId = 6232, .config = {"cfgBtn", message::config}, .minimumValues = 1},
        .columns = {{.titleId = 65101, .show = cosOfRow}, {.titleId = 65102, .position = 0}},
        .dialog = {
            .name = "TOnuCOSQueueSchedulerItem",
            .titleId = 65103,
            .fields =
                {{.control = "cosEdit", .labelId = 65101, .typing = {.bytes = 4}, .position = 0},
                 comboField("queueComb", 65102, 1, "onuQueueClass", ValueMap::numbers(0, 3))},
            .ok = {"okBtn", message::okay},
            .instance = RowInstance::rowIndex}};
}

} // namespace onudesk
