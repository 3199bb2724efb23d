// SPDX-License-Identifier: MIT
#include "mainform/snmp_panel.h"

#include "pages/framework/config_page.h"
#include "pages/framework/controls.h"
#include "pages/framework/form_grid.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include <QVBoxLayout>

namespace onudesk {

namespace {

constexpr int kNoUserName = 3013;
constexpr int kTooManyRetries = 3014;
constexpr int kForbiddenCharacter = 3015;
constexpr int kNoAuthPassword = 3016;
constexpr int kNoPrivPassword = 3017;
constexpr int kApplied = 3018;
constexpr int kApplyCaption = 21016;

constexpr std::int32_t kMostRetries = 9;
constexpr int kNameCharacters = 32;
constexpr int kTextBytes = 100;
constexpr const char* kLastBeforeGap = "edtUserName"; // the next one starts a row
constexpr std::string_view kForbidden = R"( */:<>?\|)";

// A setting is a number chosen from a list, a decimal number or a text.
struct Setting {
    Field field;
    std::int32_t SessionContext::*number = nullptr;
    std::string SessionContext::*text = nullptr;
    int firstChoice = 0; // selected as long as the context has no code of the list
    bool secret = false;
};

Setting list(const char* name, int labelId, std::vector<ValuePair> codes,
             std::int32_t SessionContext::*number, EnabledBy enabledBy = {}) {
    return {.field = {.control = name,
                      .labelId = labelId,
                      .kind = ControlKind::combo,
                      .codes = ValueMap::inOrder(std::move(codes)),
                      .written = Written::always,
                      .enabledBy = std::move(enabledBy)},
            .number = number};
}

Setting number(const char* name, int labelId, std::int32_t SessionContext::*number) {
    return {.field = {.control = name,
                      .labelId = labelId,
                      .typing = {.digitsOnly = true},
                      .written = Written::always},
            .number = number};
}

Setting text(const char* name, int labelId, std::string SessionContext::*text, EnabledBy enabledBy,
             int characters = kTextBytes) {
    return {.field = {.control = name,
                      .labelId = labelId,
                      .typing = {.bytes = kTextBytes, .characters = characters},
                      .written = Written::always,
                      .enabledBy = std::move(enabledBy)},
            .text = text};
}

Setting secret(Setting setting) {
    setting.secret = true;
    return setting;
}

const std::string& controlOf(const Setting& setting) {
    return setting.field.control;
}

// In the order of the grid, row by row. They are stored in this order, of which only the start can
// be seen: the port and the time-out, which may be no numbers, come after the version.
const std::vector<Setting>& settings() {
    using Context = SessionContext;
    static const std::vector<Setting> table = [] {
        const EnabledBy communities = choiceIn("cbSnmpVersion", {"0", "1"});
        const EnabledBy version3 = choiceIn("cbSnmpVersion", {"3"});
        const EnabledBy authentication = choiceIn("cbSecurityLevel", {"2", "3"});
        std::vector<Setting> all = {
            list("cbSnmpVersion", 21001, {{"version1", "0"}, {"version2c", "1"}, {"version3", "3"}},
                 &Context::snmpVersion),
            number("edtSnmpPort", 21002, &Context::snmpPort),
            number("edtSnmpTimeout", 21003, &Context::timeout),
            number("edtRetries", 21004, &Context::retries),
            secret(text("edtReadCommunity", 21005, &Context::readCommunity, communities,
                        kNameCharacters)),
            secret(text("edtWriteCommunity", 21006, &Context::writeCommunity, communities)),
            text("edtEngineID", 21007, &Context::v3EngineId, version3),
            text("edtContextName", 21008, &Context::v3ContextName, version3),
            list("cbSecurityModel", 21009, {{"any", "0"}, {"v1", "1"}, {"v2", "2"}, {"v3", "3"}},
                 &Context::securityModel),
            list("cbSecurityLevel", 21010,
                 {{"NoAuth,NoPriv", "1"}, {"Auth,NoPriv", "2"}, {"Auth,Priv", "3"}},
                 &Context::securityLevel, version3),
            text(kLastBeforeGap, 21011, &Context::v3UserName, version3, kNameCharacters),
            list("cbAuthProtocol", 21012, {{"NONE", "1"}, {"MD5", "2"}, {"SHA", "3"}},
                 &Context::authProtocol, authentication),
            list("cbPrivProtocol", 21013, {{"NONE", "1"}, {"DES", "2"}}, &Context::privProtocol,
                 choiceIn("cbSecurityLevel", {"3"})),
            secret(text("edtAuthPassword", 21014, &Context::authPassword,
                        choiceIn("cbAuthProtocol", {"2", "3"}), kNameCharacters)),
            secret(text("edtPrivPassword", 21015, &Context::privPassword,
                        choiceIn("cbPrivProtocol", {"2"}), kNameCharacters))};
        std::ranges::find(all, "cbSecurityModel", controlOf)->firstChoice = 3;
        return all;
    }();
    return table;
}

void hideTyped(QLineEdit& edit) {
    edit.setEchoMode(QLineEdit::Password);
    edit.setStyleSheet(QStringLiteral("lineedit-password-character: 42")); // "*"
}

// The decimal number in the edit; nothing after telling the operator that there is none.
std::optional<std::int32_t> numberIn(QLineEdit& edit) {
    const std::string text = stateOf(edit).text;
    const auto number = wholeNumber(text);
    if (!number) {
        refuseNotANumber(text, 0);
        edit.setFocus();
    }
    return number;
}

bool isForbidden(char c) {
    return static_cast<unsigned char>(c) >= 128 || kForbidden.find(c) != std::string_view::npos;
}

// A disabled edit passes.
bool checkName(QLineEdit& edit, int emptyId) {
    const FieldState state = stateOf(edit);
    if (!state.enabled) {
        return true;
    }
    if (state.text.empty()) {
        refuse({.textId = emptyId, .icon = platform::PromptIcon::none}, &edit, 0);
        return false;
    }
    if (std::ranges::any_of(state.text, isForbidden)) {
        refuse({.textId = kForbiddenCharacter}, &edit, 0);
        return false;
    }
    return true;
}

} // namespace

SnmpPanel::SnmpPanel(SessionContext& context, QWidget* parent)
    : QGroupBox(QStringLiteral("SNMP"), parent), context_(context) {
    setObjectName(QStringLiteral("snmpGroup"));
    resize(kWidth, kHeight);
    build();
    enableControls();
    for (QComboBox* list : {cbSnmpVersion, cbSecurityLevel, cbAuthProtocol, cbPrivProtocol}) {
        connect(list, &QComboBox::currentIndexChanged, this, &SnmpPanel::enableControls);
    }
}

void SnmpPanel::build() {
    auto* grid = new QWidget(this);
    FormGrid form(*grid, 2);
    for (const Setting& setting : settings()) {
        fields_.add(form, {setting.field});
        labels_.push_back(form.lastLabel());
        auto& control = *fields_.control(controlOf(setting));
        if (auto* list = qobject_cast<QComboBox*>(&control)) {
            list->setCurrentIndex(setting.firstChoice);
        } else {
            QPalette palette = control.palette();
            palette.setColor(QPalette::Disabled, QPalette::Base, palette.color(QPalette::Button));
            control.setPalette(palette);
        }
        if (setting.secret) {
            hideTyped(static_cast<QLineEdit&>(control));
        }
        if (controlOf(setting) == kLastBeforeGap) {
            form.newRow();
        }
    }
    cbSnmpVersion = fields_.control<QComboBox>("cbSnmpVersion");
    cbSecurityModel = fields_.control<QComboBox>("cbSecurityModel");
    cbSecurityLevel = fields_.control<QComboBox>("cbSecurityLevel");
    cbAuthProtocol = fields_.control<QComboBox>("cbAuthProtocol");
    cbPrivProtocol = fields_.control<QComboBox>("cbPrivProtocol");
    edtSnmpPort = fields_.control<QLineEdit>("edtSnmpPort");
    edtSnmpTimeout = fields_.control<QLineEdit>("edtSnmpTimeout");
    edtRetries = fields_.control<QLineEdit>("edtRetries");
    edtReadCommunity = fields_.control<QLineEdit>("edtReadCommunity");
    edtWriteCommunity = fields_.control<QLineEdit>("edtWriteCommunity");
    edtEngineID = fields_.control<QLineEdit>("edtEngineID");
    edtContextName = fields_.control<QLineEdit>("edtContextName");
    edtUserName = fields_.control<QLineEdit>("edtUserName");
    edtAuthPassword = fields_.control<QLineEdit>("edtAuthPassword");
    edtPrivPassword = fields_.control<QLineEdit>("edtPrivPassword");
    cbSecurityModel->setEnabled(false); // shown, never changed
    btnApply = makeButton(this, "btnApply", kApplyCaption, [this] { btnApplyClick(); });
    auto* column = new QVBoxLayout(this);
    column->addWidget(grid, 1);
    column->addWidget(btnApply, 0, Qt::AlignHCenter);
}

void SnmpPanel::load() {
    for (const Setting& setting : settings()) {
        auto& control = *fields_.control(controlOf(setting));
        const std::string value = setting.number != nullptr
                                      ? std::to_string(context_.*setting.number)
                                      : context_.*setting.text;
        if (auto* list = qobject_cast<QComboBox*>(&control)) {
            selectIfKnown(*list, value);
        } else {
            setControlText(control, value);
        }
    }
    enableControls();
}

void SnmpPanel::enableControls() {
    fields_.enable();
    for (QLabel* label : labels_) {
        const QWidget* control = label->buddy();
        label->setEnabled((control == cbSecurityModel ? edtEngineID : control)->isEnabled());
    }
}

bool SnmpPanel::checkUser() const {
    return checkName(*edtUserName, kNoUserName) && checkName(*edtAuthPassword, kNoAuthPassword) &&
           checkName(*edtPrivPassword, kNoPrivPassword);
}

bool SnmpPanel::store() {
    for (const Setting& setting : settings()) {
        auto& control = *fields_.control(controlOf(setting));
        if (auto* list = qobject_cast<QComboBox*>(&control)) {
            context_.*setting.number = wholeNumber(selectedCode(*list).value_or("0")).value_or(0);
        } else if (setting.text != nullptr) {
            context_.*setting.text = stateOf(control).text.substr(0, kTextBytes);
        } else if (const auto number = numberIn(static_cast<QLineEdit&>(control))) {
            context_.*setting.number = *number;
        } else {
            return false;
        }
    }
    return true;
}

void SnmpPanel::btnApplyClick() {
    const auto retries = numberIn(*edtRetries);
    if (!retries) {
        return;
    }
    if (*retries > kMostRetries) {
        refuse({.textId = kTooManyRetries, .icon = platform::PromptIcon::information}, edtRetries,
               0);
        return;
    }
    if (!checkUser() || !store()) {
        return;
    }
    const bool focused = window()->focusWidget() == btnApply; // lost while disabled
    btnApply->setEnabled(false);
    refuse({.textId = kApplied, .icon = platform::PromptIcon::information}, nullptr, 0);
    btnApply->setEnabled(true);
    if (focused) {
        btnApply->setFocus();
    }
}

} // namespace onudesk
