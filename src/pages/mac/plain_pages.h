// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/plain_page.h"

namespace onudesk {

// How many MAC addresses the ONU learns on each Ethernet port.
[[nodiscard]] TablePage onuMacMaxNum();

} // namespace onudesk
