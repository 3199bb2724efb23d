// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/plain_page.h"

namespace onudesk {

// What the voice module is.
[[nodiscard]] RecordPage onuVoipIAD();

} // namespace onudesk
