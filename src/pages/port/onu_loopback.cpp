// SPDX-License-Identifier: MIT
#include "env/language_module.h"
#include "pages/framework/field_kinds.h"
#include "pages/port/plain_pages.h"

namespace onudesk {

RecordPage onuLoopback() {
    const ValueMap switches({{messageText(message::off), "0"}, {messageText(message::on), "1"}});
    return {.rules = {.helpKeyId = 6255,
                      .onDecoded = OnDecoded::followsFlag,
                      .onFailedDecode = OnFailedDecode::disables,
                      .resultText = "maintable",
                      .minimumValues = 1},
            .fields = {
                comboField("enableComb", 77201, 0, "onuloopbackoam", switches.keepingUnknown())}};
}

} // namespace onudesk
