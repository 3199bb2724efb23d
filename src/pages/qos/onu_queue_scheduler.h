// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

#include <array>

#include <QLineEdit>

namespace onudesk {

// How the ONU serves its four egress queues, and whether it remaps COS values. Weights count in one
// of the modes only.
class TOnuQueueScheduler : public ConfigPage {
    Q_OBJECT
public:
    TOnuQueueScheduler(Session& session, std::int32_t itemType, QWidget* parent);

    std::array<QLineEdit*, 4> queueEdits{}; // queue0Edit to queue3Edit

protected:
    void bindWrite(WriteRequest& request) override;
    void showReply(const ReadResult& result) override;
};

} // namespace onudesk
