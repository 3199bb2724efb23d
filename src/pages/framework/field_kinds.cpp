// SPDX-License-Identifier: MIT
#include "pages/framework/field_kinds.h"

#include <utility>

namespace onudesk {

Field comboField(const char* control, int labelId, std::size_t position, const char* object,
                 const ValueMap& codes) {
    return {.control = control,
            .labelId = labelId,
            .kind = ControlKind::combo,
            .position = position,
            .object = {object},
            .codes = codes,
            .written = Written::always};
}

Field numberField(const char* control, int labelId, int digits, std::size_t position,
                  const char* object, FieldCheck check) {
    return {.control = control,
            .labelId = labelId,
            .typing = {.bytes = digits, .digitsOnly = true},
            .position = position,
            .object = {object},
            .check = std::move(check),
            .written = Written::always};
}

} // namespace onudesk
