// SPDX-License-Identifier: MIT
//
// Voltages of line terminals, which travel in tenths of a volt.
#pragma once

#include <string>

namespace onudesk {

// "12.3" for "123"; nothing for a value that is no number.
[[nodiscard]] std::string voltsOfTenths(const std::string& value);

// The tenths that a number of volts has, the rest cut off: "123" for 12.34.
[[nodiscard]] std::string tenthsOf(double volts);

} // namespace onudesk
