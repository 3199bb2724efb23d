// SPDX-License-Identifier: MIT
//
// What the lists of COS values share: COS values count from 0, the rows on the agent from 1.
#pragma once

#include <string>

namespace onudesk {

// The COS of the row with that number; empty when that is no number.
[[nodiscard]] std::string cosOfRow(const std::string& rowIndex);

} // namespace onudesk
