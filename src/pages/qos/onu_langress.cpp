// SPDX-License-Identifier: MIT
#include "pages/qos/onu_langress.h"

#include "env/language_module.h"

#include <optional>
#include <string>
#include <utility>

namespace onudesk {

namespace {

constexpr const char* kOn = "1";
constexpr const char* kIngress = "0";
constexpr const char* kEgress = "1";
constexpr const char* kBoth = "2";

// What the names of a direction's objects begin with.
constexpr const char* kIngressObjects = "lanIngress";
constexpr const char* kEgressObjects = "lanEgress";

ValueMap switches() {
    return ValueMap({{messageText(message::off), "0"}, {messageText(message::on), kOn}});
}

// Of a direction, written while that direction is chosen. Positions are columns of the page.
Field enabling(const char* control, int labelId, std::size_t position, const char* object,
               const char* direction) {
    return {.control = control,
            .labelId = labelId,
            .kind = ControlKind::combo,
            .position = position,
            .object = {object},
            .codes = switches(),
            .written = Written::always,
            .enabledBy = choiceIn("choiceComb", {direction, kBoth})};
}

Field rate(const char* control, int labelId, std::size_t position, const char* object,
           const char* enabling, std::int64_t minimum, std::int64_t maximum) {
    return {.control = control,
            .labelId = labelId,
            .typing = {.digitsOnly = true},
            .position = position,
            .object = {object},
            .check = numberIn(minimum, maximum, EmptyText::takesFocus),
            .written = Written::whileEnabled,
            .enabledBy = choiceIn(enabling, {kOn})};
}

std::vector<Field> itemFields() {
    const ValueMap directions(
        {{messageText(3125), kIngress}, {messageText(3117), kEgress}, {messageText(3118), kBoth}});
    return {{.control = "IndexEdit", .labelId = 60709, .typing = {.bytes = 4}, .position = 0},
            {.control = "choiceComb",
             .labelId = 60710,
             .kind = ControlKind::combo,
             .codes = directions},
            rowStatus({"lanIngressRowStatus", "rowstat"}),
            enabling("enEnableComb", 60702, 1, "lanIngressEnable", kIngress),
            rate("inCirEdit", 60711, 2, "lanIngressCir", "enEnableComb", 64, 1024000),
            rate("inCbsEdit", 60712, 3, "lanIngressCbs", "enEnableComb", 1523, 1000000),
            rate("inEbsEdt", 60713, 4, "lanIngressEbs", "enEnableComb", 0, 1522),
            rowStatus({"lanEgressRowStatus", "rowstat"}),
            enabling("exEnableComb", 60706, 5, "lanEgressEnable", kEgress),
            rate("exCirEdit", 60714, 6, "lanEgressCir", "exEnableComb", 64, 1024000),
            rate("exPirEdit", 60715, 7, "lanEgressPir", "exEnableComb", 64, 1024000)};
}

} // namespace

TOnuLangress::TOnuLangress(Session& session, std::int32_t itemType, QWidget* parent)
    : ListPage(session, itemType,
               {.helpKeyId = 6206,
                .group = "maingroup",
                .config = {"cfgBtn", message::config},
                .resultText = "maingroup",
                .minimumValues = 7},
               parent) {
    mainTable->setColumns({{.titleId = 60701},
                           {.titleId = 60702, .position = 0, .codes = switches()},
                           {.titleId = 60703, .position = 1},
                           {.titleId = 60704, .position = 2},
                           {.titleId = 60705, .position = 3},
                           {.titleId = 60706, .position = 4, .codes = switches()},
                           {.titleId = 60707, .position = 5},
                           {.titleId = 60708, .position = 6}});
    editRowsIn([this](int row) { return new TOnuLangressItem(*this, row); });
    start();
}

TOnuLangressItem::TOnuLangressItem(TOnuLangress& page, int row)
    : ItemDialog(page,
                 {.name = "TOnuLangressItem",
                  .titleId = 60716,
                  .fields = itemFields(),
                  .ok = {"okBtn", message::okay}},
                 row),
      page_(page), choiceComb_(fields().control<QComboBox>("choiceComb")) {
    selectOrClear(*choiceComb_, kBoth);
    fields().enable();
}

void TOnuLangressItem::okBtnClick() {
    if (!mayWrite()) {
        return;
    }
    const std::string direction = selectedCode(*choiceComb_).value_or(kBoth);
    const bool both = direction == kBoth;
    WriteRequest first = page_.newRequest();
    std::optional<WriteRequest> second;
    if (both) {
        second.emplace(first.copy());
    }
    if (!first || (second && !*second)) {
        return;
    }
    page_.markWriting();
    fields().bind(first, instance(), direction == kEgress ? kEgressObjects : kIngressObjects);
    page_.finishWrite(std::move(first));
    if (second) {
        fields().bind(*second, instance(), kEgressObjects);
        page_.finishWrite(std::move(*second));
    }
    accept();
}

} // namespace onudesk
