// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

namespace onudesk {

// What the voice module is; only reads.
class TOnuVoipIAD : public ConfigPage {
    Q_OBJECT
public:
    TOnuVoipIAD(Session& session, std::int32_t itemType, QWidget* parent);

private:
    const ValueMap protocols_;
};

} // namespace onudesk
