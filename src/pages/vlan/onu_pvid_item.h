// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/item_dialog.h"
#include "pages/framework/life_cycle.h"
#include "pages/vlan/onu_port_vlan.h"

#include <string>

#include <QComboBox>
#include <QLineEdit>

namespace onudesk {

// The VLAN translation entries of one port. While it is open, the replies of the page's item come
// here. An entry goes out in two writes, of which only the second is answered: first its values,
// then the row status of the port.
class TOnuPvidItem : public ItemDialog {
    Q_OBJECT
public:
    // For the page's selected port; asks for its entries at once.
    explicit TOnuPvidItem(TOnuPortVlan& page);

    RowTable* mainTable = nullptr;
    QLineEdit* portEdit = nullptr;
    QComboBox* modeComb = nullptr;
    QLineEdit* vlanEdt = nullptr;
    QLineEdit* tpidEdit = nullptr;
    QLineEdit* tpid1Edit = nullptr;
    QLineEdit* tpid2Edit = nullptr;
    QLineEdit* vlan1Edit = nullptr;
    QLineEdit* vlan2Edit = nullptr;
    QPushButton* addBtn = nullptr;
    QPushButton* deleteBtn = nullptr;
    QPushButton* refreshBtn = nullptr;

    void addBtnClick();
    void deleteBtnClick();
    void refreshBtnClick() { cycle_.refresh(); }
    void mainTableClick();
    void mainTableDblClick();
    void modeCombChange();

    void reject() override;

private:
    void buildTable();
    void buildForm();
    void buildButtons();
    void handleReply(const ReadResult& result);
    void handleWriteReply(void* reply);
    [[nodiscard]] std::string portInstance() const;
    // How a TPID is written: from its hexadecimal text, or as that text stands.
    using TpidValue = std::string (*)(const std::string& text);
    [[nodiscard]] WriteRequest entryRequest(const std::string& entry, TpidValue tpid);
    // Sends the entry, then the row status, 500 ms apart.
    void writeTwice(WriteRequest entry, RowStatus status);

    TOnuPortVlan& page_;
    LifeCycle cycle_;
    bool selectsByValues_ = false; // the row just added, not the remembered one
};

} // namespace onudesk
