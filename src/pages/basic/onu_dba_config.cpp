// SPDX-License-Identifier: MIT
#include "pages/basic/onu_dba_config.h"

#include "env/language_module.h"
#include "pages/framework/field_kinds.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace onudesk {

namespace {

constexpr int kUpFir = 60801; // captions that the limits are put behind
constexpr int kUpCir = 60802;
constexpr int kUpPir = 60803;
constexpr int kUpstreamOrder = 3031;
constexpr int kDownstreamOrder = 3032;

// Positions of the values that no control shows.
constexpr std::size_t kProfile = 17;
constexpr std::size_t kFirBound = 18;
constexpr std::size_t kCirBound = 19;
constexpr std::size_t kPirUpperBound = 20;
constexpr std::size_t kPirLowerBound = 21;
constexpr std::size_t kLeastValues = 22;

constexpr std::int32_t kProfile2Maximum = 500004;

constexpr int kGroupMargin = 4; // at the sides: with more, both groups do not fit beside the tree

struct RateEdit {
    const char* control;
    const char* object;
    int labelId;
    int digits; // -1 for any number
    std::int64_t minimum;
    std::int64_t maximum;
};

// The upstream rates get their limits with the first reply.
constexpr RateEdit kUpstream[] = {
    {"upFirEdt", "upFir", kUpFir, 6, 0, 0},
    {"upCirEdt", "upCir", kUpCir, 6, 0, 0},
    {"upPirEdt", "upPir", kUpPir, 7, 0, 0},
    {"upBustEdt", "upBust", 60804, 3, 32, 640},
    {"upPriorityEdt", "upPriority", 60805, 2, 1, 32},
    {"upDelayEdt", "upDelay", 60806, -1, 1, 1000000},
    {"upJitterEdt", "upJitter", 60807, -1, 1, 1000000},
};
// The first is never checked.
constexpr RateEdit kDownstream[] = {
    {"downFirEdt", "downFir", 60809, 6, 0, 980000},
    {"downCirEdt", "downCir", 60810, 7, 0, 1000000},
    {"downPirEdt", "downPir", 60811, 7, 0, 1000000},
    {"downBustEdt", "downBust", 60812, 3, 32, 640},
    {"downPriorityEdt", "downPriority", 60813, 2, 1, 32},
    {"downDelayEdt", "downDelay", 60814, -1, 1, 1000000},
    {"downJitterEdt", "downJitter", 60815, -1, 1, 1000000},
};

// Seven edits and the policing list of one direction, from a position of the reply on.
template <std::size_t Size>
std::vector<Field> direction(const RateEdit (&edits)[Size], std::size_t position,
                             const char* policing, const char* object, int labelId) {
    std::vector<Field> fields;
    fields.reserve(Size + 1);
    for (const RateEdit& edit : edits) {
        fields.push_back(numberField(edit.control, edit.labelId, edit.digits, position++,
                                     edit.object,
                                     numberIn(edit.minimum, edit.maximum, EmptyText::takesFocus)));
    }
    fields.push_back(comboField(policing, labelId, position, object,
                                ValueMap({{"DISABLE", "0"},
                                          {"CIR_MARK_NO_DROP", "1"},
                                          {"PIR_MARK_NO_DROP", "2"},
                                          {"CIR_MARK_PIR_DROP", "3"},
                                          {"NO_MARK_CIR_DROP", "4"},
                                          {"NO_MARK_PIR_DROP", "5"}})));
    return fields;
}

std::int32_t numberAt(const ReadResult& result, std::size_t position) {
    return static_cast<std::int32_t>(leadingNumber(valueAt(result, position)).value_or(0));
}

std::string span(std::int32_t minimum, std::int32_t maximum) {
    std::string text(1, '(');
    text += std::to_string(minimum) + "-" + std::to_string(maximum) + " :kbps)";
    return text;
}

} // namespace

TOnuDbaConfig::TOnuDbaConfig(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = 6207,
                  .group = "maingroup",
                  .rereadsWhenShown = true,
                  .onDecoded = OnDecoded::followsFlag,
                  .onFailedDecode = OnFailedDecode::disables,
                  .resultText = "maingroup",
                  .minimumValues = kLeastValues},
                 parent) {
    buildGroups();
    for (QComboBox* combo : listPanel->findChildren<QComboBox*>()) {
        combo->setCurrentIndex(0);
    }
    downFirEdt->setEnabled(false);
    start();
}

void TOnuDbaConfig::buildGroups() {
    QWidget* panel = centredPanel();
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    auto* row = new QHBoxLayout;
    auto* shape = new QWidget(panel);
    upGroup = new QGroupBox(panel);
    upGroup->setObjectName(QStringLiteral("upGroup"));
    setCaption(*upGroup, 60818);
    downGroup = new QGroupBox(panel);
    downGroup->setObjectName(QStringLiteral("downGroup"));
    setCaption(*downGroup, 60819);
    row->addWidget(upGroup);
    row->addWidget(downGroup);
    column->addWidget(shape, 0, Qt::AlignLeft);
    column->addLayout(row);

    FormGrid top(*shape, 1);
    FormGrid up(*upGroup, 1);
    FormGrid down(*downGroup, 1);
    for (QGroupBox* group : {upGroup, downGroup}) {
        QMargins margins = group->layout()->contentsMargins();
        margins.setLeft(kGroupMargin);
        margins.setRight(kGroupMargin);
        group->layout()->setContentsMargins(margins);
    }
    const Field shaping = comboField("shapeActionComb", 60817, 16, "shapeAction",
                                     ValueMap({{messageText(message::off), "0"},
                                               {messageText(3119), "1"},
                                               {messageText(3120), "2"}}));
    fields().add(top, {rowStatus({"rowStatus", "rowstat"})});
    fields().add(up, direction(kUpstream, 0, "upPoliceComb", "upPolice", 60808));
    fields().add(down, direction(kDownstream, 8, "downPoliceComb", "downPolice", 60816));
    fields().add(top, {shaping, rowStatus({"rowStatus", "rowstat"}, RowStatus::createAndWait)});
    Label17 = top.lastLabel();
    Label17->setObjectName(QStringLiteral("Label17"));
    shapeActionComb = top.find<QComboBox>("shapeActionComb");
    upFirEdt = up.find<QLineEdit>("upFirEdt");
    downFirEdt = down.find<QLineEdit>("downFirEdt");
}

void TOnuDbaConfig::prepareRefresh() {
    upGroup->setEnabled(true);
    downGroup->setEnabled(true);
}

void TOnuDbaConfig::showReply(const ReadResult& result) {
    ConfigPage::showReply(result);
    applyProfile(result);
    showLimits();
}

void TOnuDbaConfig::applyProfile(const ReadResult& result) {
    const std::int32_t profile = numberAt(result, kProfile);
    switch (profile) {
    case 1:
        limits_.cirMaximum = 661375;
        break;
    case 2:
        limits_.firMaximum = std::min(kProfile2Maximum, numberAt(result, kFirBound));
        limits_.cirMaximum = std::min(kProfile2Maximum, numberAt(result, kCirBound));
        break;
    case 3:
        limits_.cirMaximum = 955000;
        break;
    case 4:
        limits_.firMaximum = 955000;
        limits_.cirMaximum = 955000;
        break;
    default:
        return;
    }
    const bool bounded = profile <= 2;
    limits_.pirMinimum = bounded ? numberAt(result, kPirLowerBound) : 0;
    limits_.pirMaximum = bounded ? numberAt(result, kPirUpperBound) : 1000000;
    upFirEdt->setEnabled(profile % 2 == 0);
}

void TOnuDbaConfig::showLimits() {
    limit("upFirEdt", kUpFir, 0, limits_.firMaximum);
    limit("upCirEdt", kUpCir, 0, limits_.cirMaximum);
    limit("upPirEdt", kUpPir, limits_.pirMinimum, limits_.pirMaximum);
}

void TOnuDbaConfig::limit(const char* control, int captionId, std::int32_t minimum,
                          std::int32_t maximum) {
    fields().at(control).check->range = {minimum, maximum};
    auto* label = findChild<QLabel*>(QString::fromLatin1(control) + QStringLiteral("Label"));
    label->setText(withoutMnemonics(shown(messageText(captionId) + span(minimum, maximum))));
}

bool TOnuDbaConfig::mayWrite() {
    return ConfigPage::mayWrite() &&
           ratesInOrder("upFirEdt", "upCirEdt", "upPirEdt", kUpstreamOrder) &&
           ratesInOrder("downFirEdt", "downCirEdt", "downPirEdt", kDownstreamOrder);
}

bool TOnuDbaConfig::ratesInOrder(const char* fir, const char* cir, const char* pir, int refusalId) {
    std::int32_t fixed = 0;
    std::int32_t committed = 0;
    std::int32_t peak = 0;
    if (!rateOf(cir, committed) || !rateOf(fir, fixed) || !rateOf(pir, peak)) {
        return false;
    }
    if (committed < fixed || committed > peak) {
        refuse({refusalId, {}, message::errorCaption, platform::PromptIcon::none},
               fields().control<QLineEdit>(cir));
        return false;
    }
    return true;
}

bool TOnuDbaConfig::rateOf(const char* control, std::int32_t& rate) const {
    const std::string text = stateOf(*fields().control<QLineEdit>(control)).text;
    const auto number = wholeNumber(text);
    if (!number) {
        refuseNotANumber(text, replyHandle());
    }
    rate = number.value_or(0);
    return number.has_value();
}

void TOnuDbaConfig::bindWrite(WriteRequest& request) {
    // Without a selection the shaping action stays what it is.
    fields().at("shapeActionComb").written =
        shapeActionComb->currentText().isEmpty() ? Written::never : Written::always;
    ConfigPage::bindWrite(request);
}

} // namespace onudesk
