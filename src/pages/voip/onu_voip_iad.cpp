// SPDX-License-Identifier: MIT
#include "pages/voip/onu_voip_iad.h"

#include "env/language_module.h"

namespace onudesk {

namespace {

constexpr int kFormWidth = 440; // for a date beside the longest label

} // namespace

TOnuVoipIAD::TOnuVoipIAD(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = 6261,
                  .config = {},
                  .start = StartState::ready,
                  .refreshEmpties = true,
                  .minimumValues = 5,
                  .onWriteReply = OnWriteReply::ignored},
                 parent),
      protocols_({{"H.248", "0"}, {"SIP", "1"}, {messageText(message::unsupported), "255"}}) {
    QWidget* form =
        buildForm({{.control = "macEdit", .labelId = 82201, .position = 0, .show = colonSeparated},
                   {.control = "typeEdit",
                    .labelId = 82202,
                    .position = 1,
                    .codes = {&protocols_, UnknownCode::keeps}},
                   {.control = "softEdt", .labelId = 82203, .position = 2},
                   {.control = "timeEdit", .labelId = 82204, .position = 3},
                   {.control = "portEdit", .labelId = 82205, .position = 4}});
    form->setMinimumWidth(kFormWidth);
    start();
}

} // namespace onudesk
