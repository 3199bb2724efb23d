// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/list_page.h"

namespace onudesk {

// The side of each Ethernet port in double tagging. Rows can be edited while QinQ is on.
class TOnuPortQinQ : public ListPage {
    Q_OBJECT
public:
    TOnuPortQinQ(Session& session, std::int32_t itemType, QWidget* parent);

protected:
    bool mayOpen() override;

private:
    bool isQinQOn_ = false;
};

} // namespace onudesk
