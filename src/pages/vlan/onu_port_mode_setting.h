// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/item_dialog.h"
#include "pages/framework/list_page.h"

namespace onudesk {

// Whether each Ethernet port tags, untags or keeps what it sends.
class TOnuPortModeSetting : public ListPage {
    Q_OBJECT
public:
    TOnuPortModeSetting(Session& session, std::int32_t itemType, QWidget* parent);

    [[nodiscard]] const ValueMap& modes() const { return modes_; }

protected:
    void openRow(int row) override;

private:
    const ValueMap modes_{{{"untagged", "1"}, {"tagged", "2"}, {"unmodify", "3"}}};
};

class TOnuPortModeItem : public ItemDialog {
    Q_OBJECT
public:
    TOnuPortModeItem(TOnuPortModeSetting& page, int row);
};

} // namespace onudesk
