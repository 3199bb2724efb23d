// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/plain_page.h"

namespace onudesk {

// The ONU's own management address. Two items show it, each with objects of its own.
[[nodiscard]] RecordPage onuIPConfig();

} // namespace onudesk
