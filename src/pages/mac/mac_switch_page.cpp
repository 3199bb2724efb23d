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

MacSwitchRules onuMacLimit() {
    return {.helpKeyId = 6224,
            .enableId = 62001,
            .value = {.control = "countEdit",
                      .labelId = 62002,
                      .typing = {3, true},
                      .object = {"onuMacMaxNum"},
                      .check = numberIn(1, 1000)}};
}

MacSwitchRules onuMacAge() {
    return {.helpKeyId = 6225,
            .enableId = 64301,
            .value = {.control = "timeEdit",
                      .labelId = 64302,
                      .typing = {.digitsOnly = true},
                      .object = {"onuMacAgeTime"},
                      .check = numberIn(1, 1048575)}};
}

MacSwitchPage::MacSwitchPage(Session& session, std::int32_t itemType, MacSwitchRules rules,
                             QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = rules.helpKeyId,
                  .onDecoded = OnDecoded::followsFlag,
                  .resultText = "maintable",
                  .minimumValues = 1},
                 parent) {
    const std::string control = rules.value.control;
    rules.value.position = 0;
    rules.value.written = Written::always; // it holds 0 while it is disabled
    rules.value.enabledBy = choiceIn("enableComb", {kOn});
    buildForm({{.control = "enableComb",
                .labelId = rules.enableId,
                .kind = ControlKind::combo,
                .codes = ValueMap({{messageText(kDisable), kOff}, {messageText(kEnable), kOn}})},
               std::move(rules.value)});
    enableComb_ = fields().control<QComboBox>("enableComb");
    valueEdit_ = fields().control<QLineEdit>(control);
    connect(enableComb_, &QComboBox::activated, this, &MacSwitchPage::enableCombChange);
    start();
}

void MacSwitchPage::showReply(const ReadResult& result) {
    received_ = result.values.front();
    selectOrClear(*enableComb_, received_ == kOff ? kOff : kOn);
    ConfigPage::showReply(result);
}

void MacSwitchPage::enableCombChange() {
    setControlText(*valueEdit_, selectedCode(*enableComb_) == kOn ? received_ : kOff);
}

} // namespace onudesk
