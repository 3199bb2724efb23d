// SPDX-License-Identifier: MIT
#pragma once

#include "pages/qinq/svlan_page.h"

namespace onudesk {

// The VLAN ranges of a port that get an outer VLAN.
class TOnuSVlanInsert : public SVlanPage {
    Q_OBJECT
public:
    TOnuSVlanInsert(Session& session, std::int32_t itemType, QWidget* parent);

protected:
    void openRow(int row) override;
};

class TOnuSVlanInsertItem : public SVlanItem {
    Q_OBJECT
public:
    using SVlanItem::SVlanItem;
};

} // namespace onudesk
