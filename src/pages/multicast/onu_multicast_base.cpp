// SPDX-License-Identifier: MIT
#include "pages/multicast/onu_multicast_base.h"

#include "env/language_module.h"

namespace onudesk {

namespace {

constexpr int kControllable = 3116;

} // namespace

TOnuMulticastBase::TOnuMulticastBase(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = 6227, .resultText = "maintable", .minimumValues = 2}, parent),
      modes_({{"IGMP", "0"}, {messageText(kControllable), "1"}}),
      fastLeave_({{messageText(message::off), "1"}, {messageText(message::on), "2"}}) {
    buildForm({{.control = "modeComb",
                .labelId = 62401,
                .kind = ControlKind::combo,
                .position = 0,
                .object = {"onuMultiMode"},
                .codes = {&modes_},
                .written = Written::always},
               {.control = "fastleaveComb",
                .labelId = 62402,
                .kind = ControlKind::combo,
                .position = 1,
                .object = {"onuMultiFastLeave"},
                .codes = {&fastLeave_},
                .written = Written::always}});
    start();
}

} // namespace onudesk
