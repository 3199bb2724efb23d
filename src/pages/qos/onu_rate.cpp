// SPDX-License-Identifier: MIT
#include "pages/qos/plain_pages.h"

#include <cstddef>
#include <iterator>

namespace onudesk {

namespace {

constexpr int kNoLimitNote = 66407;
constexpr int kTypedBytes = 7;

struct TrafficRate {
    const char* control;
    const char* radio;
    const char* object;
    int labelId;
};

// In the order of the reply.
constexpr TrafficRate kRates[] = {
    {"downMultiEdit", "downMultiRaBtn", "downMulticastRate", 66401},
    {"upMultiEdit", "upMultiRaBtn", "upMulticastRate", 66402},
    {"downBroadEdit", "downBroadRaBtn", "downBroadcastRate", 66403},
    {"upBroadEdit", "upBroadRaBtn", "upBroadcastRate", 66404},
    {"downUcastEdit", "downUcastRaBtn", "downUnkownUcastRate", 66405},
    {"upUcastEdit", "upUcastRaBtn", "upUnkownUcastRate", 66406},
};

std::vector<Field> rateFields() {
    std::vector<Field> fields;
    fields.reserve(std::size(kRates));
    for (const TrafficRate& rate : kRates) {
        fields.push_back({.control = rate.control,
                          .labelId = rate.labelId,
                          .typing = {.bytes = kTypedBytes, .digitsOnly = true},
                          .position = fields.size(),
                          .object = {rate.object},
                          .check = numberIn(255, 1000000, EmptyText::takesFocus),
                          .written = Written::always,
                          .enabledBy = radioButton(rate.radio)});
    }
    return fields;
}

} // namespace

RecordPage onuRate() {
    return {.rules = {.helpKeyId = 6222, .minimumValues = std::size(kRates)},
            .fields = rateFields(),
            .noteId = kNoLimitNote};
}

} // namespace onudesk
