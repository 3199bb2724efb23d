// SPDX-License-Identifier: MIT
//
// What the rows of a list of VLAN ranges cost in the set of VLANs that are used: one row after the
// other, each with two ranges of all VLANs. Exits with 1 when a row passes the limit.
#include "pages/qinq/vlan_set.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRows = 1000;
constexpr double kLimit = 5; // milliseconds

double addRow(onudesk::VlanSet& used, const char* last) {
    const auto begin = Clock::now();
    used.add("1", last);
    used.add("1", last);
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

// False when a row takes too long, or the set is not what was added.
bool measure(const char* last) {
    onudesk::VlanSet used;
    double longest = 0;
    for (int row = 0; row < kRows; ++row) {
        longest = std::max(longest, addRow(used, last));
    }
    std::printf("row with ranges 1 to %s: %.4f ms at most (limit %.0f)\n", last, longest, kLimit);
    return longest <= kLimit && used.contains("1") && used.contains("4094");
}

} // namespace

int main() {
    const bool allVlans = measure("4094");
    const bool absurd = measure("9223372036854775807");
    return allVlans && absurd ? 0 : 1;
}
