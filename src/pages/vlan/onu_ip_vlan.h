// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

namespace onudesk {

// VLAN tags of the ONU's own management traffic.
class TOnuIPVlan : public ConfigPage {
    Q_OBJECT
public:
    TOnuIPVlan(Session& session, std::int32_t itemType, QWidget* parent);
};

} // namespace onudesk
