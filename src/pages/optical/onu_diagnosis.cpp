// SPDX-License-Identifier: MIT
#include "pages/optical/onu_diagnosis.h"

#include <cstddef>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace onudesk {

namespace {

constexpr int kFirstLabel = 66601; // of the readings, in their order
constexpr int kNotSupported = 11246;
constexpr int kNoReadings = 11303;

struct Reading {
    const char* control;
    const char* unit;
};
constexpr Reading kReadings[] = {{"tempEdit", "℃"},
                                 {"powerEdit", "V"},
                                 {"electricEdit", "mA"},
                                 {"outputEdt", "dBm"},
                                 {"inputEdt", "dBm"}};
constexpr std::size_t kAvailability = std::size(kReadings); // position in the reply

} // namespace

TOnuDiagnosis::TOnuDiagnosis(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = 6259,
                  .config = {},
                  .start = StartState::ready,
                  .refreshEmpties = true,
                  .minimumValues = kAvailability + 1},
                 parent) {
    std::vector<Field> readings;
    for (const Reading& reading : kReadings) {
        const std::size_t position = readings.size();
        readings.push_back({.control = reading.control,
                            .labelId = kFirstLabel + static_cast<int>(position),
                            .position = position,
                            .show = {.unit = reading.unit}});
    }
    buildForm(std::move(readings));
    start();
}

void TOnuDiagnosis::showReply(const ReadResult& result) {
    const std::string& availability = result.values[kAvailability];
    const int notice = availability == "1" ? kNotSupported : availability == "2" ? kNoReadings : 0;
    if (notice == 0) {
        ConfigPage::showReply(result);
    } else {
        fields().empty();
        refuse({notice}, nullptr);
    }
}

} // namespace onudesk
