// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/item_dialog.h"
#include "pages/framework/port_list_page.h"

#include <QLineEdit>

namespace onudesk {

// The multicast groups that a port may receive: entries by MAC address and VLAN, in slots that are
// filled and emptied. The ONU says of each port whether they can be set.
class TOnuControlMulti : public PortListPage {
    Q_OBJECT
public:
    TOnuControlMulti(Session& session, std::int32_t itemType, QWidget* parent);

    void configBtnClick() override;

protected:
    void showReply(const ReadResult& result) override;

private:
    bool controllable_ = false; // the port of the last row
};

class TOnuControlMultiItem : public ItemDialog {
    Q_OBJECT
public:
    TOnuControlMultiItem(TOnuControlMulti& page, int row);

    QLineEdit* macMaskEdit = nullptr;

protected:
    bool mayWrite() override;
    [[nodiscard]] std::string instance() const override;

private:
    TOnuControlMulti& page_;
    QLineEdit* indexEdit_;
};

} // namespace onudesk
