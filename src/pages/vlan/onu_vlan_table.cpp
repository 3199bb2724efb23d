// SPDX-License-Identifier: MIT
#include "pages/vlan/onu_vlan_table.h"

#include "env/language_module.h"

#include <QStyledItemDelegate>

namespace onudesk {

namespace {

// Positions of a row's values, which are also its columns.
constexpr std::size_t kVlan = 0;
constexpr std::size_t kPon = 1;
constexpr std::size_t kPonTag = 2;
constexpr std::size_t kUni = 3;
constexpr std::size_t kUniTag = 4;

constexpr const char* kEndMembership = "2"; // a tag

// The sides as the membership of the PON side is written for them.
ValueMap sides() {
    return ValueMap({{"PON", "1"}, {"UNI", "0"}});
}

ValueMap tagging() {
    return ValueMap({{"Tag", "0"}, {"UnTag", "1"}, {"delete", kEndMembership}});
}

class CentredDelegate : public QStyledItemDelegate {
public:
    explicit CentredDelegate(QObject* parent) : QStyledItemDelegate(parent) {
        setObjectName(QStringLiteral("centred"));
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->displayAlignment = Qt::AlignCenter;
    }
};

} // namespace

TOnuVlanTable::TOnuVlanTable(Session& session, std::int32_t itemType, QWidget* parent)
    : ListPage(session, itemType,
               {.helpKeyId = 6211,
                .config = {"addBtn", message::config},
                .onDecoded = OnDecoded::followsFlag,
                .resultText = "maintable",
                .minimumValues = 5},
               parent) {
    const ValueMap membership({{messageText(message::yes), "1"}});
    mainTable->setColumns({{.titleId = 61101, .position = kVlan, .isKey = true},
                           {.titleId = 61102, .position = kPon, .codes = membership},
                           {.titleId = 61103, .position = kPonTag, .codes = tagging()},
                           {.titleId = 61104, .position = kUni, .codes = membership},
                           {.titleId = 61105, .position = kUniTag, .codes = tagging()}});
    mainTable->setItemDelegateForColumn(static_cast<int>(kPon), new CentredDelegate(mainTable));
    editRowsIn([this](int row) { return new TOnuVlanItem(*this, row); });
    start();
}

void TOnuVlanTable::rowArrived(int row, const ReadResult& /*result*/) {
    if (addMode_ && mainTable->cell(row, kVlan) == lastVlan_) {
        mainTable->selectRow(row);
    }
}

void TOnuVlanTable::configBtnClick() {
    const int row = mainTable->selectedRow();
    addMode_ = row < 0;
    mainTable->rememberRow(row);
    openRow(row);
}

TOnuVlanItem::TOnuVlanItem(TOnuVlanTable& page, int row)
    : ItemDialog(page,
                 {.name = "TOnuVlanItem",
                  .titleId = 61109,
                  .fields = {{.control = "vlanIdEdt",
                              .labelId = 61106,
                              .typing = {4, true},
                              .position = kVlan,
                              .check = numberIn(1, 4094, EmptyText::takesFocus),
                              .written = Written::always},
                             {.control = "portComb",
                              .labelId = 61107,
                              .kind = ControlKind::combo,
                              .codes = sides()},
                             {.control = "tagComb",
                              .labelId = 61108,
                              .kind = ControlKind::combo,
                              .codes = tagging()}},
                  .ok = {"okBtn", message::okay}},
                 row),
      vlanIdEdt(fields().control<QLineEdit>("vlanIdEdt")),
      portComb(fields().control<QComboBox>("portComb")),
      tagComb(fields().control<QComboBox>("tagComb")), page_(page) {
    portComb->setCurrentIndex(0);
    tagComb->setCurrentIndex(0);
    if (row >= 0) {
        showRow(row);
    }
}

// A row offers the end of its membership and nothing else.
void TOnuVlanItem::showRow(int row) {
    const bool isOnPon = page_.mainTable->values(row)[kPon] == "1";
    selectOrClear(*portComb, isOnPon ? "1" : "0");
    selectOrClear(*tagComb, kEndMembership);
    vlanIdEdt->setEnabled(false);
    portComb->setEnabled(false);
    tagComb->setEnabled(false);
}

bool TOnuVlanItem::mayWrite() {
    FieldState state = stateOf(*vlanIdEdt);
    state.enabled = true; // a row's VLAN is checked, too
    const auto failure = checkField(fields().at("vlanIdEdt"), state);
    if (failure) {
        refuse(*failure, vlanIdEdt);
        return false;
    }
    page_.setLastVlan(state.text);
    return true;
}

void TOnuVlanItem::bindWrite(WriteRequest& request) {
    const std::string vlan = stateOf(*vlanIdEdt).text;
    const std::string tag = selectedCode(*tagComb).value_or(std::string());
    const bool isPon = selectedCode(*portComb) == "1";
    const ObjectName status{"rowStatus", "rowstat"};
    request.bind(status, rowStatusText(RowStatus::createAndGo), instance());
    request.bind({"vlanId"}, vlan, instance());
    request.bind({"pon"}, isPon ? "1" : "0", instance());
    request.bind({"uni"}, isPon ? "0" : "1", instance());
    request.bind({"port0Untag"}, isPon ? tag : "0", instance());
    request.bind({"port1Untag"}, isPon ? "0" : tag, instance());
    request.bind(status, rowStatusText(RowStatus::createAndWait), instance());
}

} // namespace onudesk
