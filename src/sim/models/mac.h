// SPDX-License-Identifier: MIT
#pragma once

#include "sim/models.h"

#include <optional>

namespace onudesk::sim {

// The list of filtered MAC addresses (619): status 4 at the ONU's row 1 adds an entry with the
// lowest free number, whatever that row holds; 6 removes the row.
[[nodiscard]] SetResult filterMac(const GroupWrite& write, Device& device);

} // namespace onudesk::sim
