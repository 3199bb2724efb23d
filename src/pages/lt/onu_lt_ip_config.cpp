// SPDX-License-Identifier: MIT
#include "pages/lt/onu_lt_ip_config.h"

namespace onudesk {

TOnuLTIPConfig::TOnuLTIPConfig(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = 6266,
                  .group = "group1",
                  .refreshEmpties = true,
                  .onDecoded = OnDecoded::followsFlag,
                  .onFailedDecode = OnFailedDecode::disables,
                  .minimumValues = 4},
                 parent) {
    buildForm({addressField("ipEdt", 81201, 0, "vgonuipAddress"),
               addressField("maskEdt", 81202, 1, "vgonuipMask"),
               addressField("getwayEdt", 81203, 2, "vgonuipgateway"),
               constant({"vgonuipRowStatus"}, "4")});
    start();
}

} // namespace onudesk
