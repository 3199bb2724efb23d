// SPDX-License-Identifier: MIT
#include "pages/lt/onu_lt_infa_status.h"

#include "env/language_module.h"

#include <QPlainTextEdit>

namespace onudesk {

namespace {

constexpr int kVoiceLine = 81501;
constexpr int kDescription = 81504;
constexpr int kMostCharacters = 50;

} // namespace

TOnuLTInfaStatus::TOnuLTInfaStatus(Session& session, std::int32_t itemType, QWidget* parent)
    : ListPage(session, itemType,
               {.helpKeyId = 6269,
                .onDecoded = OnDecoded::followsFlag,
                .flagSetsRefresh = true,
                .resultText = "maintable",
                .minimumValues = 3},
               parent),
      states_({{messageText(3168), "0"}, {messageText(3169), "1"}}) {
    mainTable->setColumns({{.titleId = kVoiceLine},
                           {.titleId = 81502, .position = 0, .map = &types_},
                           {.titleId = 81503, .position = 1, .map = &states_},
                           {.titleId = kDescription, .position = 2}});
    start();
}

void TOnuLTInfaStatus::openRow(int row) {
    TOnuLTInfaStatusItem(*this, row).exec();
}

TOnuLTInfaStatusItem::TOnuLTInfaStatusItem(TOnuLTInfaStatus& page, int row)
    : ItemDialog(page,
                 {.fields = {{.control = "portnoEdt", .labelId = kVoiceLine, .position = 0},
                             {.control = "descMemo",
                              .labelId = kDescription,
                              .kind = ControlKind::memo,
                              .position = 3,
                              .object = {"vgonuvoipDesc"},
                              .written = Written::always}},
                  .ok = {"okBtn", message::okay}},
                 row) {
    limitCharacters(*fields().control<QPlainTextEdit>("descMemo"), kMostCharacters);
}

} // namespace onudesk
