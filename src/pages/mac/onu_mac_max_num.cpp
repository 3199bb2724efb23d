// SPDX-License-Identifier: MIT
#include "pages/mac/onu_mac_max_num.h"

#include "pages/framework/form_grid.h"

namespace onudesk {

TOnuMacMaxNum::TOnuMacMaxNum(Session& session, std::int32_t itemType, QWidget* parent)
    : ListPage(session, itemType,
               {.helpKeyId = 6226,
                .config = {"cfgBtn", 64405},
                .refresh = {"refreshBtn", 64406},
                .resultText = "maintable",
                .minimumValues = 1},
               parent) {
    mainTable->setColumns(
        {{.titleId = message::portNumber, .required = true}, {.titleId = 64401, .position = 0}});
    start();
}

void TOnuMacMaxNum::openRow(int row) {
    TOnuMacMaxNumItem(*this, row).exec();
}

TOnuMacMaxNumItem::TOnuMacMaxNumItem(TOnuMacMaxNum& page, int row)
    : ItemDialog(page,
                 {.titleId = 64402,
                  .fields = {{.control = "portEdit",
                              .labelId = message::portNumber,
                              .typing = {.bytes = 4},
                              .position = 0},
                             {.control = "maxnumEdit",
                              .labelId = 64403,
                              .typing = {.digitsOnly = true},
                              .position = 1,
                              .object = {"lanMaxMacLimitNum"},
                              .check = numberIn(0, 1000),
                              .written = Written::always}},
                  .ok = {"okBtn", message::okay}},
                 row) {
    addNote(*fields().control("maxnumEdit")->parentWidget(), 64404);
}

} // namespace onudesk
