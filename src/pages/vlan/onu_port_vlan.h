// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/list_page.h"

#include <string>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

namespace onudesk {

// VLAN mode, default VLAN, TPID and trunk list of every port. Ports that translate VLANs are edited
// in TOnuPvidItem. Some ONU models, told by the name of their menu, have two modes only.
class TOnuPortVlan : public ListPage {
    Q_OBJECT
public:
    TOnuPortVlan(Session& session, std::int32_t itemType, QWidget* parent);

    QLineEdit* portEdt = nullptr;
    QComboBox* modeComb = nullptr;
    QLineEdit* vlanEdt = nullptr;
    QLineEdit* tpidEdit = nullptr;
    QLineEdit* VlanListEdit = nullptr; // in the place of tpidEdit while the mode is trunk
    QLabel* Label4 = nullptr;          // of both

    [[nodiscard]] const ValueMap& modes() const { return modes_; }
    // The port of the row that Config acts on.
    [[nodiscard]] const std::string& selectedPort() const { return selectedPort_; }

    void configBtnClick() override;
    void mainTableClick() override;
    void mainTableDblClick() override;
    void modeCombChange();

protected:
    bool mayWrite() override;
    void bindWrite(WriteRequest& request) override;
    void showReply(const ReadResult& result) override;
    void handleWriteReply(void* reply) override;

private:
    void buildForm();
    void showTrunk(bool trunk);
    [[nodiscard]] std::string mode() const;

    const ValueMap modes_;
    std::string selectedPort_;
    std::string onuVlanMode_ = "1";
};

// The hexadecimal text of a TPID as the decimal number that is written.
[[nodiscard]] std::string decimalOfHex(const std::string& digits);

} // namespace onudesk
