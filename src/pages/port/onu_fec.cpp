// SPDX-License-Identifier: MIT
#include "pages/port/onu_fec.h"

#include "env/language_module.h"

namespace onudesk {

namespace {

constexpr int kUnknown = 11239;

} // namespace

TOnuFEC::TOnuFEC(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = 6221,
                  .onDecoded = OnDecoded::followsFlag,
                  .resultText = "maintable",
                  .minimumValues = 2},
                 parent),
      support_({{messageText(kUnknown), "1"},
                {messageText(message::yes), "2"},
                {messageText(message::no), "3"}}),
      modes_({{messageText(message::on), "2"}, {messageText(message::off), "3"}}) {
    buildForm({{.control = "supportComb",
                .labelId = 61601,
                .kind = ControlKind::combo,
                .position = 0,
                .codes = {&support_}},
               {.control = "modeComb",
                .labelId = 61602,
                .kind = ControlKind::combo,
                .position = 1,
                .object = {"onuFecMode"},
                .codes = {&modes_},
                .written = Written::always}});
    start();
}

} // namespace onudesk
