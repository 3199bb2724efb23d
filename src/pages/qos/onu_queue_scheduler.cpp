// SPDX-License-Identifier: MIT
#include "pages/qos/onu_queue_scheduler.h"

#include "env/language_module.h"
#include "pages/framework/field_kinds.h"

#include <string>
#include <string_view>

namespace onudesk {

namespace {

constexpr std::size_t kWeights = 1; // position of the weights, joined by ","
constexpr const char* kWeighted = "2";

// A weight has no object of its own: the page joins them.
Field weight(const char* control, int labelId, int bytes) {
    return {.control = control,
            .labelId = labelId,
            .typing = {.bytes = bytes, .digitsOnly = true},
            .check = numberIn(1, 15, EmptyText::takesFocus),
            .written = Written::whileEnabled,
            .enabledBy = choiceIn("modeComb", {kWeighted}, true)};
}

} // namespace

TOnuQueueScheduler::TOnuQueueScheduler(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType, {.helpKeyId = 6231, .minimumValues = 3}, parent) {
    const ValueMap modes(
        {{messageText(3113), "1"}, {messageText(3114), kWeighted}, {messageText(3115), "4"}});
    const ValueMap switches({{messageText(message::off), "0"}, {messageText(message::on), "1"}});
    buildForm({comboField("modeComb", 65001, 0, "onuQueueMode", modes),
               weight("queue0Edit", 65002, 5),
               weight("queue1Edit", 65003, 2),
               weight("queue2Edit", 65004, 2),
               weight("queue3Edit", 65005, 2),
               {.control = "enalbeComb",
                .labelId = 65006,
                .kind = ControlKind::combo,
                .position = 2,
                .object = {"onuQueueCosRemapStats"},
                .codes = switches,
                .written = Written::always,
                .enabledBy = checkBox("remapCheckB")}});
    for (std::size_t queue = 0; queue < queueEdits.size(); ++queue) {
        queueEdits[queue] =
            fields().control<QLineEdit>(std::string("queue") + std::to_string(queue) + "Edit");
        queueEdits[queue]->setEnabled(false);
    }
    // This list has no choice of its own to apply: it applies the mode anew.
    connect(fields().control<QComboBox>("enalbeComb"), &QComboBox::activated, this,
            [this] { fields().enable(); });
    start();
}

// Some ONUs report fewer weights; the other edits keep what they show.
void TOnuQueueScheduler::showReply(const ReadResult& result) {
    ConfigPage::showReply(result);
    std::string_view rest = textUpToZero(result.values[kWeights]);
    for (QLineEdit* edit : queueEdits) {
        if (rest.empty()) {
            break;
        }
        const std::size_t comma = rest.find(',');
        setControlText(*edit, rest.substr(0, comma));
        rest = comma == std::string_view::npos ? std::string_view() : rest.substr(comma + 1);
    }
}

void TOnuQueueScheduler::bindWrite(WriteRequest& request) {
    const std::string& onu = session().OnuIndexText;
    fields().bind(request, onu, "onuQueueMode");
    std::string weights;
    for (const QLineEdit* edit : queueEdits) {
        if (edit->isEnabled()) {
            weights.append(weights.empty() ? "" : ",").append(stateOf(*edit).text);
        }
    }
    if (!weights.empty()) {
        request.bind({"onuQueueWeight"}, weights, onu);
    }
    fields().bind(request, onu, "onuQueueCosRemapStats");
}

} // namespace onudesk
