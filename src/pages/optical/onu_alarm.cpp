// SPDX-License-Identifier: MIT
#include "pages/optical/onu_alarm.h"

#include "env/language_module.h"

namespace onudesk {

TOnuAlarm::TOnuAlarm(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = 6258,
                  .onDecoded = OnDecoded::followsFlag,
                  .onFailedDecode = OnFailedDecode::disables},
                 parent),
      switches_({{messageText(message::off), "1"}, {messageText(message::on), "2"}}) {
    buildForm({{.control = "enableComb",
                .labelId = 66501,
                .kind = ControlKind::combo,
                .position = 0,
                .object = {"onuOpmAlarmSwitch"},
                .codes = {&switches_, UnknownCode::keeps},
                .written = Written::always}});
    start();
}

} // namespace onudesk
