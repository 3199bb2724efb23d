// SPDX-License-Identifier: MIT
#pragma once

#include "pages/mac/mac_switch_page.h"

namespace onudesk {

// How many MAC addresses the ONU learns.
class TOnuMacLimit : public MacSwitchPage {
    Q_OBJECT
public:
    TOnuMacLimit(Session& session, std::int32_t itemType, QWidget* parent);
};

} // namespace onudesk
