// SPDX-License-Identifier: MIT
#include "env/language_module.h"
#include "pages/framework/field_kinds.h"
#include "pages/multicast/plain_pages.h"

namespace onudesk {

namespace {

constexpr int kControllable = 3116;

} // namespace

RecordPage onuMulticastBase() {
    return {.rules = {.helpKeyId = 6227, .resultText = "maintable", .minimumValues = 2},
            .fields = {comboField("modeComb", 62401, 0, "onuMultiMode",
                                  ValueMap({{"IGMP", "0"}, {messageText(kControllable), "1"}})),
                       comboField("fastleaveComb", 62402, 1, "onuMultiFastLeave",
                                  ValueMap({{messageText(message::off), "1"},
                                            {messageText(message::on), "2"}}))}};
}

} // namespace onudesk
