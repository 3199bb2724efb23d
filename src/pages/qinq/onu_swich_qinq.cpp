// SPDX-License-Identifier: MIT
#include "pages/qinq/onu_swich_qinq.h"

#include "env/language_module.h"

namespace onudesk {

namespace {

constexpr int kQinQIsOff = 3045;
constexpr const char* kOff = "0";

} // namespace

TOnuSwichQinQ::TOnuSwichQinQ(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType, {.helpKeyId = 6215, .minimumValues = 2}, parent),
      modes_({{messageText(message::off), kOff}, {"static-QinQ", "1"}, {"flexible-QinQ", "2"}}) {
    buildForm({{.control = "modeComb",
                .labelId = 64501,
                .kind = ControlKind::combo,
                .position = 0,
                .object = {"onuGlobalQinQMode"},
                .codes = {&modes_},
                .written = Written::always,
                .tick = {.button = "modeRaBtn", .radio = true}},
               {.control = "outerTpidEdt",
                .labelId = 64502,
                .typing = {.bytes = 5, .digitsOnly = true},
                .position = 1,
                .object = {"onuGlobalQinQOuterTpid"},
                .check = numberIn(1501, 65535),
                .written = Written::always,
                .tick = {.button = "vlanRaBtn", .radio = true}}});
    modeRaBtn = fields().control<QRadioButton>("modeRaBtn");
    modeComb = fields().control<QComboBox>("modeComb");
    vlanRaBtn = fields().control<QRadioButton>("vlanRaBtn");
    outerTpidEdt = fields().control<QLineEdit>("outerTpidEdt");
    outerTpidEdt->setEnabled(false);
    connect(modeRaBtn, &QRadioButton::toggled, modeComb, &QWidget::setEnabled);
    connect(vlanRaBtn, &QRadioButton::toggled, outerTpidEdt, &QWidget::setEnabled);
    start();
}

bool TOnuSwichQinQ::mayWrite() {
    if (vlanRaBtn->isChecked() && selectedCode(*modeComb) == kOff) {
        refuse({.textId = kQinQIsOff, .icon = platform::PromptIcon::information}, outerTpidEdt);
        return false;
    }
    return ConfigPage::mayWrite();
}

} // namespace onudesk
