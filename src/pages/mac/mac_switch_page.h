// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

#include <cstdint>
#include <string>

#include <QComboBox>
#include <QLineEdit>

namespace onudesk {

struct MacSwitchRules {
    int helpKeyId = 0;
    int enableId = 0; // message id of the switch's label
    Field value{};    // position and writing are the same for all
};

// One number of the ONU that is switched off by writing 0.
class MacSwitchPage : public ConfigPage {
    Q_OBJECT
public:
    QComboBox* enableComb = nullptr;

    void enableCombChange();

protected:
    MacSwitchPage(Session& session, std::int32_t itemType, MacSwitchRules rules, QWidget* parent);

    void fillPage(const ReadResult& result) override;

private:
    const ValueMap switches_;
    QLineEdit* valueEdit_;
    std::string received_; // last value
};

} // namespace onudesk
