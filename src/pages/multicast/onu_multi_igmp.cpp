// SPDX-License-Identifier: MIT
#include "pages/multicast/onu_multi_igmp.h"

#include "pages/framework/vlan_list.h"

#include <utility>

namespace onudesk {

namespace {

constexpr int kLocked = 3040;
constexpr int kTooManyVlans = 3042;
constexpr int kTooManyGroups = 3043; // before the maximum
constexpr int kBadVlanList = 3044;
constexpr std::size_t kMostVlans = 8; // of one request

// Columns.
constexpr std::size_t kPort = 0;
constexpr std::size_t kMaximum = 1;
constexpr std::size_t kVlans = 2;

std::set<int> vlansOf(const std::string& list) {
    return parseVlanList(list).value_or(std::set<int>());
}

} // namespace

TOnuMultiIGMP::TOnuMultiIGMP(Session& session, std::int32_t itemType, QWidget* parent)
    : ListPage(session, itemType,
               {.helpKeyId = 6230,
                .config = {"cfgBtn", message::config},
                .resultText = "maintable",
                .minimumValues = 2},
               parent) {
    mainTable->setColumns({{.titleId = message::portNumber, .required = true},
                           {.titleId = 62601, .position = 0},
                           {.titleId = 62602, .position = 1}});
    editRowsIn([this](int row) { return new TOnuMultiIGMPItem(*this, row); });
    onGroup("group1", [this](const ReadResult& result) {
        locked_ = leadingNumber(result.values.front()).value_or(0) != 0;
    });
    start();
}

void TOnuMultiIGMP::configBtnClick() {
    if (locked_) {
        refuse({kLocked, {}, message::errorCaption}, mainTable);
    } else {
        ListPage::configBtnClick();
    }
}

TOnuMultiIGMPItem::TOnuMultiIGMPItem(TOnuMultiIGMP& page, int row)
    : ItemDialog(
          page,
          {.name = "TOnuMultiIGMPItem",
           .titleId = 62604,
           .fields = {{.control = "portEdit", .labelId = message::portNumber, .position = kPort},
                      {.control = "maxGroupEdit",
                       .labelId = 62601,
                       .typing = {.digitsOnly = true},
                       .position = kMaximum,
                       .object = {"lanMultiMaxGrp"},
                       .check = numberIn(1, 255),
                       .written = Written::always,
                       .enabledBy = radioButton("maxGroupRabtn", true)},
                      {.control = "vlanlistMemo",
                       .labelId = 62603,
                       .kind = ControlKind::listMemo,
                       .position = kVlans,
                       .object = {"lanMultiVlanList"},
                       .written = Written::always,
                       .enabledBy = radioButton("vlanlistRabtn", true)}},
           .ok = {"okBtn", message::okay}},
          row),
      deleteBtn(addButton("deleteBtn", message::remove, [this] { deleteBtnClick(); })), page_(page),
      maxGroupEdit_(fields().control<QLineEdit>("maxGroupEdit")),
      vlanlistRabtn_(fields().control<QRadioButton>("vlanlistRabtn")),
      vlanlistMemo_(fields().control<QPlainTextEdit>("vlanlistMemo")),
      listed_(vlansOf(page.mainTable->cell(row, kVlans))) {
    connect(vlanlistRabtn_, &QRadioButton::toggled, deleteBtn, &QWidget::setEnabled);
    deleteBtn->setEnabled(false);
}

std::optional<std::set<int>> TOnuMultiIGMPItem::typedVlans() const {
    const std::string text = stateOf(*vlanlistMemo_).text;
    std::optional<std::set<int>> vlans = parseVlanList(text);
    if (text.empty()) {
        vlanlistMemo_->setFocus();
    } else if (!vlans) {
        refuse({kBadVlanList}, vlanlistMemo_);
    } else if (vlans->size() > kMostVlans) {
        refuse({kTooManyVlans}, vlanlistMemo_);
        vlans.reset();
    }
    return vlans;
}

bool TOnuMultiIGMPItem::mayWrite() {
    if (!vlanlistRabtn_->isChecked()) {
        return ItemDialog::mayWrite();
    }
    std::optional<std::set<int>> vlans = typedVlans();
    if (!vlans) {
        return false;
    }
    vlans->insert(listed_.begin(), listed_.end());
    const std::int64_t maximum = leadingNumber(stateOf(*maxGroupEdit_).text).value_or(0);
    const bool fits = std::ssize(*vlans) <= maximum;
    if (!fits) {
        refuse({.textId = kTooManyGroups, .after = std::to_string(maximum)}, vlanlistMemo_);
    }
    return fits;
}

void TOnuMultiIGMPItem::bindWrite(WriteRequest& request) {
    ItemDialog::bindWrite(request);
    if (vlanlistRabtn_->isChecked()) {
        request.bind({"lanMultiRowStatus"}, rowStatusText(RowStatus::createAndGo), instance());
    }
}

void TOnuMultiIGMPItem::deleteBtnClick() {
    const std::optional<std::set<int>> vlans = typedVlans();
    if (!vlans) {
        return;
    }
    if (WriteRequest request = page_.beginWrite()) {
        request.bind({"lanMultiVlanList"}, vlanListText(*vlans), instance());
        request.bind({"lanMultiRowStatus"}, rowStatusText(RowStatus::destroy), instance());
        page_.finishWrite(std::move(request));
        accept();
    }
}

} // namespace onudesk
