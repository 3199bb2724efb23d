// SPDX-License-Identifier: MIT
#include "pages/multicast/onu_control_multi.h"

#include "env/language_module.h"
#include "pages/framework/field_kinds.h"

#include <utility>

namespace onudesk {

namespace {

constexpr int kNotControllable = 3039;
constexpr int kNoMulticastMac = 3041;
constexpr int kPermit = 3100;
constexpr int kPreview = 3101;

constexpr const char* kMulticastMacs = "01:00:5e:"; // what their addresses begin with
constexpr const char* kNewMac = "01:00:5E:  :  :  ";
constexpr const char* kFirstColumn = "1.3.6.1.4.1.27315.1.9.6.3.1.1"; // without catalogue

// Columns; the shown ones have the first values of the reply.
constexpr std::size_t kIndex = 0;
constexpr std::size_t kMac = 1;
constexpr std::size_t kVlan = 2;
constexpr std::size_t kType = 3;
constexpr std::size_t kInstance = 4; // not shown

// Positions in the reply.
constexpr std::size_t kPortCount = 4;
constexpr std::size_t kControllable = 5;

ValueMap types() {
    return ValueMap({{messageText(kPermit), "0"}, {messageText(kPreview), "1"}});
}

} // namespace

TOnuControlMulti::TOnuControlMulti(Session& session, std::int32_t itemType, QWidget* parent)
    : PortListPage(session, itemType,
                   {.helpKeyId = 6228,
                    .config = {"cfgBtn", message::config},
                    .resultText = "maintable",
                    .minimumValues = 7},
                   {.countPosition = kPortCount}, parent) {
    mainTable->setColumns({{.titleId = 62101, .position = kIndex},
                           {.titleId = 62102, .position = kMac, .show = macText},
                           {.titleId = 62103, .position = kVlan},
                           {.titleId = 62104, .position = kType, .codes = types()},
                           instanceColumn(oidOf({"multiMacIndex"}, kFirstColumn))});
    editRowsIn([this](int row) { return new TOnuControlMultiItem(*this, row); });
    deleteRowsBy({.asks = true,
                  .bindings = {{"multiMacIndex", kIndex},
                               {"multiMac", kMac, Deletion::Take::mac},
                               {"multiVlan", kVlan},
                               {"multiType", kType, Deletion::Take::value}},
                  .rowStatus = {"multiRowStatus"},
                  .instance = [](const RowCopy& row) { return row.cells[kInstance]; }});
    start();
}

void TOnuControlMulti::showReply(const ReadResult& result) {
    PortListPage::showReply(result);
    controllable_ = leadingNumber(result.values[kControllable]) == 1;
}

void TOnuControlMulti::configBtnClick() {
    if (controllable_) {
        PortListPage::configBtnClick();
    } else {
        refuse({kNotControllable, {}, message::errorCaption}, mainTable);
    }
}

TOnuControlMultiItem::TOnuControlMultiItem(TOnuControlMulti& page, int row)
    : ItemDialog(
          page,
          {.name = "TOnuControlMultiItem",
           .titleId = 62105,
           .fields = {{.control = "portEdit", .labelId = message::portNumber},
                      {.control = "indexEdit",
                       .labelId = 62101,
                       .position = kIndex,
                       .object = {"multiMacIndex"},
                       .written = Written::always},
                      {.control = "macMaskEdit",
                       .labelId = 62102,
                       .kind = ControlKind::mac,
                       .object = {"multiMac"},
                       .written = Written::always},
                      numberField("vlanEdit", 62106, -1, kVlan, "multiVlan", numberIn(1, 4094)),
                      comboField("typeComb", 62107, kType, "multiType", types()),
                      rowStatus({"multiRowStatus"})},
           .ok = {"OKBtn", message::ok},
           .cancel = {"CancelBtn", message::cancel}},
          row),
      macMaskEdit(fields().control<QLineEdit>("macMaskEdit")), page_(page),
      indexEdit_(fields().control<QLineEdit>("indexEdit")) {
    auto* portEdit = fields().control<QLineEdit>("portEdit");
    setControlText(*portEdit, page.port());
    portEdit->setEnabled(false);
    indexEdit_->setEnabled(false);
    const bool isFilled = page.mainTable->cell(row, kVlan) != "0";
    setControlText(*macMaskEdit, isFilled ? page.mainTable->cell(row, kMac) : kNewMac);
    macMaskEdit->setEnabled(!isFilled);
}

// The address is checked even where it cannot be changed.
bool TOnuControlMultiItem::mayWrite() {
    MacCheck mac =
        checkMac(stateOf(*macMaskEdit).text, message::badMac, platform::PromptIcon::warning);
    if (!mac.failure && !mac.address.starts_with(kMulticastMacs)) {
        mac.failure = CheckFailure{kNoMulticastMac, {}, message::errorCaption};
    }
    if (mac.failure) {
        refuse(*mac.failure, macMaskEdit);
        return false;
    }
    return ItemDialog::mayWrite();
}

std::string TOnuControlMultiItem::instance() const {
    return page_.session().OnuIndexText + "." + page_.port() + "." + stateOf(*indexEdit_).text;
}

} // namespace onudesk
