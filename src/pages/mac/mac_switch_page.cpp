// SPDX-License-Identifier: MIT
#include "pages/mac/mac_switch_page.h"

#include "env/language_module.h"

#include <utility>

namespace onudesk {

namespace {

constexpr int kDisable = 62003;
constexpr int kEnable = 62004;

constexpr const char* kOff = "0"; // the value, too
constexpr const char* kOn = "1";

} // namespace

MacSwitchPage::MacSwitchPage(Session& session, std::int32_t itemType, MacSwitchRules rules,
                             QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = rules.helpKeyId,
                  .onDecoded = OnDecoded::followsFlag,
                  .resultText = "maintable",
                  .minimumValues = 1},
                 parent),
      switches_({{messageText(kDisable), kOff}, {messageText(kEnable), kOn}}) {
    const std::string control = rules.value.control;
    rules.value.position = 0;
    rules.value.written = Written::always; // it holds 0 while it is disabled
    buildForm({{.control = "enableComb",
                .labelId = rules.enableId,
                .kind = ControlKind::combo,
                .codes = {&switches_}},
               std::move(rules.value)});
    enableComb = fields().control<QComboBox>("enableComb");
    valueEdit_ = fields().control<QLineEdit>(control);
    connect(enableComb, &QComboBox::activated, this, &MacSwitchPage::enableCombChange);
    start();
}

void MacSwitchPage::fillPage(const ReadResult& result) {
    received_ = result.values.front();
    const bool on = received_ != kOff;
    valueEdit_->setEnabled(on);
    selectOrClear(*enableComb, on ? kOn : kOff);
}

void MacSwitchPage::enableCombChange() {
    const bool on = selectedCode(*enableComb) == kOn;
    valueEdit_->setEnabled(on);
    setControlText(*valueEdit_, on ? received_ : kOff);
}

} // namespace onudesk
