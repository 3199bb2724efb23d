// SPDX-License-Identifier: MIT
#include "pages/lt/tenths.h"

#include "bridge/read_number.h"
#include "pages/framework/checks.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace onudesk {

std::string voltsOfTenths(const std::string& value) {
    constexpr std::int64_t kPerVolt = 10;
    const std::int64_t tenths = leadingNumber(value).value_or(0);
    return std::to_string(tenths / kPerVolt) + "." + std::to_string(tenths % kPerVolt);
}

std::optional<double> decimalNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    double number = 0;
    const bool isNumber = readNumber(text.substr(0, text.find_last_not_of(' ') + 1), number);
    return isNumber ? std::optional(number) : std::nullopt;
}

std::string tenthsOf(double volts) {
    return std::to_string(static_cast<std::int64_t>(std::trunc(volts * 10)));
}

} // namespace onudesk
