// SPDX-License-Identifier: MIT
#include "pages/port/onu_port_poe.h"

#include "env/language_module.h"

namespace onudesk {

namespace {

constexpr int kUnsupported = 3194;
constexpr int kFirstPort = 11774;
constexpr std::size_t kMode = 0; // positions in the reply
constexpr std::size_t kState = 1;

} // namespace

TOnuPortPoE::TOnuPortPoE(Session& session, std::int32_t itemType, QWidget* parent)
    : ListPage(session, itemType,
               {.helpKeyId = 6256, .resultText = "maintable", .minimumValues = 2}, parent),
      states_({{messageText(message::no), "0"}, {messageText(message::yes), "1"}}),
      modes_({{messageText(message::on), "0"}, {messageText(message::off), "1"}}) {
    mainTable->setColumns({{.titleId = message::portNumber},
                           {.titleId = 88801, .position = kState, .map = &states_},
                           {.titleId = 88802, .position = kMode, .map = &modes_}});
    start();
}

void TOnuPortPoE::prepareRefresh() {
    poeUnsupported_ = false;
    ListPage::prepareRefresh();
}

void TOnuPortPoE::fillPage(const ReadResult& result) {
    if (modes_.hasValue(result.values[kMode]) && states_.hasValue(result.values[kState])) {
        ListPage::fillPage(result);
    } else if (!poeUnsupported_) {
        poeUnsupported_ = true;
        refuse({kUnsupported}, nullptr);
    }
}

void TOnuPortPoE::configBtnClick() {
    if (poeUnsupported_) {
        refuse({kUnsupported}, mainTable);
        return;
    }
    // Nothing is configured on the first row.
    if (mainTable->selectedRow() == 0) {
        mainTable->rememberRow(0);
        refuse({kFirstPort}, mainTable);
        return;
    }
    ListPage::configBtnClick();
}

void TOnuPortPoE::openRow(int row) {
    registerWriteRoute(session(), itemType(), replyHandle());
    TOnuPortPoEItem(*this, row).exec();
}

TOnuPortPoEItem::TOnuPortPoEItem(TOnuPortPoE& page, int row)
    : ItemDialog(
          page,
          {.fields = {{.control = "portNoEdt", .labelId = message::portNumber, .position = 0},
                      {.control = "enableComb",
                       .labelId = 88802,
                       .kind = ControlKind::combo,
                       .position = 2,
                       .object = {"onuportpoemode"},
                       .codes = {&page.modes()},
                       .written = Written::always}}},
          row) {}

} // namespace onudesk
