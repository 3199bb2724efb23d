// SPDX-License-Identifier: MIT
#include "env/language_module.h"
#include "pages/lt/plain_pages.h"
#include "pages/lt/tenths.h"

namespace onudesk {

RecordPage onuLTAttribute() {
    const ValueMap modes({{messageText(11177), "1"}, {messageText(3173), "2"}});
    return {
        .rules = {.helpKeyId = 6270, .config = {}, .start = StartState::ready, .minimumValues = 4},
        .fields = {{.control = "modeComb",
                    .labelId = 81101,
                    .kind = ControlKind::combo,
                    .position = 0,
                    .codes = modes.keepingUnknown()},
                   {.control = "gateEdit", .labelId = 81102, .position = 1},
                   {.control = "inEdit", .labelId = 81103, .position = 2, .show = {.unit = "V"}},
                   {.control = "workEdit",
                    .labelId = 81104,
                    .position = 3,
                    .show = {voltsOfTenths, "V"}}}};
}

} // namespace onudesk
