// SPDX-License-Identifier: MIT
#include "pages/port/onu_loopback.h"

#include "env/language_module.h"

namespace onudesk {

TOnuLoopback::TOnuLoopback(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = 6255,
                  .onDecoded = OnDecoded::followsFlag,
                  .onFailedDecode = OnFailedDecode::disables,
                  .resultText = "maintable",
                  .minimumValues = 1},
                 parent),
      switches_({{messageText(message::off), "0"}, {messageText(message::on), "1"}}) {
    buildForm({{.control = "enableComb",
                .labelId = 77201,
                .kind = ControlKind::combo,
                .position = 0,
                .object = {"onuloopbackoam"},
                .codes = {&switches_, UnknownCode::keeps},
                .written = Written::always}});
    start();
}

} // namespace onudesk
