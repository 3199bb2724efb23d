// SPDX-License-Identifier: MIT
#include "pages/basic/onu_basic.h"

#include "env/language_module.h"
#include "pages/framework/form_grid.h"

#include <optional>
#include <utility>

#include <QGroupBox>
#include <QVBoxLayout>

namespace onudesk {

namespace {

constexpr const char* kNoMac = "00:00:00:00:00:00";
constexpr int kNameBytes = 32;

constexpr int kBindRefused = 3026;
constexpr int kBadMac = 3028;
constexpr int kNothingBound = 3030;

// Positions of the values that need more than a field.
constexpr std::size_t kRegisteredMac = 0;
constexpr std::size_t kLlid = 1;
constexpr std::size_t kName = 18;
constexpr std::size_t kBoundMac = 19;
constexpr std::size_t kRowStatus = 20;
constexpr std::size_t kLeastValues = 22;

ValueMap supported() {
    return ValueMap({{messageText(message::no), "0"}, {messageText(message::yes), "1"}});
}

PageRules basicRules() {
    return {.helpKeyId = 6204, .minimumValues = kLeastValues};
}

std::string portBitmap(const std::string& value) {
    return "0x" + hexOfDecimal(value, 4);
}

std::vector<Field> identityFields() {
    return {
        {.control = "rttEdit", .labelId = 20011, .position = 16},
        {.control = "timeEdit", .labelId = 20012, .position = 17},
    };
}

std::vector<Field> capabilityFields() {
    return {
        {.control = "serviceMemo", .labelId = 20017, .kind = ControlKind::memo, .position = 4},
        {.control = "numgeEdit", .labelId = 20018, .position = 5},
        {.control = "mapgeEdit", .labelId = 20019, .position = 6, .show = {portBitmap}},
        {.control = "numfeEdit", .labelId = 20020, .position = 7},
        {.control = "mapfeEdit", .labelId = 20021, .position = 8, .show = {portBitmap}},
        {.control = "numpotsEdit", .labelId = 20022, .position = 9},
        {.control = "numE1Edit", .labelId = 20023, .position = 10},
        {.control = "numUSEdit", .labelId = 20024, .position = 11},
        {.control = "queUSEdit", .labelId = 20025, .position = 12},
        {.control = "numDSEdit", .labelId = 20026, .position = 13},
        {.control = "queDSEdit", .labelId = 20027, .position = 14},
        {.control = "batteryEdit", .labelId = 20028, .position = 15, .codes = supported()},
    };
}

bool isZeroHex(std::string_view digits) {
    return digits.find_first_of("123456789abcdefABCDEF") == std::string_view::npos;
}

// The name as the agent returned it: plain when it came through whole (or nobody says), else as
// hexadecimal text that ends at the first zero byte.
std::string decodedName(const std::string& value, std::optional<std::uint32_t> length) {
    if (!length || value.size() == *length) {
        return value;
    }
    return value.size() % 2 != 0 ? std::string() : std::string(textUpToZero(bytesOfHex(value)));
}

} // namespace

TOnuBasic::TOnuBasic(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType, basicRules(), parent) {
    auto* identity = new QGroupBox(listPanel);
    buildIdentity(*identity);
    auto* capabilities = new QGroupBox(listPanel);
    capabilities->setObjectName(QStringLiteral("capabilityGroup"));
    setCaption(*capabilities, 20016);
    FormGrid form(*capabilities, 2);
    fields().add(form, capabilityFields());
    auto* column = new QVBoxLayout(listPanel);
    column->addWidget(identity);
    column->addWidget(capabilities);
    column->addStretch();
    start({nameBtn, macBtn}, {macBtn});
}

void TOnuBasic::buildIdentity(QWidget& group) {
    FormGrid form(group, 2);
    llidEdt = form.edit("llidEdt", 20010);
    llidEdt->setReadOnly(true);
    llidEdt->setEnabled(false);
    fields().add(form, identityFields());
    authValidComb = form.combo("authValidComb", 20015);
    fillCombo(*authValidComb, supported());
    authValidComb->setCurrentIndex(0);
    authValidLabel = form.lastLabel();
    authValidComb->hide();
    authValidLabel->hide();
    nameEdit = form.edit("nameEdit", 20013);
    limitTyping(*nameEdit, kNameBytes);
    nameBtn = makeButton(&group, "nameBtn", message::remove, [this] { nameBtnClick(); });
    form.beside(*nameBtn);
    form.newRow();
    macEdit = form.edit("macEdit", 20014);
    maskMac(*macEdit);
    macBtn = makeButton(&group, "macBtn", message::remove, [this] { macBtnClick(); });
    form.beside(*macBtn);
}

void TOnuBasic::showReply(const ReadResult& result) {
    ConfigPage::showReply(result);
    const std::string& registered = valueAt(result, kRegisteredMac);
    if (!registered.empty()) {
        setControlText(*llidEdt, hexOfDecimal(valueAt(result, kLlid), 2));
    }
    showMac(result);
    if (!isZeroHex(registered)) {
        macEdit->setEnabled(false);
        macBtn->hide();
    }
    showName(result);
    if (valueAt(result, kRowStatus) == rowStatusText(RowStatus::notInService)) {
        macEdit->setEnabled(false);
    }
    if (macEdit->isEnabled()) {
        setControlText(*nameEdit, {});
    }
    nameEdit->setEnabled(!macEdit->isEnabled());
    nameBtn->setEnabled(!macEdit->isEnabled());
    refusePendingBind(result);
}

void TOnuBasic::showMac(const ReadResult& result) {
    if (!bindPending_) {
        setControlText(*macEdit, colonSeparated(valueAt(result, kBoundMac)));
    }
}

void TOnuBasic::showName(const ReadResult& result) {
    const auto length =
        kName < result.lengths.size() ? std::optional(result.lengths[kName]) : std::nullopt;
    setControlText(*nameEdit, decodedName(valueAt(result, kName), length));
}

void TOnuBasic::refusePendingBind(const ReadResult& result) {
    if (macEdit->isEnabled() && bindPending_ &&
        valueAt(result, kRowStatus) == rowStatusText(RowStatus::notReady)) {
        bindPending_ = false;
        setControlText(*macEdit, kNoMac);
        refuse({kBindRefused}, nullptr);
    }
}

bool TOnuBasic::bindsAddress() const {
    return macEdit->isEnabled() && !bindPending_;
}

bool TOnuBasic::mayWrite() {
    if (!bindsAddress()) {
        return true;
    }
    const MacCheck check = checkMac(maskedText(*macEdit), kBadMac, platform::PromptIcon::none);
    if (check.failure) {
        refuse(*check.failure, macEdit);
    }
    return !check.failure;
}

void TOnuBasic::bindWrite(WriteRequest& request) {
    const std::string& onu = session().OnuIndexText;
    if (bindPending_) {
        request.bind({"MacRowStatus"}, rowStatusText(RowStatus::createAndGo), onu);
        return;
    }
    if (bindsAddress()) {
        const std::string mac = checkMac(maskedText(*macEdit), kBadMac, {}).address;
        request.bind({"onuBindMac"}, bytesOfHex(mac), onu, kMacBytes);
    }
    if (nameEdit->isEnabled()) {
        request.bind({"onuName"}, stateOf(*nameEdit).text, onu);
    }
    // From now on Config activates the binding row; only a refusal by the ONU takes that back.
    bindPending_ = macEdit->isEnabled();
}

void TOnuBasic::nameBtnClick() {
    writeOne({"onuName"}, "");
}

void TOnuBasic::macBtnClick() {
    if (maskedText(*macEdit) == kNoMac) {
        refuse({kNothingBound, {}, message::errorCaption, platform::PromptIcon::none}, nullptr);
        return;
    }
    if (writeOne({"MacRowStatus"}, rowStatusText(RowStatus::destroy))) {
        macEdit->setEnabled(false);
    }
}

} // namespace onudesk
