// SPDX-License-Identifier: MIT
#include "pages/port/onu_port_poe.h"

#include "env/language_module.h"
#include "pages/framework/field_kinds.h"

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
                           {.titleId = 88801, .position = kState, .codes = states_},
                           {.titleId = 88802, .position = kMode, .codes = modes_}});
    editRowsIn({.name = "TOnuPortPoEItem",
                .fields = {{.control = "portNoEdt", .labelId = message::portNumber, .position = 0},
                           comboField("enableComb", 88802, 2, "onuportpoemode", modes_)},
                .registersWhenShown = true});
    start();
}

void TOnuPortPoE::prepareRefresh() {
    poeUnsupported_ = false;
    ListPage::prepareRefresh();
}

void TOnuPortPoE::showReply(const ReadResult& result) {
    if (modes_.hasValue(result.values[kMode]) && states_.hasValue(result.values[kState])) {
        ListPage::showReply(result);
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

} // namespace onudesk
