// SPDX-License-Identifier: MIT
#pragma once

#include "desk/inventory.h"

#include <string>

#include <QTableWidget>

namespace onudesk::desk {

// The ONUs, one a row, sorted by the column the operator chose; digits sort by their number, so
// 1.2.10 follows 1.2.9.
class OnuTable : public QTableWidget {
public:
    explicit OnuTable(QWidget* parent);

    // Shows these, and selects the row of that name, else the first one.
    void fill(const Inventory::Onus& onus, const std::string& selected);
    // Empty when no row is selected.
    [[nodiscard]] std::string selectedName() const;
};

} // namespace onudesk::desk
