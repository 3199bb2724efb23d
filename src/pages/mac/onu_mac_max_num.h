// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/item_dialog.h"
#include "pages/framework/list_page.h"

namespace onudesk {

// How many MAC addresses the ONU learns on each Ethernet port.
class TOnuMacMaxNum : public ListPage {
    Q_OBJECT
public:
    TOnuMacMaxNum(Session& session, std::int32_t itemType, QWidget* parent);

protected:
    void openRow(int row) override;
};

class TOnuMacMaxNumItem : public ItemDialog {
    Q_OBJECT
public:
    TOnuMacMaxNumItem(TOnuMacMaxNum& page, int row);
};

} // namespace onudesk
