// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/plain_page.h"

namespace onudesk {

// How the ONU's VLANs are configured.
[[nodiscard]] RecordPage onuCTCMode();
// VLAN tags of the ONU's own management traffic.
[[nodiscard]] RecordPage onuIPVlan();
// Whether each Ethernet port tags, untags or keeps what it sends.
[[nodiscard]] TablePage onuPortModeSetting();

} // namespace onudesk
