// SPDX-License-Identifier: MIT
#include "pages/management/plain_pages.h"

namespace onudesk {

RecordPage onuIPConfig() {
    // Value 0 is the address mode, of which the page offers no choice: it always writes 2.
    return {.rules = {.helpKeyId = 6250,
                      .group = "group1",
                      .refreshEmpties = true,
                      .onDecoded = OnDecoded::followsFlag,
                      .onFailedDecode = OnFailedDecode::disables,
                      .minimumValues = 1},
            .fields = {addressField("ipEdt", 50001, 1, "onuIPAddress"),
                       addressField("maskEdt", 50002, 2, "onuIPNetMask"),
                       addressField("getwayEdt", 50003, 3, "onuIPGateway"),
                       constant({"onuIPStatus"}, "2"), rowStatus({"onuIPRowStatus"})}};
}

} // namespace onudesk
