// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

namespace onudesk {

// Vendor, software, hardware and chip of the ONU; only reads.
class TOnuVersionInfo : public ConfigPage {
    Q_OBJECT
public:
    TOnuVersionInfo(Session& session, std::int32_t itemType, QWidget* parent);
};

} // namespace onudesk
