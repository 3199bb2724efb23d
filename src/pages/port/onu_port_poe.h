// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/item_dialog.h"
#include "pages/framework/list_page.h"

namespace onudesk {

// Power over Ethernet (IEEE 802.3, clause 33) of the Ethernet ports.
class TOnuPortPoE : public ListPage {
    Q_OBJECT
public:
    TOnuPortPoE(Session& session, std::int32_t itemType, QWidget* parent);

    [[nodiscard]] const ValueMap& modes() const { return modes_; }

    void configBtnClick() override;

protected:
    void openRow(int row) override;
    void prepareRefresh() override;
    void fillPage(const ReadResult& result) override;

private:
    const ValueMap states_;
    const ValueMap modes_;
    bool poeUnsupported_ = false; // a row since the last refresh had a code that there is not
};

class TOnuPortPoEItem : public ItemDialog {
    Q_OBJECT
public:
    TOnuPortPoEItem(TOnuPortPoE& page, int row);
};

} // namespace onudesk
