// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/plain_page.h"

namespace onudesk {

// Whether the ONU raises alarms of its optical module.
[[nodiscard]] RecordPage onuAlarm();

} // namespace onudesk
