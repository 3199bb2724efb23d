// SPDX-License-Identifier: MIT
#include "pages/qos/onu_repeat_cos_queue.h"

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
    start();
}

void TOnuRepeatCOSQueue::otherReply(const ReadResult& result) {
    if (result.resultText == "group1" && !result.values.empty()) {
        remapEnabled_ = leadingNumber(result.values.front()).value_or(0) != 0;
    }
}

void TOnuRepeatCOSQueue::openRow(int row) {
    if (remapEnabled_) {
        TOnuRepeatCOSQueueItem(*this, row).exec();
    } else {
        refuse({kRemapIsOff}, mainTable);
    }
}

TOnuRepeatCOSQueueItem::TOnuRepeatCOSQueueItem(TOnuRepeatCOSQueue& page, int row)
    : CosItem(
          page,
          {.titleId = 65203,
           .fields =
               {{.control = "oldcosEdit", .labelId = 65201, .typing = {.bytes = 4}, .position = 0},
                {.control = "newcosComb",
                 .labelId = 65202,
                 .kind = ControlKind::combo,
                 .position = 1,
                 .object = {"onuQueueNewCos"},
                 .codes = {&page.cosValues()},
                 .written = Written::always}},
           .ok = {"okBtn", message::okay}},
          row) {}

} // namespace onudesk
