// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

#include <QComboBox>

namespace onudesk {

// Restarts the ONU after a question; only writes.
class TOnuReboot : public ConfigPage {
    Q_OBJECT
public:
    TOnuReboot(Session& session, std::int32_t itemType, QWidget* parent);

    QComboBox* restartWayComb = nullptr;

    void configBtnClick() override;

protected:
    bool mayWrite() override;
    void bindWrite(WriteRequest& request) override;
    // It never reads.
    void handleWriteReply(void* reply) override;

private:
    [[nodiscard]] bool resets() const { return restartWayComb->currentIndex() == 0; }
};

} // namespace onudesk
