// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

namespace onudesk {

// The loopback of operation, administration and maintenance (IEEE 802.3, clause 57): the ONU sends
// back what it receives.
class TOnuLoopback : public ConfigPage {
    Q_OBJECT
public:
    TOnuLoopback(Session& session, std::int32_t itemType, QWidget* parent);

private:
    const ValueMap switches_;
};

} // namespace onudesk
