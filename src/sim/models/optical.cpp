// SPDX-License-Identifier: MIT
#include "sim/models/optical.h"

#include "base/numbers.h"
#include "base/text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace onudesk::sim {

namespace {

constexpr std::array kLevels{"HighAlarm", "LowAlarm", "HighWarning", "LowWarning"};

struct Quantity {
    const char* name; // in front of the levels
    double minimum;
    double maximum;
    bool isPower; // in dBm
    std::array<const char*, kLevels.size()> factory;
};
constexpr Quantity kQuantities[] = {
    {"Temp", -128, 128, false, {"85", "-20", "80", "-15"}},
    {"Vcc", 0, 6.55, false, {"3.6", "3.0", "3.5", "3.1"}},
    {"Bias", 0, 131, false, {"90", "2", "80", "4"}},
    {"TXPower", -40, 8.1647, true, {"3.1623", "0.7943", "2.5119", "1.0000"}},
    {"RXPower", -40, 8.1647, true, {"0.1585", "0.0016", "0.1259", "0.0020"}},
};

// What the ONU keeps of a threshold; nothing for one that is out of range.
std::optional<std::string> kept(const Quantity& quantity, std::string_view written) {
    constexpr int kPowerDecimals = 4;
    const auto number = parseNumber<double>(trimmed(written, " "), std::chars_format::fixed);
    if (!number || !(*number >= quantity.minimum && *number <= quantity.maximum)) {
        return std::nullopt;
    }
    if (!quantity.isPower) {
        return std::string(trimmed(written, " "));
    }
    std::array<char, 16> text{};
    const auto printed =
        std::to_chars(text.data(), text.data() + text.size(), std::pow(10, *number / 10),
                      std::chars_format::fixed, kPowerDecimals);
    return std::string(text.data(), printed.ptr);
}

} // namespace

SetResult writeOpticalThresholds(const GroupWrite& write, Device& device) {
    DeviceGroup thresholds = device.group(667, "maintable");
    const Oid& onu = write.instance();
    if (thresholds.find("ThresholdRowStatus", onu) == nullptr) {
        return SetStatus::noCreation;
    }
    const bool hasRow = thresholds.number("ThresholdRowStatus", onu) != 0;
    const auto status = write.number("ThresholdRowStatus");
    if (status && (hasRow || *status != rowStatusCode(RowStatus::createAndGo))) {
        return SetStatus::inconsistentValue;
    }
    if (!status && !hasRow) {
        return SetStatus::noCreation;
    }
    if (status) {
        thresholds.putNumber("ThresholdRowStatus", onu, rowStatusCode(RowStatus::active));
    }
    for (const Quantity& quantity : kQuantities) {
        for (std::size_t level = 0; level < kLevels.size(); ++level) {
            const std::string object = std::string(quantity.name) + kLevels[level];
            if (const auto written = write.bytes(object)) {
                const auto value = kept(quantity, *written);
                if (!value) {
                    return SetStatus::wrongValue;
                }
                thresholds.put(object, onu, octetsValue(*value));
            } else if (status) {
                thresholds.put(object, onu, octetsValue(quantity.factory[level]));
            }
        }
    }
    return {};
}

} // namespace onudesk::sim
