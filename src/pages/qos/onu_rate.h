// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

namespace onudesk {

// How much multicast, broadcast and unknown unicast traffic the ONU lets through in each direction.
// One rate at a time is written.
class TOnuRate : public ConfigPage {
    Q_OBJECT
public:
    TOnuRate(Session& session, std::int32_t itemType, QWidget* parent);
};

} // namespace onudesk
