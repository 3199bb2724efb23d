// SPDX-License-Identifier: MIT
#include "pages/multicast/onu_multi_report.h"

namespace onudesk {

TOnuMultiReport::TOnuMultiReport(Session& session, std::int32_t itemType, QWidget* parent)
    : ListPage(session, itemType,
               {.helpKeyId = 6229,
                .config = {"cfgBtn", message::config},
                .resultText = "maintable",
                .minimumValues = 1},
               parent) {
    mainTable->setColumns({{.titleId = message::portNumber, .required = true},
                           {.titleId = 62501, .position = 0, .map = &tags_}});
    start();
}

void TOnuMultiReport::openRow(int row) {
    TOnuMultiReportItem(*this, row).exec();
}

TOnuMultiReportItem::TOnuMultiReportItem(TOnuMultiReport& page, int row)
    : ItemDialog(page,
                 {.titleId = 62502,
                  .fields = {{.control = "portEdit", .labelId = message::portNumber, .position = 0},
                             {.control = "tagComb",
                              .labelId = 62501,
                              .kind = ControlKind::combo,
                              .position = 1,
                              .object = {"lanMultiTag"},
                              .codes = {&page.tags()},
                              .written = Written::always}},
                  .ok = {"okBtn", message::okay}},
                 row) {}

} // namespace onudesk
