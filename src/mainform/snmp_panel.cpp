// SPDX-License-Identifier: MIT
#include "mainform/snmp_panel.h"

#include "pages/framework/config_page.h"
#include "pages/framework/controls.h"
#include "pages/framework/form_grid.h"

#include <algorithm>
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

constexpr std::int32_t kVersion3 = 3;
constexpr std::int32_t kAuthNoPriv = 2;
constexpr std::int32_t kAuthPriv = 3;
constexpr std::int32_t kNoProtocol = 1;
constexpr std::int32_t kMostRetries = 9;
constexpr int kNameCharacters = 32;
constexpr int kTextBytes = 100;
constexpr std::string_view kForbidden = R"( */:<>?\|)";

// What makes use of a setting.
enum class UsedBy {
    everything,
    communities,
    version3,
    authentication,
    authPassword,
    privacy,
    privPassword
};

struct Choice {
    const char* text;
    std::int32_t code;
};

// A setting is a number chosen from a list, a decimal number or a text.
struct Setting {
    const char* name;
    int labelId;
    UsedBy usedBy = UsedBy::everything;
    QComboBox* SnmpPanel::*list = nullptr;
    QLineEdit* SnmpPanel::*edit = nullptr;
    std::int32_t SessionContext::*number = nullptr;
    std::string SessionContext::*text = nullptr;
    std::vector<Choice> choices{};
    int firstChoice = 0;         // selected as long as the context has no code of the list
    int characters = kTextBytes; // that can be typed
    bool secret = false;
    bool aloneInRow = false;
};

// In the order of the grid, row by row. They are stored in this order, of which only the start can
// be seen: the port and the time-out, which may be no numbers, come after the version.
const std::vector<Setting>& settings() {
    using Panel = SnmpPanel;
    using Context = SessionContext;
    static const std::vector<Setting> table = {
        {.name = "cbSnmpVersion",
         .labelId = 21001,
         .list = &Panel::cbSnmpVersion,
         .number = &Context::snmpVersion,
         .choices = {{"version1", 0}, {"version2c", 1}, {"version3", kVersion3}}},
        {.name = "edtSnmpPort",
         .labelId = 21002,
         .edit = &Panel::edtSnmpPort,
         .number = &Context::snmpPort},
        {.name = "edtSnmpTimeout",
         .labelId = 21003,
         .edit = &Panel::edtSnmpTimeout,
         .number = &Context::timeout},
        {.name = "edtRetries",
         .labelId = 21004,
         .edit = &Panel::edtRetries,
         .number = &Context::retries},
        {.name = "edtReadCommunity",
         .labelId = 21005,
         .usedBy = UsedBy::communities,
         .edit = &Panel::edtReadCommunity,
         .text = &Context::readCommunity,
         .characters = kNameCharacters,
         .secret = true},
        {.name = "edtWriteCommunity",
         .labelId = 21006,
         .usedBy = UsedBy::communities,
         .edit = &Panel::edtWriteCommunity,
         .text = &Context::writeCommunity,
         .secret = true},
        {.name = "edtEngineID",
         .labelId = 21007,
         .usedBy = UsedBy::version3,
         .edit = &Panel::edtEngineID,
         .text = &Context::v3EngineId},
        {.name = "edtContextName",
         .labelId = 21008,
         .usedBy = UsedBy::version3,
         .edit = &Panel::edtContextName,
         .text = &Context::v3ContextName},
        {.name = "cbSecurityModel",
         .labelId = 21009,
         .usedBy = UsedBy::version3,
         .list = &Panel::cbSecurityModel,
         .number = &Context::securityModel,
         .choices = {{"any", 0}, {"v1", 1}, {"v2", 2}, {"v3", 3}},
         .firstChoice = 3},
        {.name = "cbSecurityLevel",
         .labelId = 21010,
         .usedBy = UsedBy::version3,
         .list = &Panel::cbSecurityLevel,
         .number = &Context::securityLevel,
         .choices = {{"NoAuth,NoPriv", 1}, {"Auth,NoPriv", kAuthNoPriv}, {"Auth,Priv", kAuthPriv}}},
        {.name = "edtUserName",
         .labelId = 21011,
         .usedBy = UsedBy::version3,
         .edit = &Panel::edtUserName,
         .text = &Context::v3UserName,
         .characters = kNameCharacters,
         .aloneInRow = true},
        {.name = "cbAuthProtocol",
         .labelId = 21012,
         .usedBy = UsedBy::authentication,
         .list = &Panel::cbAuthProtocol,
         .number = &Context::authProtocol,
         .choices = {{"NONE", kNoProtocol}, {"MD5", 2}, {"SHA", 3}}},
        {.name = "cbPrivProtocol",
         .labelId = 21013,
         .usedBy = UsedBy::privacy,
         .list = &Panel::cbPrivProtocol,
         .number = &Context::privProtocol,
         .choices = {{"NONE", kNoProtocol}, {"DES", 2}}},
        {.name = "edtAuthPassword",
         .labelId = 21014,
         .usedBy = UsedBy::authPassword,
         .edit = &Panel::edtAuthPassword,
         .text = &Context::authPassword,
         .characters = kNameCharacters,
         .secret = true},
        {.name = "edtPrivPassword",
         .labelId = 21015,
         .usedBy = UsedBy::privPassword,
         .edit = &Panel::edtPrivPassword,
         .text = &Context::privPassword,
         .characters = kNameCharacters,
         .secret = true},
    };
    return table;
}

std::int32_t code(const QComboBox& list) {
    return list.currentData().toInt();
}

bool inUse(UsedBy usedBy, const SnmpPanel& panel) {
    const bool version3 = code(*panel.cbSnmpVersion) == kVersion3;
    const bool authentication = version3 && code(*panel.cbSecurityLevel) >= kAuthNoPriv;
    const bool privacy = version3 && code(*panel.cbSecurityLevel) >= kAuthPriv;
    switch (usedBy) {
    case UsedBy::everything:
        break;
    case UsedBy::communities:
        return !version3;
    case UsedBy::version3:
        return version3;
    case UsedBy::authentication:
        return authentication;
    case UsedBy::authPassword:
        return authentication && code(*panel.cbAuthProtocol) != kNoProtocol;
    case UsedBy::privacy:
        return privacy;
    case UsedBy::privPassword:
        return privacy && code(*panel.cbPrivProtocol) != kNoProtocol;
    }
    return true;
}

QComboBox* addList(FormGrid& form, const Setting& setting) {
    QComboBox* list = form.combo(setting.name, setting.labelId);
    for (const Choice& choice : setting.choices) {
        list->addItem(QString::fromLatin1(choice.text), choice.code);
    }
    list->setCurrentIndex(setting.firstChoice);
    return list;
}

QLineEdit* addEdit(FormGrid& form, const Setting& setting) {
    QLineEdit* edit = form.edit(setting.name, setting.labelId);
    if (setting.number != nullptr) {
        digitsOnly(*edit);
    } else {
        limitTyping(*edit, kTextBytes);
        limitCharacters(*edit, setting.characters);
    }
    if (setting.secret) {
        edit->setEchoMode(QLineEdit::Password);
        edit->setStyleSheet(QStringLiteral("lineedit-password-character: 42")); // "*"
    }
    QPalette palette = edit->palette();
    palette.setColor(QPalette::Disabled, QPalette::Base, palette.color(QPalette::Button));
    edit->setPalette(palette);
    return edit;
}

void select(QComboBox& list, std::int32_t wanted) {
    const int row = list.findData(wanted);
    if (row >= 0) {
        const QSignalBlocker quiet(list);
        list.setCurrentIndex(row);
    }
}

// The decimal number in the edit; what is none is told.
std::optional<std::int32_t> numberIn(QLineEdit& edit) {
    const std::string text = stateOf(edit).text;
    const auto number = wholeNumber(text);
    if (!number) {
        tellNotANumber(text, 0);
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
    connect(cbSnmpVersion, &QComboBox::currentIndexChanged, this, &SnmpPanel::cbSnmpVersionChange);
    connect(cbSecurityLevel, &QComboBox::currentIndexChanged, this,
            &SnmpPanel::cbSecurityLevelChange);
    connect(cbAuthProtocol, &QComboBox::currentIndexChanged, this,
            &SnmpPanel::cbAuthProtocolChange);
    connect(cbPrivProtocol, &QComboBox::currentIndexChanged, this,
            &SnmpPanel::cbPrivProtocolChange);
}

void SnmpPanel::build() {
    auto* grid = new QWidget(this);
    FormGrid form(*grid, 2);
    labels_.reserve(settings().size());
    for (const Setting& setting : settings()) {
        if (setting.list != nullptr) {
            this->*setting.list = addList(form, setting);
        } else {
            this->*setting.edit = addEdit(form, setting);
        }
        labels_.push_back(form.lastLabel());
        if (setting.aloneInRow) {
            form.newRow();
        }
    }
    btnApply = makeButton(this, "btnApply", kApplyCaption, [this] { btnApplyClick(); });
    auto* column = new QVBoxLayout(this);
    column->addWidget(grid, 1);
    column->addWidget(btnApply, 0, Qt::AlignHCenter);
}

void SnmpPanel::load() {
    for (const Setting& setting : settings()) {
        if (setting.list != nullptr) {
            select(*(this->*setting.list), context_.*setting.number);
        } else if (setting.number != nullptr) {
            setControlText(*(this->*setting.edit), std::to_string(context_.*setting.number));
        } else {
            setControlText(*(this->*setting.edit), context_.*setting.text);
        }
    }
    enableControls();
}

void SnmpPanel::enableControls() {
    for (std::size_t at = 0; at < labels_.size(); ++at) {
        const bool used = inUse(settings()[at].usedBy, *this);
        labels_[at]->setEnabled(used);
        labels_[at]->buddy()->setEnabled(used);
    }
    cbSecurityModel->setEnabled(false); // shown, never changed
}

bool SnmpPanel::checkUser() const {
    return checkName(*edtUserName, kNoUserName) && checkName(*edtAuthPassword, kNoAuthPassword) &&
           checkName(*edtPrivPassword, kNoPrivPassword);
}

bool SnmpPanel::store() {
    for (const Setting& setting : settings()) {
        if (setting.list != nullptr) {
            context_.*setting.number = code(*(this->*setting.list));
        } else if (setting.text != nullptr) {
            context_.*setting.text = stateOf(*(this->*setting.edit)).text.substr(0, kTextBytes);
        } else if (const auto number = numberIn(*(this->*setting.edit))) {
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
