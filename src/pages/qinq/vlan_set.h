// SPDX-License-Identifier: MIT
//
// The VLANs that the ranges of a port use already.
#pragma once

#include <bitset>
#include <cstddef>
#include <string_view>

namespace onudesk {

class VlanSet {
public:
    // The VLANs from the first to the last number, both included. Numbers that are none of a VLAN
    // (0 to 4095) are passed over, however many they are.
    void add(std::string_view first, std::string_view last);
    void clear() { used_.reset(); }

    [[nodiscard]] bool contains(std::string_view vlan) const;

private:
    static constexpr std::size_t kVlans = 4096;
    std::bitset<kVlans> used_; // by VLAN number
};

} // namespace onudesk
