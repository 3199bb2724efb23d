// SPDX-License-Identifier: MIT
//
// The fields that most pages are made of, one line each.
#pragma once

#include "pages/framework/fields.h"

#include <cstddef>

namespace onudesk {

// A choice that is always written.
[[nodiscard]] Field comboField(const char* control, int labelId, std::size_t position,
                               const char* object, const ValueMap& codes);

// A number that is always written; `digits` is how many can be typed, -1 for any number.
[[nodiscard]] Field numberField(const char* control, int labelId, int digits, std::size_t position,
                                const char* object, FieldCheck check);

} // namespace onudesk
