// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

namespace onudesk {

// Encryption of what the ONU receives.
class TOnuEncription : public ConfigPage {
    Q_OBJECT
public:
    TOnuEncription(Session& session, std::int32_t itemType, QWidget* parent);

protected:
    [[nodiscard]] bool mayWrite() override;
    void showReply(const ReadResult& result) override;

private:
    std::int64_t state_ = 0; // of the last reply
};

} // namespace onudesk
