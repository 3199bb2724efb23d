// SPDX-License-Identifier: MIT
#include "pages/port/onu_capability2.h"

#include "env/language_module.h"

#include <QBoxLayout>
#include <QLabel>

namespace onudesk {

namespace {

constexpr const char* kInterfaces = "group";
constexpr std::size_t kInterfaceValues = 2;
constexpr int kOneLink = 3190;
constexpr int kSeveralLinks = 3191;
constexpr int kTableWidth = 420;

std::string linkText(const std::string& value) {
    return value == "0" ? messageText(kOneLink) : value == "1" ? messageText(kSeveralLinks) : value;
}

Field choice(const char* control, int labelId, std::size_t position, const ValueMap& map) {
    return {.control = control,
            .labelId = labelId,
            .kind = ControlKind::combo,
            .position = position,
            .codes = map};
}

Field number(const char* control, int labelId, std::size_t position) {
    return {.control = control, .labelId = labelId, .position = position};
}

} // namespace

TOnuCapability2::TOnuCapability2(Session& session, std::int32_t itemType, QWidget* parent)
    : ListPage(session, itemType,
               {.helpKeyId = 6205,
                .config = {},
                .start = StartState::ready,
                .refreshEmpties = true,
                .resultText = "maintable",
                .minimumValues = 7},
               parent) {
    const ValueMap types({{"SFU", "0"},
                          {"HGU", "1"},
                          {"SBU", "2"},
                          {messageText(3180), "3"},
                          {messageText(3181), "4"},
                          {messageText(3182), "5"},
                          {messageText(3183), "6"},
                          {messageText(3184), "7"},
                          {"MTU", "8"}});
    const ValueMap protection({{messageText(message::unsupported), "0"},
                               {messageText(3186), "1"},
                               {messageText(3187), "2"}});
    const ValueMap batteries({{messageText(message::no), "0"}, {messageText(message::yes), "1"}});
    const ValueMap interfaces({{messageText(3188), "0"},
                               {messageText(3189), "1"},
                               {"VoIP", "2"},
                               {"TDM", "3"},
                               {"ADSL2+", "4"},
                               {"VDSL2", "5"},
                               {"WLAN", "6"},
                               {"USB", "7"},
                               {"CATV RF", "8"}});
    auto* area = new QWidget(listPanel);
    area->lower(); // before the table in the order of tabs, too
    FormGrid form(*area, 2);
    fields().add(form,
                 {choice("typeComb", 88601, 0, types),
                  {.control = "llidEdit", .labelId = 88602, .position = 1, .show = {linkText}},
                  choice("protypeComb", 88603, 2, protection),
                  number("ponEdit", 88604, 3),
                  number("slotEdit", 88605, 4),
                  number("typeEdit", 88606, 5),
                  {.control = "batteryEdit",
                   .labelId = 88607,
                   .position = 6,
                   .codes = batteries.keepingUnknown()}});
    for (QWidget* control : area->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        control->setEnabled(qobject_cast<QLabel*>(control) != nullptr);
    }
    mainTable->setMinimumWidth(kTableWidth);
    mainTable->setColumns({{.titleId = 88608, .required = true},
                           {.titleId = 88609, .position = 0, .codes = interfaces},
                           {.titleId = 88610, .position = 1}});
    static_cast<QBoxLayout*>(centredPanel()->layout())->insertWidget(0, area);
    onGroup(kInterfaces, [this](const ReadResult& result) {
        if (result.values.size() >= kInterfaceValues) {
            mainTable->putReply(result);
        }
    });
    start();
}

void TOnuCapability2::nameUnselected(const QString& text) {
    for (QComboBox* combo : listPanel->findChildren<QComboBox*>()) {
        const int index = combo->currentIndex();
        combo->setPlaceholderText(index < 0 ? text : QString());
        combo->setCurrentIndex(index); // losing its placeholder, a box selects its first entry
    }
}

void TOnuCapability2::prepareRefresh() {
    ListPage::prepareRefresh();
    nameUnselected({});
}

void TOnuCapability2::showReply(const ReadResult& result) {
    fields().show(result); // this reply is no row of the list
    nameUnselected(QStringLiteral("other"));
}

} // namespace onudesk
