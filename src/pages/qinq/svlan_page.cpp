// SPDX-License-Identifier: MIT
#include "pages/qinq/svlan_page.h"

#include <utility>

namespace onudesk {

namespace {

constexpr int kVlanUsed = 3046;
constexpr int kPortBlocked = 3049;
constexpr int kEndBeforeStart = 11222;
constexpr int kListFull = 11224;
constexpr const char* kMostRows = "150!"; // behind that message
constexpr int kIndexTitle = 64701;
constexpr const char* kPortEdit = "portnoEdt";

constexpr std::size_t kListIsFull = 0; // position in a reply
// Columns, and positions in a reply.
constexpr std::size_t kFirst = 1;
constexpr std::size_t kLast = 2;

std::vector<Column> columns(const SVlanRules& ranges) {
    std::vector<Column> all = {{.titleId = kIndexTitle, .required = true}};
    for (const SVlanNumber& number : ranges.numbers) {
        all.push_back({.titleId = number.titleId, .position = all.size()});
    }
    return all;
}

std::vector<Field> fieldsOf(const SVlanPage& page) {
    std::vector<Field> fields = {{.control = kPortEdit, .labelId = message::portNumber}};
    for (const SVlanNumber& number : page.ranges().numbers) {
        fields.push_back({.control = number.control,
                          .labelId = number.labelId,
                          .typing = {.bytes = page.ranges().typedBytes, .digitsOnly = true},
                          .object = {number.object},
                          .check = numberIn(1, 4094),
                          .written = Written::always});
    }
    // Between the ends only the ONU looks.
    for (const std::size_t end : {kFirst, kLast}) {
        fields[end].check->function = [&page](std::string_view vlan) {
            return page.isUsed(vlan) ? std::optional(CheckFailure{kVlanUsed}) : std::nullopt;
        };
        fields[end].check->messageIds = {kVlanUsed};
    }
    fields.push_back(rowStatus({page.ranges().rowStatus}));
    return fields;
}

bool isSet(const std::string& flag) {
    return leadingNumber(flag).value_or(0) != 0;
}

} // namespace

SVlanPage::SVlanPage(Session& session, std::int32_t itemType, SVlanRules ranges, QWidget* parent)
    : PortListPage(session, itemType,
                   {.helpKeyId = ranges.helpKeyId,
                    .config = {"cfgBtn", message::config},
                    .resultText = "maintable",
                    .minimumValues = ranges.minimumValues},
                   {.countPosition = ranges.portCount}, parent),
      ranges_(std::move(ranges)) {
    mainTable->setColumns(columns(ranges_));
    editRowsIn([this](int /*row*/) { return new SVlanItem(*this); });
    Deletion deletion{.rowStatus = {ranges_.rowStatus}, .instance = [this](const RowCopy& row) {
                          return this->session().OnuIndexText + "." + port() + "." + row.index;
                      }};
    for (const SVlanNumber& number : ranges_.numbers) {
        deletion.bindings.push_back({number.object, deletion.bindings.size() + kFirst});
    }
    deleteRowsBy(std::move(deletion));
    start();
}

void SVlanPage::prepareRefresh() {
    PortListPage::prepareRefresh();
    used_.clear();
}

void SVlanPage::rowArrived(int row, const ReadResult& result) {
    PortListPage::rowArrived(row, result);
    used_.add(valueAt(result, kFirst), valueAt(result, kLast));
    used_.add(valueAt(result, ranges_.otherRange), valueAt(result, ranges_.otherRange + 1));
    state_ = {.isFull = isSet(valueAt(result, kListIsFull)),
              .isBlocked = isSet(valueAt(result, ranges_.portBlocked)),
              .mode = valueAt(result, ranges_.mode)};
    if (rowId(mainTable->cell(row, kFirst)) == added_) {
        added_.clear();
        mainTable->rememberRow(row);
        mainTable->selectRow(row);
    }
}

CheckFailure SVlanPage::refusal() const {
    if (const int mode = ranges_.modeRefusal(state_.mode); mode != 0) {
        return {.textId = mode, .icon = platform::PromptIcon::information};
    }
    if (state_.isFull) {
        return {.textId = kListFull, .after = kMostRows};
    }
    return {.textId = state_.isBlocked ? kPortBlocked : 0};
}

void SVlanPage::configBtnClick() {
    const CheckFailure failure = refusal();
    if (failure.textId != 0) {
        refuse(failure, mainTable);
        return;
    }
    mainTable->rememberRow(mainTable->selectedRow());
    openRow(-1);
}

SVlanItem::SVlanItem(SVlanPage& page)
    : ItemDialog(page,
                 {.name = page.ranges().dialogName,
                  .titleId = page.ranges().dialogTitleId,
                  .fields = fieldsOf(page),
                  .ok = {"okBtn", message::okay}},
                 -1),
      page_(page) {
    setControlText(*fields().control(kPortEdit), bytesOf(page.portComb->currentText()));
}

QWidget& SVlanItem::edit(std::size_t number) const {
    return *fields().control(page_.ranges().numbers[number].control);
}

bool SVlanItem::mayWrite() {
    if (!ItemDialog::mayWrite()) {
        return false;
    }
    const auto number = [this](std::size_t at) { return leadingNumber(stateOf(edit(at)).text); };
    const bool inOrder = number(0) <= number(1);
    if (!inOrder) {
        refuse({kEndBeforeStart}, &edit(1));
    }
    return inOrder;
}

void SVlanItem::bindWrite(WriteRequest& request) {
    ItemDialog::bindWrite(request);
    page_.setAdded(stateOf(edit(0)).text);
}

std::string SVlanItem::instance() const {
    return page_.session().OnuIndexText + "." + page_.port() + ".1";
}

} // namespace onudesk
