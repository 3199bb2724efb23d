// SPDX-License-Identifier: MIT
#include "env/language_module.h"
#include "pages/framework/field_kinds.h"
#include "pages/optical/plain_pages.h"

namespace onudesk {

RecordPage onuAlarm() {
    const ValueMap switches({{messageText(message::off), "1"}, {messageText(message::on), "2"}});
    return {.rules = {.helpKeyId = 6258,
                      .onDecoded = OnDecoded::followsFlag,
                      .onFailedDecode = OnFailedDecode::disables},
            .fields = {comboField("enableComb", 66501, 0, "onuOpmAlarmSwitch",
                                  switches.keepingUnknown())}};
}

} // namespace onudesk
