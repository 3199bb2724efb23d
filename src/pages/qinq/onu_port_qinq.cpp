// SPDX-License-Identifier: MIT
#include "pages/qinq/onu_port_qinq.h"

#include "pages/framework/field_kinds.h"

namespace onudesk {

namespace {

constexpr int kQinQIsOff = 11062;

} // namespace

TOnuPortQinQ::TOnuPortQinQ(Session& session, std::int32_t itemType, QWidget* parent)
    : ListPage(session, itemType,
               {.helpKeyId = 6216, .resultText = "maintable", .minimumValues = 1}, parent) {
    const ValueMap roles({{"uplink", "1"}, {"customer", "2"}});
    mainTable->setColumns(
        {{.titleId = message::portNumber}, {.titleId = 64601, .position = 0, .codes = roles}});
    editRowsIn({.name = "TOnuPortQinQItem",
                .titleId = 64602,
                .fields = {{.control = "portNoEdt", .labelId = message::portNumber, .position = 0},
                           comboField("qinqModeComb", 64603, 1, "lanQinQPortMode", roles)},
                .ok = {"okBtn", message::okay}});
    onGroup("switchqinqstate",
            [this](const ReadResult& result) { isQinQOn_ = result.values.front() != "0"; });
    start();
}

bool TOnuPortQinQ::mayOpen() {
    if (!isQinQOn_) {
        refuse({kQinQIsOff}, mainTable);
    }
    return isQinQOn_;
}

} // namespace onudesk
