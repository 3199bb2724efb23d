// SPDX-License-Identifier: MIT
#include "pages/lt/plain_pages.h"

namespace onudesk {

RecordPage onuLTIPConfig() {
    return {.rules = {.helpKeyId = 6266,
                      .group = "group1",
                      .refreshEmpties = true,
                      .onDecoded = OnDecoded::followsFlag,
                      .onFailedDecode = OnFailedDecode::disables,
                      .minimumValues = 4},
            .fields = {addressField("ipEdt", 81201, 0, "vgonuipAddress"),
                       addressField("maskEdt", 81202, 1, "vgonuipMask"),
                       addressField("getwayEdt", 81203, 2, "vgonuipgateway"),
                       rowStatus({"vgonuipRowStatus"})}};
}

} // namespace onudesk
