// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

namespace onudesk {

// Whether the ONU raises alarms of its optical module.
class TOnuAlarm : public ConfigPage {
    Q_OBJECT
public:
    TOnuAlarm(Session& session, std::int32_t itemType, QWidget* parent);

private:
    const ValueMap switches_;
};

} // namespace onudesk
