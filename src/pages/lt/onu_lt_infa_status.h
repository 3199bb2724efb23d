// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/item_dialog.h"
#include "pages/framework/list_page.h"

namespace onudesk {

// The voice lines of a line terminal: interface, state and description.
class TOnuLTInfaStatus : public ListPage {
    Q_OBJECT
public:
    TOnuLTInfaStatus(Session& session, std::int32_t itemType, QWidget* parent);

protected:
    void openRow(int row) override;

private:
    const ValueMap types_{{{"FXO", "1"}, {"FXS", "2"}, {"RD", "3"}}};
    const ValueMap states_;
};

// Changes the description.
class TOnuLTInfaStatusItem : public ItemDialog {
    Q_OBJECT
public:
    TOnuLTInfaStatusItem(TOnuLTInfaStatus& page, int row);
};

} // namespace onudesk
