// SPDX-License-Identifier: MIT
#include "pages/vlan/onu_port_vlan.h"

#include "env/language_module.h"
#include "pages/vlan/onu_pvid_item.h"
#include "pages/vlan/trunk_list.h"

#include <QVBoxLayout>

namespace onudesk {

namespace {

constexpr int kTpidLabel = 61207;
constexpr int kTrunkListLabel = 3318;
constexpr int kNotConfigurable = 3136;
constexpr std::size_t kTrunkListBytes = 16;
constexpr int kDigits = 4;
constexpr std::int64_t kLastVlan = 4094;

// Positions of a row's values, which are also its columns.
constexpr std::size_t kPort = 0;
constexpr std::size_t kMode = 1;
constexpr std::size_t kDefaultVlan = 2;
constexpr std::size_t kTpid = 3;
constexpr std::size_t kTrunkList = 4;

constexpr const char* kTransparent = "0";
constexpr const char* kTranslation = "2";
constexpr const char* kTrunk = "4";
constexpr const char* kConfigurable = "1"; // the ONU's VLAN mode in which ports can be set

std::vector<ValuePair> modePairs(const std::string& menuFileName) {
    std::vector<ValuePair> pairs = {{"transparent", kTransparent}, {"tag", "1"}};
    if (menuFileName != "epononu4470_menu.xml" && menuFileName != "epononu4590_menu.xml") {
        pairs.push_back({"translation", kTranslation});
        pairs.push_back({"trunk", kTrunk});
    }
    return pairs;
}

// No TPID stands for the usual one.
std::string tpidText(const std::string& value) {
    const std::string digits = hexOfDecimal(value, kDigits);
    return digits == "0000" ? "8100" : digits;
}

} // namespace

std::string decimalOfHex(const std::string& digits) {
    return decimalOf(digits, 16);
}

TOnuPortVlan::TOnuPortVlan(Session& session, std::int32_t itemType, QWidget* parent)
    : ListPage(session, itemType,
               {.helpKeyId = 6212,
                .group = "group1",
                .config = {"cfgBtn", message::config},
                .rereadsWhenShown = true,
                .onDecoded = OnDecoded::followsFlag,
                .onFailedDecode = OnFailedDecode::leaves,
                .flagSetsRefresh = true,
                .resultText = "group1",
                .minimumValues = 5},
               parent),
      modes_(modePairs(session.context.menuFileName)) {
    mainTable->setColumns({{.titleId = 61201, .position = kPort, .isKey = true},
                           {.titleId = 61202, .position = kMode, .codes = modes_},
                           {.titleId = 61203, .position = kDefaultVlan},
                           {.titleId = 61204, .position = kTpid, .show = tpidText},
                           {.titleId = 61205, .position = kTrunkList, .show = trunkText}});
    buildForm();
    editRowsIn([this](int /*row*/) { return new TOnuPvidItem(*this); });
    onGroup("vlan mode",
            [this](const ReadResult& result) { onuVlanMode_ = result.values.front(); });
    start();
}

void TOnuPortVlan::buildForm() {
    auto* area = new QWidget(listPanel);
    listPanel->layout()->addWidget(area);
    FormGrid form(*area, 2);
    portEdt = form.edit("portEdt", 61201);
    portEdt->setReadOnly(true);
    portEdt->setEnabled(false);
    modeComb = form.combo("modeComb", 61202);
    fillCombo(*modeComb, modes_);
    connect(modeComb, &QComboBox::activated, this, &TOnuPortVlan::modeCombChange);
    vlanEdt = form.edit("vlanEdt", 61206);
    tpidEdit = form.edit("tpidEdit", kTpidLabel);
    tpidEdit->setEnabled(false);
    Label4 = form.lastLabel();
    Label4->setObjectName(QStringLiteral("Label4"));
    for (QLineEdit* edit : {vlanEdt, tpidEdit}) {
        limitTyping(*edit, kDigits);
        digitsOnly(*edit);
    }
    VlanListEdit = new QLineEdit(area);
    VlanListEdit->setObjectName(QStringLiteral("VlanListEdit"));
    VlanListEdit->setAccessibleName(shown(messageText(kTrunkListLabel)));
    form.over(*VlanListEdit);
    VlanListEdit->hide();
}

void TOnuPortVlan::showReply(const ReadResult& result) {
    ReadResult row = result;
    if (row.values[kMode] != kTrunk) {
        row.values[kTrunkList].clear();
    }
    ListPage::showReply(row);
    // What is edited is always the selected port, also when a row is selected again.
    const int selected = mainTable->selectedRow();
    if (selected >= 0 && mainTable->cell(selected, kPort) != stateOf(*portEdt).text) {
        mainTableClick();
    }
}

void TOnuPortVlan::handleWriteReply(void* reply) {
    if (findChild<TOnuPvidItem*>() != nullptr) {
        // The answer to a write of before: the dialog keeps the read route, and its end reads.
        writeResultNotice(session(), replyHandle(), reply, {});
    } else {
        ListPage::handleWriteReply(reply);
    }
}

void TOnuPortVlan::mainTableClick() {
    const int row = mainTable->selectedRow();
    setControlText(*portEdt, mainTable->cell(row, kPort));
    selectByText(*modeComb, mainTable->cell(row, kMode));
    setControlText(*vlanEdt, mainTable->cell(row, kDefaultVlan));
    setControlText(*tpidEdit, mainTable->cell(row, kTpid));
    setControlText(*VlanListEdit, mainTable->cell(row, kTrunkList));
    if (row >= 0) {
        modeCombChange();
    }
}

std::string TOnuPortVlan::mode() const {
    return selectedCode(*modeComb).value_or(kTransparent);
}

void TOnuPortVlan::modeCombChange() {
    const std::string selected = mode();
    vlanEdt->setEnabled(selected != kTransparent);
    if (selected == kTransparent) {
        setControlText(*vlanEdt, "0");
    }
    showTrunk(selected == kTrunk);
}

void TOnuPortVlan::showTrunk(bool trunk) {
    tpidEdit->setVisible(!trunk);
    VlanListEdit->setVisible(trunk);
    if (!trunk) {
        setControlText(*VlanListEdit, {});
    }
    Label4->setBuddy(trunk ? VlanListEdit : tpidEdit);
    setCaption(*Label4, trunk ? kTrunkListLabel : kTpidLabel);
}

void TOnuPortVlan::mainTableDblClick() {
    if (mode() == kTranslation && configBtn->isEnabled()) {
        configBtnClick();
    }
}

void TOnuPortVlan::configBtnClick() {
    if (onuVlanMode_ != kConfigurable) {
        refuse({kNotConfigurable}, mainTable);
        return;
    }
    const int row = requireRow();
    if (row < 0) {
        return;
    }
    mainTable->rememberRow(row);
    selectedPort_ = mainTable->cell(row, kPort);
    if (mode() == kTranslation) {
        openRow(row);
    } else {
        checkAndWrite();
    }
}

bool TOnuPortVlan::mayWrite() {
    const auto failure =
        vlanEdt->isEnabled() ? checkRange(stateOf(*vlanEdt).text, 1, kLastVlan) : std::nullopt;
    if (failure) {
        refuse(*failure, vlanEdt);
        return false;
    }
    if (mode() != kTrunk) {
        return true;
    }
    const TrunkList list = parseTrunkList(stateOf(*VlanListEdit).text);
    if (list.failure) {
        refuse(*list.failure, VlanListEdit);
    }
    return !list.failure;
}

void TOnuPortVlan::bindWrite(WriteRequest& request) {
    const std::string port = session().OnuIndexText + "." + selectedPort_;
    request.bind({"vlanMode"}, selectedCode(*modeComb).value_or(std::string()), port);
    if (mode() == kTrunk) {
        const TrunkList list = parseTrunkList(stateOf(*VlanListEdit).text);
        request.bind({"vlanTrunkList"}, trunkBytes(list.vlans), port, kTrunkListBytes);
    }
    if (vlanEdt->isEnabled()) {
        request.bind({"vlanDefault"}, stateOf(*vlanEdt).text, port);
    }
    request.bind({"vlanTpid"}, decimalOfHex(stateOf(*tpidEdit).text), port);
    request.bind({"vlanRowStatus"}, rowStatusText(RowStatus::createAndGo), port);
}

} // namespace onudesk
