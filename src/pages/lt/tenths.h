// SPDX-License-Identifier: MIT
//
// Voltages of line terminals, which travel in tenths of a volt.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace onudesk {

// "12.3" for "123", "0.0" when the value is no number.
[[nodiscard]] std::string voltsOfTenths(const std::string& value);

// The decimal number that is the whole text but for blanks around it.
[[nodiscard]] std::optional<double> decimalNumber(std::string_view text);

// The tenths that a number of volts has, the rest cut off: "123" for 12.34.
[[nodiscard]] std::string tenthsOf(double volts);

} // namespace onudesk
