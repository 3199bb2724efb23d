// SPDX-License-Identifier: MIT
#include "pages/management/onu_ip_config.h"

namespace onudesk {

TOnuIPConfig::TOnuIPConfig(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = 6250,
                  .group = "group1",
                  .refreshEmpties = true,
                  .onDecoded = OnDecoded::followsFlag,
                  .onFailedDecode = OnFailedDecode::disables,
                  .minimumValues = 1},
                 parent) {
    // Value 0 is the address mode, of which the page offers no choice: it always writes 2.
    buildForm({
        {.control = "ipEdt",
         .labelId = 50001,
         .position = 1,
         .object = {"onuIPAddress"},
         .check = dottedQuad(),
         .written = Written::always},
        {.control = "maskEdt",
         .labelId = 50002,
         .position = 2,
         .object = {"onuIPNetMask"},
         .check = dottedQuad(),
         .written = Written::always},
        {.control = "getwayEdt",
         .labelId = 50003,
         .position = 3,
         .object = {"onuIPGateway"},
         .check = dottedQuad(),
         .written = Written::always},
        constant({"onuIPStatus"}, "2"),
        constant({"onuIPRowStatus"}, "4"),
    });
    start();
}

} // namespace onudesk
