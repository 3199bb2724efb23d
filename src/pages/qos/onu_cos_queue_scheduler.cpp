// SPDX-License-Identifier: MIT
#include "pages/qos/onu_cos_queue_scheduler.h"

namespace onudesk {

TOnuCOSQueueScheduler::TOnuCOSQueueScheduler(Session& session, std::int32_t itemType,
                                             QWidget* parent)
    : ListPage(session, itemType,
               {.helpKeyId = 6232, .config = {"cfgBtn", message::config}, .minimumValues = 1},
               parent) {
    mainTable->setColumns(
        {{.titleId = 65101, .show = cosOfRow}, {.titleId = 65102, .position = 0}});
    start();
}

void TOnuCOSQueueScheduler::openRow(int row) {
    TOnuCOSQueueSchedulerItem(*this, row).exec();
}

TOnuCOSQueueSchedulerItem::TOnuCOSQueueSchedulerItem(TOnuCOSQueueScheduler& page, int row)
    : CosItem(page,
              {.titleId = 65103,
               .fields =
                   {{.control = "cosEdit", .labelId = 65101, .typing = {.bytes = 4}, .position = 0},
                    {.control = "queueComb",
                     .labelId = 65102,
                     .kind = ControlKind::combo,
                     .position = 1,
                     .object = {"onuQueueClass"},
                     .codes = {&page.queues()},
                     .written = Written::always}},
               .ok = {"okBtn", message::okay}},
              row) {}

} // namespace onudesk
