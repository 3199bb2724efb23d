// SPDX-License-Identifier: MIT
#include "pages/mac/onu_mac_filter.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace onudesk {

namespace {

constexpr int kListFull = 3038;

constexpr const char* kMacColumn = "1.3.6.1.4.1.27315.1.9.5.2.1.1"; // without catalogue
constexpr const char* kDeleted = "MAC";                             // in the question

// Columns; the first two have the values of these positions.
constexpr std::size_t kMac = 0;
constexpr std::size_t kVlan = 1;
constexpr std::size_t kInstance = 2;     // not shown
constexpr std::size_t kFullPosition = 2; // in the reply

constexpr const char* kMacObject = "onuMacBlackHoleMac";
constexpr const char* kVlanObject = "onuMacBlackHoleVlan";
constexpr const char* kRowStatusObject = "onuMacBlackHoleRowStatus";

} // namespace

TOnuMacFilter::TOnuMacFilter(Session& session, std::int32_t itemType, QWidget* parent)
    : ListPage(session, itemType,
               {.helpKeyId = 6223,
                .config = {"cfgBtn", 61906},
                .refresh = {"refreshBtn", 61908},
                .onDecoded = OnDecoded::followsFlag,
                .flagSetsRefresh = true,
                .resultText = "maintable",
                .minimumValues = 4},
               parent) {
    mainTable->setColumns({{.titleId = 61901, .position = kMac, .show = macText},
                           {.titleId = 61902, .position = kVlan},
                           instanceColumn(oidOf({kMacObject}, kMacColumn))});
    editRowsIn([this](int /*row*/) { return new TOnuMacFilterItem(*this); });
    deleteRowsBy({.captionId = 61907,
                  .asks = true,
                  .what = kDeleted,
                  .remembersRow = false,
                  .bindings = {{kMacObject, kMac, Deletion::Take::mac}, {kVlanObject, kVlan}},
                  .rowStatus = {kRowStatusObject},
                  .instance = [](const RowCopy& row) { return row.cells[kInstance]; }});
    start();
}

void TOnuMacFilter::showReply(const ReadResult& result) {
    ListPage::showReply(result);
    listFull_ = leadingNumber(result.values[kFullPosition]) == 1;
}

void TOnuMacFilter::configBtnClick() {
    if (listFull_) {
        refuse({kListFull}, mainTable);
    } else {
        openRow(-1);
    }
}

TOnuMacFilterItem::TOnuMacFilterItem(TOnuMacFilter& page)
    : ItemDialog(page,
                 {.name = "TOnuMacFilterItem",
                  .titleId = 61903,
                  .fields = {{.control = "macMaskEdit",
                              .labelId = 61904,
                              .kind = ControlKind::mac,
                              .object = {kMacObject},
                              .check = macAddress(),
                              .written = Written::always},
                             {.control = "vlanEdit",
                              .labelId = 61905,
                              .typing = {.digitsOnly = true},
                              .object = {kVlanObject},
                              .check = numberIn(1, 4094),
                              .written = Written::always},
                             rowStatus({kRowStatusObject})},
                  .ok = {"OK", message::ok},
                  .cancel = {"Cancel", message::cancel}},
                 -1),
      session_(page.session()) {}

// Whatever number the new entry gets.
std::string TOnuMacFilterItem::instance() const {
    return session_.OnuIndexText + ".1";
}

} // namespace onudesk
