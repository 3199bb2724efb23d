// SPDX-License-Identifier: MIT
#include "pages/qos/cos_of_row.h"

#include "pages/framework/checks.h"

#include <cstdint>

namespace onudesk {

std::string cosOfRow(const std::string& rowIndex) {
    const auto number = wholeNumber(rowIndex);
    return number ? std::to_string(std::int64_t{*number} - 1) : std::string();
}

} // namespace onudesk
