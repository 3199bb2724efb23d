// SPDX-License-Identifier: MIT
#include "pages/vlan/onu_port_mode_setting.h"

namespace onudesk {

TOnuPortModeSetting::TOnuPortModeSetting(Session& session, std::int32_t itemType, QWidget* parent)
    : ListPage(session, itemType,
               {.helpKeyId = 6252,
                .onDecoded = OnDecoded::followsFlag,
                .flagSetsRefresh = true,
                .resultText = "maintable",
                .minimumValues = 1},
               parent) {
    mainTable->setColumns({{.titleId = 67701}, {.titleId = 67702, .position = 0, .map = &modes_}});
    start();
}

void TOnuPortModeSetting::openRow(int row) {
    TOnuPortModeItem(*this, row).exec();
}

TOnuPortModeItem::TOnuPortModeItem(TOnuPortModeSetting& page, int row)
    : ItemDialog(page,
                 {.fields = {{.control = "portNoEdt", .labelId = 67701, .position = 0},
                             {.control = "ifModeComb",
                              .labelId = 67702,
                              .kind = ControlKind::combo,
                              .position = 1,
                              .object = {"lanTagMode"},
                              .codes = {&page.modes()},
                              .written = Written::always}},
                  .ok = {"Button1", message::okay},
                  .cancel = {"Button2", message::cancel}},
                 row) {}

} // namespace onudesk
