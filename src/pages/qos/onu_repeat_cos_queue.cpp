// SPDX-License-Identifier: MIT
#include "pages/qos/onu_repeat_cos_queue.h"

#include "pages/framework/field_kinds.h"
#include "pages/qos/cos_of_row.h"

namespace onudesk {

namespace {

constexpr int kRemapIsOff = 3112;

} // namespace

TOnuRepeatCOSQueue::TOnuRepeatCOSQueue(Session& session, std::int32_t itemType, QWidget* parent)
    : ListPage(session, itemType,
               {.helpKeyId = 6233,
                .config = {"cfgBtn", message::config},
                .resultText = "maintable",
                .minimumValues = 1},
               parent) {
    mainTable->setColumns(
        {{.titleId = 65201, .show = cosOfRow}, {.titleId = 65202, .position = 0}});
    editRowsIn(
        {.name = "TOnuRepeatCOSQueueItem",
         .titleId = 65203,
         .fields =
             {{.control = "oldcosEdit", .labelId = 65201, .typing = {.bytes = 4}, .position = 0},
              comboField("newcosComb", 65202, 1, "onuQueueNewCos", ValueMap::numbers(0, 7))},
         .ok = {"okBtn", message::okay},
         .instance = RowInstance::rowIndex});
    onGroup("group1", [this](const ReadResult& result) {
        remapEnabled_ = leadingNumber(result.values.front()).value_or(0) != 0;
    });
    start();
}

bool TOnuRepeatCOSQueue::mayOpen() {
    if (!remapEnabled_) {
        refuse({kRemapIsOff}, mainTable);
    }
    return remapEnabled_;
}

} // namespace onudesk
