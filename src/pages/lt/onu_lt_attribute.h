// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

namespace onudesk {

// What a line terminal is doing; nothing to write.
class TOnuLTAttribute : public ConfigPage {
    Q_OBJECT
public:
    TOnuLTAttribute(Session& session, std::int32_t itemType, QWidget* parent);

private:
    const ValueMap modes_;
};

} // namespace onudesk
