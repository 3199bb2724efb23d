// SPDX-License-Identifier: MIT
#include "pages/vlan/onu_ctc_mode.h"

namespace onudesk {

TOnuCTCMode::TOnuCTCMode(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = 6253,
                  .group = "group1",
                  .onDecoded = OnDecoded::followsFlag,
                  .onFailedDecode = OnFailedDecode::disables,
                  .minimumValues = 1},
                 parent) {
    buildForm({{.control = "modeComb",
                .labelId = 76701,
                .kind = ControlKind::combo,
                .position = 0,
                .object = {"onuStatusVlanCfgMode"},
                .codes = {&modes_, UnknownCode::keeps},
                .written = Written::always}});
    start();
}

} // namespace onudesk
