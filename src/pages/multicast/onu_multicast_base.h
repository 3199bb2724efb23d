// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

namespace onudesk {

// How the ONU decides which multicast it lets through, and whether it stops a group as soon as a
// receiver leaves.
class TOnuMulticastBase : public ConfigPage {
    Q_OBJECT
public:
    TOnuMulticastBase(Session& session, std::int32_t itemType, QWidget* parent);

private:
    const ValueMap modes_;
    const ValueMap fastLeave_;
};

} // namespace onudesk
