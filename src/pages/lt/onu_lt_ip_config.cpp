// SPDX-License-Identifier: MIT
#include "pages/lt/onu_lt_ip_config.h"

namespace onudesk {

namespace {

Field address(const char* control, int labelId, std::size_t position, const char* object) {
    return {.control = control,
            .labelId = labelId,
            .position = position,
            .object = {object},
            .check = dottedQuad(),
            .written = Written::always};
}

} // namespace

TOnuLTIPConfig::TOnuLTIPConfig(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = 6266,
                  .group = "group1",
                  .refreshEmpties = true,
                  .onDecoded = OnDecoded::followsFlag,
                  .onFailedDecode = OnFailedDecode::disables,
                  .minimumValues = 4},
                 parent) {
    buildForm(
        {address("ipEdt", 81201, 0, "vgonuipAddress"), address("maskEdt", 81202, 1, "vgonuipMask"),
         address("getwayEdt", 81203, 2, "vgonuipgateway"), constant({"vgonuipRowStatus"}, "4")});
    start();
}

} // namespace onudesk
