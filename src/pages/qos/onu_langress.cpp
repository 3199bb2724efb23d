// SPDX-License-Identifier: MIT
#include "pages/qos/onu_langress.h"

#include "env/language_module.h"

#include <optional>
#include <utility>

#include <QLineEdit>

namespace onudesk {

namespace {

constexpr const char* kOn = "1";
constexpr const char* kIngress = "0";
constexpr const char* kEgress = "1";
constexpr const char* kBoth = "2";

// What the names of a direction's objects begin with.
constexpr const char* kIngressObjects = "lanIngress";
constexpr const char* kEgressObjects = "lanEgress";

// Positions are columns of the page.
Field enabling(const char* control, int labelId, std::size_t position, const char* object,
               const ValueMap& switches) {
    return {.control = control,
            .labelId = labelId,
            .kind = ControlKind::combo,
            .position = position,
            .object = {object},
            .codes = {&switches},
            .written = Written::always};
}

Field rate(const char* control, int labelId, std::size_t position, const char* object,
           std::int64_t minimum, std::int64_t maximum) {
    return {.control = control,
            .labelId = labelId,
            .typing = {.digitsOnly = true},
            .position = position,
            .object = {object},
            .check = numberIn(minimum, maximum, EmptyText::takesFocus),
            .written = Written::whileEnabled};
}

std::vector<Field> itemFields(const TOnuLangress& page) {
    return {{.control = "IndexEdit", .labelId = 60709, .typing = {.bytes = 4}, .position = 0},
            {.control = "choiceComb",
             .labelId = 60710,
             .kind = ControlKind::combo,
             .codes = {&page.directions()}},
            constant({"lanIngressRowStatus", "rowstat"}, "4"),
            enabling("enEnableComb", 60702, 1, "lanIngressEnable", page.switches()),
            rate("inCirEdit", 60711, 2, "lanIngressCir", 64, 1024000),
            rate("inCbsEdit", 60712, 3, "lanIngressCbs", 1523, 1000000),
            rate("inEbsEdt", 60713, 4, "lanIngressEbs", 0, 1522),
            constant({"lanEgressRowStatus", "rowstat"}, "4"),
            enabling("exEnableComb", 60706, 5, "lanEgressEnable", page.switches()),
            rate("exCirEdit", 60714, 6, "lanEgressCir", 64, 1024000),
            rate("exPirEdit", 60715, 7, "lanEgressPir", 64, 1024000)};
}

} // namespace

TOnuLangress::TOnuLangress(Session& session, std::int32_t itemType, QWidget* parent)
    : ListPage(session, itemType,
               {.helpKeyId = 6206,
                .group = "maingroup",
                .config = {"cfgBtn", message::config},
                .resultText = "maingroup",
                .minimumValues = 7},
               parent),
      switches_({{messageText(message::off), "0"}, {messageText(message::on), kOn}}),
      directions_({{messageText(3125), kIngress},
                   {messageText(3117), kEgress},
                   {messageText(3118), kBoth}}) {
    mainTable->setColumns({{.titleId = 60701},
                           {.titleId = 60702, .position = 0, .map = &switches_},
                           {.titleId = 60703, .position = 1},
                           {.titleId = 60704, .position = 2},
                           {.titleId = 60705, .position = 3},
                           {.titleId = 60706, .position = 4, .map = &switches_},
                           {.titleId = 60707, .position = 5},
                           {.titleId = 60708, .position = 6}});
    start();
}

void TOnuLangress::openRow(int row) {
    TOnuLangressItem(*this, row).exec();
}

TOnuLangressItem::TOnuLangressItem(TOnuLangress& page, int row)
    : ItemDialog(page,
                 {.titleId = 60716, .fields = itemFields(page), .ok = {"okBtn", message::okay}},
                 row),
      choiceComb(fields().control<QComboBox>("choiceComb")),
      enEnableComb(fields().control<QComboBox>("enEnableComb")),
      exEnableComb(fields().control<QComboBox>("exEnableComb")), page_(page) {
    connect(choiceComb, &QComboBox::activated, this, &TOnuLangressItem::choiceCombChange);
    connect(enEnableComb, &QComboBox::activated, this, &TOnuLangressItem::enEnableCombChange);
    connect(exEnableComb, &QComboBox::activated, this, &TOnuLangressItem::exEnableCombChange);
    selectOrClear(*choiceComb, kBoth);
    choiceCombChange();
}

std::string TOnuLangressItem::direction() const {
    return selectedCode(*choiceComb).value_or(kBoth);
}

void TOnuLangressItem::choiceCombChange() {
    enEnableComb->setEnabled(direction() != kEgress);
    exEnableComb->setEnabled(direction() != kIngress);
    enEnableCombChange();
    exEnableCombChange();
}

void TOnuLangressItem::enEnableCombChange() {
    enableRates(*enEnableComb, {"inCirEdit", "inCbsEdit", "inEbsEdt"});
}

void TOnuLangressItem::exEnableCombChange() {
    enableRates(*exEnableComb, {"exCirEdit", "exPirEdit"});
}

void TOnuLangressItem::enableRates(const QComboBox& enable,
                                   std::initializer_list<const char*> edits) {
    for (const char* edit : edits) {
        fields().control<QLineEdit>(edit)->setEnabled(enable.isEnabled() &&
                                                      selectedCode(enable) == kOn);
    }
}

void TOnuLangressItem::okBtnClick() {
    if (!mayWrite()) {
        return;
    }
    const bool both = direction() == kBoth;
    WriteRequest first = page_.newRequest();
    std::optional<WriteRequest> second;
    if (both) {
        second.emplace(first.copy());
    }
    if (!first || (second && !*second)) {
        return;
    }
    page_.markWriting();
    fields().bind(first, instance(), direction() == kEgress ? kEgressObjects : kIngressObjects);
    page_.finishWrite(std::move(first));
    if (second) {
        fields().bind(*second, instance(), kEgressObjects);
        page_.finishWrite(std::move(*second));
    }
    accept();
}

} // namespace onudesk
