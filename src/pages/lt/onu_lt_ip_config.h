// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

namespace onudesk {

// The management address of a line terminal.
class TOnuLTIPConfig : public ConfigPage {
    Q_OBJECT
public:
    TOnuLTIPConfig(Session& session, std::int32_t itemType, QWidget* parent);
};

} // namespace onudesk
