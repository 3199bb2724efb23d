// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/plain_page.h"

namespace onudesk {

// How the ONU decides which multicast it lets through, and whether it stops a group as soon as a
// receiver leaves.
[[nodiscard]] RecordPage onuMulticastBase();
// Whether each Ethernet port tags the multicast reports that it passes on.
[[nodiscard]] TablePage onuMultiReport();

} // namespace onudesk
