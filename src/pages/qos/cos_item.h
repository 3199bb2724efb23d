// SPDX-License-Identifier: MIT
//
// What the lists of COS values share: COS values count from 0, the rows on the agent from 1.
#pragma once

#include "pages/framework/item_dialog.h"

#include <string>

namespace onudesk {

// The COS of the row with that number; empty when that is no number.
[[nodiscard]] std::string cosOfRow(const std::string& rowIndex);

// Shows the COS of a row of the page and writes to the row, which is the COS plus one.
class CosItem : public ItemDialog {
    Q_OBJECT
public:
    CosItem(ListPage& page, ItemRules rules, int row);

protected:
    [[nodiscard]] std::string instance() const override { return instance_; }

private:
    const std::string instance_;
};

} // namespace onudesk
