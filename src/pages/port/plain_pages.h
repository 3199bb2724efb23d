// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/plain_page.h"

namespace onudesk {

// Forward error correction of the optical link.
[[nodiscard]] RecordPage onuFEC();
// The loopback of operation, administration and maintenance (IEEE 802.3, clause 57): the ONU sends
// back what it receives.
[[nodiscard]] RecordPage onuLoopback();

} // namespace onudesk
