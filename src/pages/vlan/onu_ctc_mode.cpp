// SPDX-License-Identifier: MIT
#include "pages/framework/field_kinds.h"
#include "pages/vlan/plain_pages.h"

namespace onudesk {

RecordPage onuCTCMode() {
    const ValueMap modes({{"CTC", "1"}, {"802.1Q", "2"}});
    return {.rules = {.helpKeyId = 6253,
                      .group = "group1",
                      .onDecoded = OnDecoded::followsFlag,
                      .onFailedDecode = OnFailedDecode::disables,
                      .minimumValues = 1},
            .fields = {
                comboField("modeComb", 76701, 0, "onuStatusVlanCfgMode", modes.keepingUnknown())}};
}

} // namespace onudesk
