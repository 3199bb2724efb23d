// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

namespace onudesk {

// Forward error correction of the optical link.
class TOnuFEC : public ConfigPage {
    Q_OBJECT
public:
    TOnuFEC(Session& session, std::int32_t itemType, QWidget* parent);

private:
    const ValueMap support_;
    const ValueMap modes_;
};

} // namespace onudesk
