// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/item_dialog.h"
#include "pages/vlan/onu_port_vlan.h"
#include "platform/window_messages.h"

#include <string>

#include <QComboBox>
#include <QLineEdit>
#include <QTimer>

namespace onudesk {

// The VLAN translation entries of one port. While it is open, the replies of the page's item come
// here. An entry goes out in two writes, of which only the second is answered: first its values,
// then the row status of the port.
class TOnuPvidItem : public ItemDialog, public platform::WindowReceiver {
    Q_OBJECT
public:
    // For the page's selected port; asks for its entries at once.
    explicit TOnuPvidItem(TOnuPortVlan& page);
    ~TOnuPvidItem() override;
    TOnuPvidItem(const TOnuPvidItem&) = delete;
    TOnuPvidItem& operator=(const TOnuPvidItem&) = delete;

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
    QTimer* Timer1 = nullptr;

    void addBtnClick();
    void deleteBtnClick();
    void refreshBtnClick();
    void Timer1Timer();
    void mainTableClick();
    void mainTableDblClick();
    void modeCombChange();

    void reject() override;
    void handleMessage(const platform::WindowMessage& message) override;

private:
    void buildTable();
    void buildForm();
    void buildButtons();
    void readReply(void* reply);
    void addRow(const ReadResult& result);
    void enableRequests(bool enabled);
    void startTimer();
    void readPort(const std::string& port);
    [[nodiscard]] std::string portInstance() const;
    // How a TPID is written: from its hexadecimal text, or as that text stands.
    using TpidValue = std::string (*)(const std::string& text);
    [[nodiscard]] WriteRequest entryRequest(const std::string& entry, TpidValue tpid);
    // Sends the entry, then the row status, 500 ms apart.
    void writeTwice(WriteRequest entry, const char* rowStatus);

    TOnuPortVlan& page_;
    platform::WindowRegistration registration_;
    bool selectsByValues_ = false; // the row just added, not the remembered one
};

} // namespace onudesk
