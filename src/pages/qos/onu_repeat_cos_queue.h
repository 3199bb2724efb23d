// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/list_page.h"
#include "pages/qos/cos_item.h"

namespace onudesk {

// The COS that each COS is rewritten to. Rows can be edited while the ONU remaps at all.
class TOnuRepeatCOSQueue : public ListPage {
    Q_OBJECT
public:
    TOnuRepeatCOSQueue(Session& session, std::int32_t itemType, QWidget* parent);

    [[nodiscard]] const ValueMap& cosValues() const { return cosValues_; }

protected:
    void openRow(int row) override;
    void otherReply(const ReadResult& result) override;

private:
    const ValueMap cosValues_ = ValueMap::numbers(0, 7);
    bool remapEnabled_ = false;
};

class TOnuRepeatCOSQueueItem : public CosItem {
    Q_OBJECT
public:
    TOnuRepeatCOSQueueItem(TOnuRepeatCOSQueue& page, int row);
};

} // namespace onudesk
