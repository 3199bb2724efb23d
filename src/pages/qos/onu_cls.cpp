// SPDX-License-Identifier: MIT
#include "pages/qos/onu_cls.h"

#include "pages/framework/field_kinds.h"

#include <algorithm>

#include <QGroupBox>

namespace onudesk {

namespace {

constexpr const char* kAllPorts = "all";

constexpr int kNothingChosen = 3021;
constexpr int kSameRule = 11157;
constexpr int kSlotFilled = 11686;

constexpr std::size_t kMostMatches = 3;
constexpr int kDigits = 4;

// Columns; the one behind the row's index has the first value of the reply, and so on.
constexpr std::size_t kIndex = 0;
constexpr std::size_t kPrecedence = 1;
constexpr std::size_t kFirstMatch = 4;
constexpr std::size_t kAnyTraffic = 16; // not shown
constexpr std::size_t kPortCount = 17;  // position in the reply
constexpr int kFirstTitle = 61301;      // of the columns, in their order

// A header field: DestIp has the check box DestIpChBox, the edit DestIpEdit, the object clsDestIp.
struct Match {
    const char* name;
    const char* unset; // in the signature of a rule that does not match by the field
    FieldCheck check;
    ControlKind kind = ControlKind::edit;
    Typing typing{};
    std::string (*show)(const std::string& value) = nullptr; // in the list
};

Match ipAddress(const char* name) {
    return {name, "0.0.0.0", dottedQuad()};
}

Match macMatch(const char* name) {
    return {name, "00:00:00:00:00:00", macAddress(), ControlKind::mac, {}, colonSeparated};
}

Match number(const char* name, const FieldCheck& check) {
    return {name, "0", check, ControlKind::edit, {.digitsOnly = true}};
}

FieldCheck upTo(std::int64_t maximum) {
    return numberIn(0, maximum, EmptyText::takesFocus);
}

std::string etherTypeText(const std::string& value) {
    return hexOfDecimal(value, kDigits);
}

// In the order of columns, signatures and bindings.
const std::vector<Match>& matches() {
    static const std::vector<Match> all = {
        ipAddress("DestIp"),
        macMatch("DestMac"),
        number("DestPort", upTo(65535)),
        number("Dot1qPriority", upTo(7)),
        number("Dscp", upTo(63)),
        {"EthType",
         "0000",
         hexIn(0, 65535, EmptyText::takesFocus),
         ControlKind::edit,
         {.bytes = kDigits},
         etherTypeText},
        number("IpProtocol", upTo(255)),
        number("Ipv6Precedence", upTo(63)),
        ipAddress("SrcIp"),
        macMatch("SrcMac"),
        number("SrcPort", upTo(65535)),
        number("Vlan", numberIn(1, 4094)),
    };
    return all;
}

std::vector<Column> columns() {
    std::vector<Column> all = {{.titleId = kFirstTitle}};
    all.reserve(kAnyTraffic + 1);
    for (std::size_t at = 1; at < kAnyTraffic; ++at) {
        const bool isMatch = at >= kFirstMatch;
        all.push_back({.titleId = kFirstTitle + static_cast<int>(at),
                       .position = at - 1,
                       .show = isMatch ? matches()[at - kFirstMatch].show : nullptr});
    }
    all.push_back({.position = kAnyTraffic - 1, .hidden = true});
    return all;
}

std::vector<Field> slotFields() {
    return {{.control = "portEdit", .labelId = message::portNumber},
            {.control = "clsEdit", .labelId = kFirstTitle, .position = kIndex},
            {.control = "indexEdit",
             .labelId = 61318,
             .position = kIndex,
             .object = {"clsPrecedenceIndex"},
             .written = Written::always},
            numberField("QuemappedEdit", 61319, kDigits, 2, "clsQuemapped", upTo(7)),
            numberField("EthPriorityEdt", 61320, kDigits, 3, "clsEthPriority", upTo(7)),
            {.labelId = 61321,
             .kind = ControlKind::none,
             .object = {"clsPhyPort"},
             .written = Written::always,
             .enabledBy = checkBox("PhyPortChBox"),
             .constant = "1"}};
}

std::vector<Field> matchFields() {
    std::vector<Field> fields;
    fields.reserve(matches().size());
    for (const Match& match : matches()) {
        const std::string name = match.name;
        const std::size_t column = kFirstMatch + fields.size();
        fields.push_back({.control = name + "Edit",
                          .labelId = kFirstTitle + static_cast<int>(column),
                          .kind = match.kind,
                          .typing = match.typing,
                          .position = column,
                          .object = {"cls" + name},
                          .check = match.check,
                          .written = Written::whileEnabled,
                          .enabledBy = {.tick = name + "ChBox"}});
    }
    return fields;
}

} // namespace

TOnuCls::TOnuCls(Session& session, std::int32_t itemType, QWidget* parent)
    : PortListPage(session, itemType,
                   {.helpKeyId = 6220,
                    .group = "maingroup",
                    .config = {"cfgBtn", message::config},
                    .onDecoded = OnDecoded::followsFlag,
                    .resultText = "maingroup",
                    .minimumValues = 18},
                   {.countPosition = kPortCount}, parent) {
    mainTable->setColumns(columns());
    // Neither reads nor writes take it away.
    deleteBtn = makeButton(bottomPanel, "deleteBtn", message::remove, [this] { deleteBtnClick(); });
    buttonRow().insertWidget(1, deleteBtn);
    editRowsIn([this](int row) { return new TOnuClsItem(*this, row); });
    start();
}

bool TOnuCls::showsAllPorts() const {
    return portComb->currentText() == QLatin1String(kAllPorts);
}

std::string TOnuCls::port() const {
    return showsAllPorts() ? "1" : PortListPage::port();
}

void TOnuCls::rowArrived(int row, const ReadResult& result) {
    const bool isFilled = portComb->count() > 0;
    PortListPage::rowArrived(row, result);
    if (!isFilled && portComb->count() > 0) {
        portComb->addItem(QString::fromLatin1(kAllPorts));
    }
}

bool TOnuCls::isFilled(int row) const {
    return mainTable->cell(row, kPrecedence) != "0";
}

bool TOnuCls::listsAnyRule() const {
    for (int row = 0; row < mainTable->rowCount(); ++row) {
        if (mainTable->cell(row, kAnyTraffic) == "1") {
            return true;
        }
    }
    return false;
}

bool TOnuCls::listsSignature(const std::string& signature) const {
    for (int row = 0; row < mainTable->rowCount(); ++row) {
        std::string listed;
        for (std::size_t at = 0; at < matches().size(); ++at) {
            listed += mainTable->cell(row, kFirstMatch + at) + ";";
        }
        if (listed == signature && mainTable->cell(row, kAnyTraffic) == "0") {
            return true;
        }
    }
    return false;
}

void TOnuCls::configBtnClick() {
    const int row = mainTable->selectedRow();
    if (row >= 0 && isFilled(row) && !showsAllPorts()) {
        refuse({kSlotFilled}, mainTable);
    } else {
        PortListPage::configBtnClick();
    }
}

void TOnuCls::deleteBtnClick() {
    const int row = requireRow();
    if (row < 0) {
        return;
    }
    if (!isFilled(row)) {
        refuse({message::nothingToDelete}, mainTable);
        return;
    }
    mainTable->rememberRow(row);
    if (WriteRequest request = beginWrite()) {
        // The ONU finds the rule by its precedence, whatever slot is named.
        const std::string slot = session().OnuIndexText + "." + port() + ".1";
        request.bind({"clsPrecedenceIndex"}, mainTable->cell(row, kPrecedence), slot);
        request.bind({"clsRowStatus", "rowstat"}, rowStatusText(RowStatus::destroy), slot);
        finishWrite(std::move(request));
    }
}

TOnuClsItem::TOnuClsItem(TOnuCls& page, int row)
    : ItemDialog(page,
                 {.name = "TOnuClsItem",
                  .titleId = 61317,
                  .fields = slotFields(),
                  .pairs = 2,
                  .ok = {"OKBtn", message::ok}},
                 row),
      PhyPortChBox(fields().control<QCheckBox>("PhyPortChBox")), page_(page) {
    auto* matchGroup = new QGroupBox(WorkPanel);
    matchGroup->setObjectName(QStringLiteral("matchGroup"));
    setCaption(*matchGroup, 61322);
    addFields(*matchGroup, matchFields(), 2);
    fields().showRow(*page.mainTable, row);
    for (const char* name : {"portEdit", "clsEdit", "indexEdit"}) {
        edit(name)->setEnabled(false);
    }
    setControlText(*edit("portEdit"), bytesOf(page.portComb->currentText()));
    PhyPortChBox->setEnabled(!page.listsAnyRule());
    connect(PhyPortChBox, &QCheckBox::clicked, this, &TOnuClsItem::PhyPortChBoxClick);
    boxes_.reserve(matches().size());
    edits_.reserve(matches().size());
    for (const Match& match : matches()) {
        const std::string name = match.name;
        boxes_.push_back(fields().control<QCheckBox>(name + "ChBox"));
        edits_.push_back(edit(name + "Edit"));
        connect(boxes_.back(), &QCheckBox::clicked, this, &TOnuClsItem::matchBoxClick);
    }
}

QLineEdit* TOnuClsItem::edit(const std::string& name) const {
    return fields().control<QLineEdit>(name);
}

std::size_t TOnuClsItem::chosen() const {
    return static_cast<std::size_t>(std::ranges::count_if(boxes_, &QCheckBox::isChecked));
}

void TOnuClsItem::enableMatches(bool unticked, bool ticked) {
    for (std::size_t at = 0; at < boxes_.size(); ++at) {
        const bool enabled = boxes_[at]->isChecked() ? ticked : unticked;
        boxes_[at]->setEnabled(enabled);
        edits_[at]->setEnabled(enabled);
    }
}

void TOnuClsItem::PhyPortChBoxClick() {
    const bool byFields = !PhyPortChBox->isChecked();
    enableMatches(byFields, byFields);
}

void TOnuClsItem::matchBoxClick(bool checked) {
    enableMatches(!checked || chosen() < kMostMatches, true);
}

std::string TOnuClsItem::signature() const {
    std::string text;
    for (std::size_t at = 0; at < boxes_.size(); ++at) {
        const Match& match = matches()[at];
        std::string typed = stateOf(*edits_[at]).text;
        if (match.kind == ControlKind::mac) {
            typed = checkMac(typed, message::badMac, {}).address;
        }
        text += (boxes_[at]->isChecked() ? typed : match.unset) + ";";
    }
    // Digits and points stay what they are.
    return bytesOf(shown(text).toUpper());
}

bool TOnuClsItem::mayWrite() {
    // Both must be there before either is judged.
    for (const char* name : {"QuemappedEdit", "EthPriorityEdt"}) {
        if (edit(name)->text().isEmpty()) {
            edit(name)->setFocus();
            return false;
        }
    }
    if (!ItemDialog::mayWrite()) {
        return false;
    }
    if (PhyPortChBox->isChecked()) {
        return true;
    }
    const int refusal = chosen() == 0                       ? kNothingChosen
                        : page_.listsSignature(signature()) ? kSameRule
                                                            : 0;
    if (refusal != 0) {
        refuse({refusal}, nullptr);
    }
    return refusal == 0;
}

void TOnuClsItem::bindWrite(WriteRequest& request) {
    ItemDialog::bindWrite(request);
    if (page_.showsAllPorts()) {
        request.bind({"clsAllPort"}, "1", instance());
    }
    request.bind({"clsRowStatus", "rowstat"}, rowStatusText(RowStatus::createAndGo), instance());
}

std::string TOnuClsItem::instance() const {
    return page_.session().OnuIndexText + "." + page_.port() + "." +
           stateOf(*edit("indexEdit")).text;
}

} // namespace onudesk
