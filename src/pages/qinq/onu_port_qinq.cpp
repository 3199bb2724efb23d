// SPDX-License-Identifier: MIT
#include "pages/qinq/onu_port_qinq.h"

namespace onudesk {

namespace {

constexpr int kQinQIsOff = 11062;

} // namespace

TOnuPortQinQ::TOnuPortQinQ(Session& session, std::int32_t itemType, QWidget* parent)
    : ListPage(session, itemType,
               {.helpKeyId = 6216, .resultText = "maintable", .minimumValues = 1}, parent) {
    mainTable->setColumns(
        {{.titleId = message::portNumber}, {.titleId = 64601, .position = 0, .map = &roles_}});
    start();
}

void TOnuPortQinQ::otherReply(const ReadResult& result) {
    if (result.resultText == "switchqinqstate" && !result.values.empty()) {
        isQinQOn_ = result.values.front() != "0";
    }
}

void TOnuPortQinQ::openRow(int row) {
    if (isQinQOn_) {
        TOnuPortQinQItem(*this, row).exec();
    } else {
        refuse({kQinQIsOff}, mainTable);
    }
}

TOnuPortQinQItem::TOnuPortQinQItem(TOnuPortQinQ& page, int row)
    : ItemDialog(
          page,
          {.titleId = 64602,
           .fields = {{.control = "portNoEdt", .labelId = message::portNumber, .position = 0},
                      {.control = "qinqModeComb",
                       .labelId = 64603,
                       .kind = ControlKind::combo,
                       .position = 1,
                       .object = {"lanQinQPortMode"},
                       .codes = {&page.roles()},
                       .written = Written::always}},
           .ok = {"okBtn", message::okay}},
          row) {}

} // namespace onudesk
