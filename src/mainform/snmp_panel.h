// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/session_context.h"
#include "pages/framework/field_set.h"

#include <vector>

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace onudesk {

// The SNMP settings that requests of this session carry: shows them, lets the operator change them
// and puts them back into the session context, from where every later request takes them. Sends
// nothing itself. Visible whenever no page is shown. User-interface thread only.
class SnmpPanel : public QGroupBox {
    Q_OBJECT
public:
    // The context outlives the panel.
    SnmpPanel(SessionContext& context, QWidget* parent);

    QComboBox* cbSnmpVersion = nullptr;
    QLineEdit* edtSnmpPort = nullptr;
    QLineEdit* edtSnmpTimeout = nullptr;
    QLineEdit* edtRetries = nullptr;
    QLineEdit* edtReadCommunity = nullptr;
    QLineEdit* edtWriteCommunity = nullptr;
    QLineEdit* edtEngineID = nullptr;
    QLineEdit* edtContextName = nullptr;
    QComboBox* cbSecurityModel = nullptr;
    QComboBox* cbSecurityLevel = nullptr;
    QLineEdit* edtUserName = nullptr;
    QComboBox* cbAuthProtocol = nullptr;
    QComboBox* cbPrivProtocol = nullptr;
    QLineEdit* edtAuthPassword = nullptr;
    QLineEdit* edtPrivPassword = nullptr;
    QPushButton* btnApply = nullptr;

    // Fills the controls from the context. A list keeps its selection on a code it does not have.
    void load();

    // Checks, then stores every setting, enabled or not. A box tells what was wrong and the focus
    // goes there, or that everything is stored.
    void btnApplyClick();

    static constexpr int kWidth = 561;
    static constexpr int kHeight = 353;

private:
    void build();
    // Enables what the selected version, level and protocols make use of.
    void enableControls();
    [[nodiscard]] bool checkUser() const;
    // False when the port or time-out is no number; what stands before it is stored then.
    [[nodiscard]] bool store();

    SessionContext& context_;
    FieldSet fields_;
    std::vector<QLabel*> labels_; // one per setting
};

} // namespace onudesk
