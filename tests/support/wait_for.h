// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>

#include <gtest/gtest.h>

namespace onudesk::test {

inline constexpr std::chrono::seconds kPatience{30};

// Has `turn` done until the condition holds. Where it does not in time the test fails; false.
inline bool waitFor(const std::function<bool()>& condition, const std::function<void()>& turn) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            ADD_FAILURE() << "waited in vain";
            return false;
        }
        turn();
    }
    return true;
}

} // namespace onudesk::test
