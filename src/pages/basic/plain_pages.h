// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/plain_page.h"

namespace onudesk {

// Vendor, software, hardware and chip of the ONU.
[[nodiscard]] RecordPage onuVersionInfo();

} // namespace onudesk
