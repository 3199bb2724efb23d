// SPDX-License-Identifier: MIT
#include "pages/lt/onu_lt_self_set.h"

#include "pages/lt/tenths.h"

#include <string>

namespace onudesk {

namespace {

constexpr std::int64_t kMinute = 60; // seconds
constexpr std::int64_t kHour = 60 * kMinute;
constexpr double kMostVolts = 15;

Field timePart(const char* control, int labelId, std::int64_t maximum) {
    return {.control = control,
            .labelId = labelId,
            .typing = {.bytes = 2, .digitsOnly = true},
            .check = numberIn(0, maximum),
            .written = Written::always};
}

std::optional<CheckFailure> checkThreshold(std::string_view text) {
    const auto volts = decimalNumber(text);
    if (volts && 0 <= *volts && *volts <= kMostVolts) {
        return std::nullopt;
    }
    return CheckFailure{message::outOfRange, {"0", "15"}};
}

std::int64_t numberOf(const QLineEdit& edit) {
    return leadingNumber(stateOf(edit).text).value_or(0);
}

} // namespace

TOnuLTSelfSet::TOnuLTSelfSet(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = 6271,
                  .group = "group1",
                  .onDecoded = OnDecoded::followsFlag,
                  .onFailedDecode = OnFailedDecode::disables,
                  .minimumValues = 3},
                 parent) {
    buildForm({timePart("hourEdit", 81301, 23),
               timePart("minuteEdit", 81302, 59),
               timePart("secondsEdit", 81303, 59),
               {.control = "gateEdit",
                .labelId = 81304,
                .typing = {.bytes = 4},
                .check = FieldCheck{.empty = EmptyText::blankTakesFocus,
                                    .function = checkThreshold,
                                    .messageIds = {message::outOfRange}},
                .written = Written::always,
                .show = {.unit = "V"}}});
    hourEdit = fields().control<QLineEdit>("hourEdit");
    minuteEdit = fields().control<QLineEdit>("minuteEdit");
    secondsEdit = fields().control<QLineEdit>("secondsEdit");
    gateEdit = fields().control<QLineEdit>("gateEdit");
    start();
}

void TOnuLTSelfSet::showReply(const ReadResult& result) {
    if (const auto start = leadingNumber(result.values[0])) {
        setControlText(*hourEdit, std::to_string(*start / kHour));
        setControlText(*minuteEdit, std::to_string(*start % kHour / kMinute));
        setControlText(*secondsEdit, std::to_string(*start % kMinute));
    } else {
        for (QLineEdit* edit : {hourEdit, minuteEdit, secondsEdit}) {
            setControlText(*edit, {});
        }
    }
    setControlText(*gateEdit, voltsOfTenths(result.values[1]));
}

void TOnuLTSelfSet::bindWrite(WriteRequest& request) {
    const std::string& onu = session().OnuIndexText;
    const std::int64_t start =
        numberOf(*hourEdit) * kHour + numberOf(*minuteEdit) * kMinute + numberOf(*secondsEdit);
    request.bind({"vgonustarttime"}, std::to_string(start), onu);
    request.bind({"vgonuvalarmgate"}, tenthsOf(decimalNumber(stateOf(*gateEdit).text).value_or(0)),
                 onu);
    request.bind({"valarmRowStatus"}, rowStatusText(RowStatus::createAndGo), onu);
}

} // namespace onudesk
