// SPDX-License-Identifier: MIT
#include "pages/lt/onu_lt_pon_set.h"

namespace onudesk {

namespace {

constexpr const char* kNoChoice = "0";

} // namespace

TOnuLTPonSet::TOnuLTPonSet(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = 6267,
                  .group = "group1",
                  .onDecoded = OnDecoded::followsFlag,
                  .resultText = "group1",
                  .minimumValues = 1},
                 parent) {
    buildForm({{.control = "ponComb",
                .labelId = 81701,
                .kind = ControlKind::combo,
                .object = {"vgonuworkponset"},
                .codes = ValueMap::numbers(1, 2),
                .written = Written::always}});
    ponComb = fields().control<QComboBox>("ponComb");
    start();
}

void TOnuLTPonSet::showReply(const ReadResult& result) {
    const bool isChoice = result.values.front() != kNoChoice;
    ponComb->setEnabled(isChoice);
    if (isChoice) {
        selectOrClear(*ponComb, result.values.front());
    }
}

} // namespace onudesk
