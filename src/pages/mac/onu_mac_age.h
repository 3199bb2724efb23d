// SPDX-License-Identifier: MIT
#pragma once

#include "pages/mac/mac_switch_page.h"

namespace onudesk {

// How long the ONU keeps a MAC address that it no longer sees.
class TOnuMacAge : public MacSwitchPage {
    Q_OBJECT
public:
    TOnuMacAge(Session& session, std::int32_t itemType, QWidget* parent);
};

} // namespace onudesk
