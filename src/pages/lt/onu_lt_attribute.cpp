// SPDX-License-Identifier: MIT
#include "pages/lt/onu_lt_attribute.h"

#include "env/language_module.h"
#include "pages/lt/tenths.h"

namespace onudesk {

TOnuLTAttribute::TOnuLTAttribute(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = 6270,
                  .config = {},
                  .start = StartState::ready,
                  .minimumValues = 4,
                  .onWriteReply = OnWriteReply::ignored},
                 parent),
      modes_({{messageText(11177), "1"}, {messageText(3173), "2"}}) {
    QWidget* form = buildForm(
        {{.control = "modeComb",
          .labelId = 81101,
          .kind = ControlKind::combo,
          .position = 0,
          .codes = {&modes_, UnknownCode::keeps}},
         {.control = "gateEdit", .labelId = 81102, .position = 1},
         {.control = "inEdit", .labelId = 81103, .position = 2},
         {.control = "workEdit", .labelId = 81104, .position = 3, .show = voltsOfTenths}});
    addUnit(*form, "inEdit", "V");
    addUnit(*form, "workEdit", "V");
    start();
}

} // namespace onudesk
