// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/session_context.h"

#include <QGroupBox>
#include <QLineEdit>

namespace onudesk {

// The SNMP settings that requests of this session carry, as the host gave them. Visible whenever no
// page is shown.
class SnmpPanel : public QGroupBox {
    Q_OBJECT
public:
    explicit SnmpPanel(QWidget* parent);

    QLineEdit* edtSnmpVersion = nullptr;
    QLineEdit* edtSnmpPort = nullptr;
    QLineEdit* edtSnmpTimeout = nullptr;
    QLineEdit* edtRetries = nullptr;

    // Fills the controls from the session.
    void load(const SessionContext& context);

    static constexpr int kWidth = 561;
    static constexpr int kHeight = 353;
};

} // namespace onudesk
