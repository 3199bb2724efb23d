// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/list_page.h"
#include "pages/qos/cos_item.h"

namespace onudesk {

// Which of the four queues serves each COS.
class TOnuCOSQueueScheduler : public ListPage {
    Q_OBJECT
public:
    TOnuCOSQueueScheduler(Session& session, std::int32_t itemType, QWidget* parent);

    [[nodiscard]] const ValueMap& queues() const { return queues_; }

protected:
    void openRow(int row) override;

private:
    const ValueMap queues_ = ValueMap::numbers(0, 3);
};

class TOnuCOSQueueSchedulerItem : public CosItem {
    Q_OBJECT
public:
    TOnuCOSQueueSchedulerItem(TOnuCOSQueueScheduler& page, int row);
};

} // namespace onudesk
