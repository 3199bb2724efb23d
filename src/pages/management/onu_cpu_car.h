// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

#include <QLineEdit>

namespace onudesk {

// How many packets per second the ONU passes up to its CPU.
class TOnuCpuCar : public ConfigPage {
    Q_OBJECT
public:
    TOnuCpuCar(Session& session, std::int32_t itemType, QWidget* parent);

    QLineEdit* cpuEdit = nullptr; // accepts digits only from the first reply on

    void refreshBtnClick() override;

protected:
    void handleReply(const ReadResult& result) override;
};

} // namespace onudesk
