// SPDX-License-Identifier: MIT
#include "pages/qinq/onu_swich_qinq.h"

#include "env/language_module.h"

#include <QRadioButton>

namespace onudesk {

namespace {

constexpr int kQinQIsOff = 3045;
constexpr const char* kOff = "0";

} // namespace

TOnuSwichQinQ::TOnuSwichQinQ(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType, {.helpKeyId = 6215, .minimumValues = 2}, parent) {
    const ValueMap modes(
        {{messageText(message::off), kOff}, {"static-QinQ", "1"}, {"flexible-QinQ", "2"}});
    buildForm({{.control = "modeComb",
                .labelId = 64501,
                .kind = ControlKind::combo,
                .position = 0,
                .object = {"onuGlobalQinQMode"},
                .codes = modes,
                .written = Written::always,
                .enabledBy = radioButton("modeRaBtn", true)},
               {.control = "outerTpidEdt",
                .labelId = 64502,
                .typing = {.bytes = 5, .digitsOnly = true},
                .position = 1,
                .object = {"onuGlobalQinQOuterTpid"},
                .check = numberIn(1501, 65535),
                .written = Written::always,
                .enabledBy = radioButton("vlanRaBtn", true)}});
    start();
}

bool TOnuSwichQinQ::mayWrite() {
    if (fields().control<QRadioButton>("vlanRaBtn")->isChecked() &&
        selectedCode(*fields().control<QComboBox>("modeComb")) == kOff) {
        refuse({.textId = kQinQIsOff, .icon = platform::PromptIcon::information},
               fields().control("outerTpidEdt"));
        return false;
    }
    return ConfigPage::mayWrite();
}

} // namespace onudesk
