// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace onudesk {

// The RowStatus convention (RFC 2579): states, and the actions that lead to them.
enum class RowStatus : std::int32_t {
    active = 1,
    notInService = 2,
    notReady = 3,
    createAndGo = 4,
    createAndWait = 5,
    destroy = 6,
};

[[nodiscard]] constexpr std::int64_t rowStatusCode(RowStatus status) {
    return static_cast<std::int64_t>(status);
}
// The number as it is written to an agent: "4" for createAndGo.
[[nodiscard]] inline std::string rowStatusText(RowStatus status) {
    return std::to_string(rowStatusCode(status));
}

} // namespace onudesk
