// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/item_dialog.h"
#include "pages/framework/list_page.h"

#include <string>

#include <QComboBox>
#include <QLineEdit>

namespace onudesk {

// The ONU's VLANs with their membership and tagging on the PON and on the UNI side. Config adds a
// VLAN on one side or, with a row selected, removes the row's membership.
class TOnuVlanTable : public ListPage {
    Q_OBJECT
public:
    TOnuVlanTable(Session& session, std::int32_t itemType, QWidget* parent);

    // The VLAN whose row is selected after it was added.
    void setLastVlan(const std::string& vlan) { lastVlan_ = vlan; }

    void configBtnClick() override;

protected:
    void rowArrived(int row, const ReadResult& result) override;

private:
    bool addMode_ = false; // the dialog was opened without a row
    std::string lastVlan_;
};

class TOnuVlanItem : public ItemDialog {
    Q_OBJECT
public:
    // With row -1 for a VLAN that is added.
    TOnuVlanItem(TOnuVlanTable& page, int row);

    QLineEdit* vlanIdEdt = nullptr;
    QComboBox* portComb = nullptr;
    QComboBox* tagComb = nullptr;

protected:
    bool mayWrite() override;
    void bindWrite(WriteRequest& request) override;
    // The page reads again when the write is answered.
    void FormClose() override {}

private:
    void showRow(int row);

    TOnuVlanTable& page_;
};

} // namespace onudesk
