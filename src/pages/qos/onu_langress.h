// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/item_dialog.h"
#include "pages/framework/list_page.h"

#include <QComboBox>

namespace onudesk {

// Policing of what each Ethernet port receives and shaping of what it sends.
class TOnuLangress : public ListPage {
    Q_OBJECT
public:
    TOnuLangress(Session& session, std::int32_t itemType, QWidget* parent);
};

// Writes one direction or both, each with a request of its own.
class TOnuLangressItem : public ItemDialog {
    Q_OBJECT
public:
    TOnuLangressItem(TOnuLangress& page, int row);

    void okBtnClick() override;

private:
    TOnuLangress& page_;
    QComboBox* choiceComb_;
};

} // namespace onudesk
