// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/plain_page.h"

namespace onudesk {

// What a line terminal is doing.
[[nodiscard]] RecordPage onuLTAttribute();
// The management address of a line terminal.
[[nodiscard]] RecordPage onuLTIPConfig();
// The voice lines of a line terminal: interface, state and description, which can be changed.
[[nodiscard]] TablePage onuLTInfaStatus();
// The gains of the voice lines of a line terminal.
[[nodiscard]] TablePage onuLTGain();

} // namespace onudesk
