// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/list_page.h"

namespace onudesk {

// The COS that each COS is rewritten to. Rows can be edited while the ONU remaps at all.
class TOnuRepeatCOSQueue : public ListPage {
    Q_OBJECT
public:
    TOnuRepeatCOSQueue(Session& session, std::int32_t itemType, QWidget* parent);

protected:
    bool mayOpen() override;

private:
    bool remapEnabled_ = false;
};

} // namespace onudesk
