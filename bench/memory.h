// SPDX-License-Identifier: MIT
#pragma once

#include <fstream>
#include <string>

namespace onudesk::bench {

// Resident memory of this process in kilobytes (VmRSS of proc(5)).
inline long residentKilobytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmRSS:")) {
            return std::stol(line.substr(6));
        }
    }
    return 0;
}

} // namespace onudesk::bench
