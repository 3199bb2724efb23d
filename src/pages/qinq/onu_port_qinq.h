// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/item_dialog.h"
#include "pages/framework/list_page.h"

namespace onudesk {

// The side of each Ethernet port in double tagging. Rows can be edited while QinQ is on.
class TOnuPortQinQ : public ListPage {
    Q_OBJECT
public:
    TOnuPortQinQ(Session& session, std::int32_t itemType, QWidget* parent);

    [[nodiscard]] const ValueMap& roles() const { return roles_; }

protected:
    void openRow(int row) override;
    void otherReply(const ReadResult& result) override;

private:
    const ValueMap roles_{{{"uplink", "1"}, {"customer", "2"}}};
    bool isQinQOn_ = false;
};

class TOnuPortQinQItem : public ItemDialog {
    Q_OBJECT
public:
    TOnuPortQinQItem(TOnuPortQinQ& page, int row);
};

} // namespace onudesk
