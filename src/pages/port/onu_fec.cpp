// SPDX-License-Identifier: MIT
#include "env/language_module.h"
#include "pages/framework/field_kinds.h"
#include "pages/port/plain_pages.h"

namespace onudesk {

namespace {

constexpr int kUnknown = 11239;

} // namespace

RecordPage onuFEC() {
    const ValueMap support({{messageText(kUnknown), "1"},
                            {messageText(message::yes), "2"},
                            {messageText(message::no), "3"}});
    const ValueMap modes({{messageText(message::on), "2"}, {messageText(message::off), "3"}});
    return {.rules = {.helpKeyId = 6221,
                      .onDecoded = OnDecoded::followsFlag,
                      .resultText = "maintable",
                      .minimumValues = 2},
            .fields = {{.control = "supportComb",
                        .labelId = 61601,
                        .kind = ControlKind::combo,
                        .position = 0,
                        .codes = support},
                       comboField("modeComb", 61602, 1, "onuFecMode", modes)}};
}

} // namespace onudesk
