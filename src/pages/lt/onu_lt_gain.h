// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/item_dialog.h"
#include "pages/framework/list_page.h"

namespace onudesk {

// The gains of the voice lines of a line terminal.
class TOnuLTGain : public ListPage {
    Q_OBJECT
public:
    TOnuLTGain(Session& session, std::int32_t itemType, QWidget* parent);

protected:
    void openRow(int row) override;
};

class TOnuLTGainItem : public ItemDialog {
    Q_OBJECT
public:
    TOnuLTGainItem(TOnuLTGain& page, int row);
};

} // namespace onudesk
