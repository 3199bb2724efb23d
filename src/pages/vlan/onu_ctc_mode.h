// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

namespace onudesk {

// How the ONU's VLANs are configured.
class TOnuCTCMode : public ConfigPage {
    Q_OBJECT
public:
    TOnuCTCMode(Session& session, std::int32_t itemType, QWidget* parent);

private:
    const ValueMap modes_{{{"CTC", "1"}, {"802.1Q", "2"}}};
};

} // namespace onudesk
