// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

#include <string>

#include <QComboBox>
#include <QLineEdit>

namespace onudesk {

struct MacSwitchRules {
    int helpKeyId = 0;
    int enableId = 0; // message id of the switch's label
    Field value{};    // position and writing are the same for all
};

// How many MAC addresses the ONU learns.
[[nodiscard]] MacSwitchRules onuMacLimit();
// How long the ONU keeps a MAC address that it no longer sees.
[[nodiscard]] MacSwitchRules onuMacAge();

// One number of the ONU that is switched off by writing 0.
class MacSwitchPage : public ConfigPage {
    Q_OBJECT
public:
    MacSwitchPage(Session& session, std::int32_t itemType, MacSwitchRules rules, QWidget* parent);

protected:
    void showReply(const ReadResult& result) override;

private:
    void enableCombChange();

    QComboBox* enableComb_;
    QLineEdit* valueEdit_;
    std::string received_; // last value
};

} // namespace onudesk
