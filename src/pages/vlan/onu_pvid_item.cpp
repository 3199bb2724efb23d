// SPDX-License-Identifier: MIT
#include "pages/vlan/onu_pvid_item.h"

#include "platform/desktop.h"
#include "window/request.h"

#include <utility>

#include <QVBoxLayout>

namespace onudesk {

namespace {

using namespace std::chrono_literals;

constexpr std::int64_t kLastVlan = 4094;
constexpr std::size_t kLeastValues = 5;
constexpr auto kBetweenWrites = 500ms;
constexpr QSize kDialogSize(560, 420);

// Columns, of which all but the first are positions of the reply, too.
constexpr std::size_t kIndex = 0;
constexpr std::size_t kOldTpid = 1;
constexpr std::size_t kNewTpid = 2;
constexpr std::size_t kOldVlan = 3;
constexpr std::size_t kNewVlan = 4;

std::string hexText(const std::string& value) {
    return hexOfDecimal(value, 4);
}

std::string asItStands(const std::string& text) {
    return text;
}

} // namespace

TOnuPvidItem::TOnuPvidItem(TOnuPortVlan& page)
    : ItemDialog(page, {.name = "TOnuPvidItem", .titleId = 61208, .ok = {}}, -1), page_(page),
      cycle_(*this, page.session(), page.itemType(),
             {.start = StartState::ready,
              .onDecoded = OnDecoded::followsFlag,
              .flagSetsRefresh = true,
              .resultText = "group2",
              .minimumValues = kLeastValues},
             {.prepareRead =
                  [this] {
                      mainTable->clearRows();
                      setPortSegment(page_.session(), stateOf(*portEdit).text);
                  },
              .handleReply = [this](const ReadResult& result) { handleReply(result); },
              .handleWriteReply = [this](void* reply) { handleWriteReply(reply); }}) {
    buildTable();
    buildForm();
    buildButtons();
    resize(kDialogSize);
    setPortSegment(page.session(), page.selectedPort());
    cycle_.readFirst();
}

void TOnuPvidItem::buildTable() {
    mainTable = new RowTable(WorkPanel);
    mainTable->setColumns({{.titleId = 61209},
                           {.titleId = 61210, .position = kOldTpid, .show = hexText},
                           {.titleId = 61211, .position = kNewTpid, .show = hexText},
                           {.titleId = 61212, .position = kOldVlan},
                           {.titleId = 61213, .position = kNewVlan}});
    mainTable->onClick = [this] { mainTableClick(); };
    mainTable->onDoubleClick = [this] { mainTableDblClick(); };
}

void TOnuPvidItem::buildForm() {
    auto* area = new QWidget(WorkPanel);
    FormGrid form(*area, 2);
    portEdit = form.edit("portEdit", 61201);
    modeComb = form.combo("modeComb", 61202);
    vlanEdt = form.edit("vlanEdt", 61206);
    tpidEdit = form.edit("tpidEdit", 61207);
    tpid1Edit = form.edit("tpid1Edit", 61214);
    tpid2Edit = form.edit("tpid2Edit", 61215);
    vlan1Edit = form.edit("vlan1Edit", 61216);
    vlan2Edit = form.edit("vlan2Edit", 61217);
    for (QLineEdit* edit : {tpidEdit, tpid1Edit, tpid2Edit}) {
        setControlText(*edit, "8100");
        edit->setEnabled(false);
    }
    for (QLineEdit* edit : {vlanEdt, vlan1Edit, vlan2Edit}) {
        digitsOnly(*edit);
    }
    setControlText(*portEdit, page_.selectedPort());
    portEdit->setEnabled(false);
    fillCombo(*modeComb, page_.modes());
    modeComb->setCurrentIndex(page_.modeComb->currentIndex());
    connect(modeComb, &QComboBox::activated, this, &TOnuPvidItem::modeCombChange);
    setControlText(*vlanEdt, stateOf(*page_.vlanEdt).text);
    auto* column = static_cast<QVBoxLayout*>(WorkPanel->layout());
    column->addWidget(mainTable, 1);
    column->addWidget(area);
}

void TOnuPvidItem::buildButtons() {
    addBtn = addButton("addBtn", message::add, [this] { addBtnClick(); });
    deleteBtn = addButton("deleteBtn", message::remove, [this] { deleteBtnClick(); });
    refreshBtn = addButton("refreshBtn", message::refresh, [this] { refreshBtnClick(); });
    cycle_.addRequestButton(addBtn);
    cycle_.addRequestButton(deleteBtn);
    cycle_.setRefreshButton(refreshBtn);
    for (QPushButton* button : {addBtn, deleteBtn, refreshBtn}) {
        cycle_.addWriteButton(button);
    }
}

void TOnuPvidItem::handleWriteReply(void* reply) {
    refreshBtnClick();
    writeResultNotice(page_.session(), cycle_.handle(), reply, {});
}

void TOnuPvidItem::handleReply(const ReadResult& result) {
    if (!cycle_.isShown(result)) {
        return;
    }
    const int row = mainTable->putReply(result);
    if (selectsByValues_ && stateOf(*vlan1Edit).text == result.values[kOldVlan] &&
        stateOf(*vlan2Edit).text == result.values[kNewVlan]) {
        mainTable->selectRow(row);
    } else if (!selectsByValues_ && row == mainTable->selectedRow()) {
        mainTableClick(); // another entry may have come into the place of a deleted one
    }
}

void TOnuPvidItem::mainTableDblClick() {
    if (addBtn->isEnabled()) {
        addBtnClick();
    }
}

void TOnuPvidItem::mainTableClick() {
    const int row = mainTable->selectedRow();
    if (row < 0) {
        return;
    }
    setControlText(*tpid1Edit, mainTable->cell(row, kOldTpid));
    setControlText(*tpid2Edit, mainTable->cell(row, kNewTpid));
    setControlText(*vlan1Edit, mainTable->cell(row, kOldVlan));
    setControlText(*vlan2Edit, mainTable->cell(row, kNewVlan));
}

void TOnuPvidItem::modeCombChange() {
    const std::string mode = selectedCode(*modeComb).value_or(std::string());
    if (mode != "0" && mode != "1" && mode != "2") {
        return;
    }
    if (mode == "0") {
        setControlText(*vlanEdt, "0");
    }
    vlanEdt->setEnabled(mode != "0");
    vlan1Edit->setEnabled(mode == "2");
    vlan2Edit->setEnabled(mode == "2");
}

std::string TOnuPvidItem::portInstance() const {
    return page_.session().OnuIndexText + "." + stateOf(*portEdit).text;
}

WriteRequest TOnuPvidItem::entryRequest(const std::string& entry, TpidValue tpid) {
    WriteRequest request = page_.newRequest();
    if (!request) {
        return request;
    }
    const std::string port = portInstance();
    const std::string mode = selectedCode(*modeComb).value_or(std::string());
    request.bind({"vlanMode"}, mode, port);
    if (vlanEdt->isEnabled()) {
        request.bind({"vlanDefault"}, stateOf(*vlanEdt).text, port);
    }
    if (tpidEdit->isEnabled() || mode != "0") {
        request.bind({"vlanTpid"}, tpid(stateOf(*tpidEdit).text), port);
    }
    if (tpid1Edit->isEnabled() || mode == "2") {
        const std::string instance = port + "." + entry;
        request.bind({"vlanTpid1", "group2"}, tpid(stateOf(*tpid1Edit).text), instance);
        request.bind({"vlanTpid2", "group2"}, tpid(stateOf(*tpid2Edit).text), instance);
        request.bind({"vlanVlan1", "group2"}, stateOf(*vlan1Edit).text, instance);
        request.bind({"vlanVlan2", "group2"}, stateOf(*vlan2Edit).text, instance);
    }
    return request;
}

void TOnuPvidItem::reject() {
    // Between two writes nothing ends the dialog.
    if (cancelBtn->isEnabled()) {
        ItemDialog::reject();
    }
}

void TOnuPvidItem::addBtnClick() {
    for (QLineEdit* edit : {vlanEdt, vlan1Edit, vlan2Edit}) {
        const auto failure =
            edit->isEnabled() ? checkRange(stateOf(*edit).text, 1, kLastVlan) : std::nullopt;
        if (failure) {
            refuse(*failure, edit);
            return;
        }
    }
    selectsByValues_ = true;
    mainTable->rememberRow(-1);
    writeTwice(entryRequest("1", decimalOfHex), RowStatus::createAndGo);
}

void TOnuPvidItem::deleteBtnClick() {
    const int row = mainTable->selectedRow();
    if (row < 0) {
        return;
    }
    if (mainTable->cell(row, kOldVlan) == "0") {
        refuse({message::nothingToDelete}, mainTable);
        return;
    }
    selectsByValues_ = false;
    mainTable->rememberRow(row);
    writeTwice(entryRequest(mainTable->cell(row, kIndex), asItStands), RowStatus::destroy);
}

void TOnuPvidItem::writeTwice(WriteRequest entry, RowStatus status) {
    unregisterWriteRoute(page_.session(), page_.itemType());
    WriteRequest activation = page_.newRequest();
    if (!entry || !activation) {
        return;
    }
    entry.markFirstOfTwo();
    if (!entry.post()) {
        return;
    }
    cycle_.disableForWrite();
    cancelBtn->setEnabled(false);
    platform::pause(kBetweenWrites);
    cancelBtn->setEnabled(true);
    cycle_.startTimer();
    activation.bind({"vlanRowStatus"}, rowStatusText(status), portInstance());
    cycle_.finishWrite(std::move(activation));
}

} // namespace onudesk
