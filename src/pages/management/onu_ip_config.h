// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

namespace onudesk {

// The ONU's own management address. Two items show it, each with objects of its own.
class TOnuIPConfig : public ConfigPage {
    Q_OBJECT
public:
    TOnuIPConfig(Session& session, std::int32_t itemType, QWidget* parent);
};

} // namespace onudesk
