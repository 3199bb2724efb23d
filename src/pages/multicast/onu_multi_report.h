// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/item_dialog.h"
#include "pages/framework/list_page.h"

namespace onudesk {

// Whether each Ethernet port tags the multicast reports that it passes on.
class TOnuMultiReport : public ListPage {
    Q_OBJECT
public:
    TOnuMultiReport(Session& session, std::int32_t itemType, QWidget* parent);

    [[nodiscard]] const ValueMap& tags() const { return tags_; }

protected:
    void openRow(int row) override;

private:
    const ValueMap tags_{{{"unTag", "0"}, {"Tag", "1"}}};
};

class TOnuMultiReportItem : public ItemDialog {
    Q_OBJECT
public:
    TOnuMultiReportItem(TOnuMultiReport& page, int row);
};

} // namespace onudesk
