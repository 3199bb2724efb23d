// SPDX-License-Identifier: MIT
#include "env/language_module.h"
#include "pages/voip/plain_pages.h"

namespace onudesk {

RecordPage onuVoipIAD() {
    const ValueMap protocols(
        {{"H.248", "0"}, {"SIP", "1"}, {messageText(message::unsupported), "255"}});
    return {.rules = {.helpKeyId = 6261,
                      .config = {},
                      .start = StartState::ready,
                      .refreshEmpties = true,
                      .minimumValues = 5},
            .fields =
                {{.control = "macEdit", .labelId = 82201, .position = 0, .show = {colonSeparated}},
                 {.control = "typeEdit",
                  .labelId = 82202,
                  .position = 1,
                  .codes = protocols.keepingUnknown()},
                 {.control = "softEdt", .labelId = 82203, .position = 2},
                 {.control = "timeEdit", .labelId = 82204, .position = 3},
                 {.control = "portEdit", .labelId = 82205, .position = 4}},
            .width = 440}; // for a date beside the longest label
}

} // namespace onudesk
