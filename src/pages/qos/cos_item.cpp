// SPDX-License-Identifier: MIT
#include "pages/qos/cos_item.h"

#include <cstdint>
#include <utility>

namespace onudesk {

std::string cosOfRow(const std::string& rowIndex) {
    const auto number = wholeNumber(rowIndex);
    return number ? std::to_string(std::int64_t{*number} - 1) : std::string();
}

CosItem::CosItem(ListPage& page, ItemRules rules, int row)
    : ItemDialog(page, std::move(rules), row),
      instance_(page.session().OnuIndexText + "." + page.mainTable->rowIndex(row)) {}

} // namespace onudesk
