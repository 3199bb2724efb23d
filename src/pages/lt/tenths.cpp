// SPDX-License-Identifier: MIT
#include "pages/lt/tenths.h"

#include "pages/framework/checks.h"

#include <cstdint>
#include <cstdlib>

namespace onudesk {

std::string voltsOfTenths(const std::string& value) {
    constexpr std::int64_t kPerVolt = 10;
    const auto tenths = leadingNumber(value);
    if (!tenths) {
        return {};
    }
    return std::string(*tenths < 0 ? "-" : "") + std::to_string(std::abs(*tenths / kPerVolt)) +
           "." + std::to_string(std::abs(*tenths % kPerVolt));
}

std::string tenthsOf(double volts) {
    return std::to_string(static_cast<std::int64_t>(volts * 10));
}

} // namespace onudesk
