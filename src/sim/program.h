// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace onudesk::sim {

// Exit statuses of onusim.
enum class ExitStatus {
    ended = 0,  // by SIGTERM or SIGINT, or help or version was printed
    failed = 1, // cannot listen, or cannot save
    usage = 2,  // command line or input file is not right
};

// The whole program, with arguments but not its name: serves until SIGTERM or SIGINT; messages go
// to stderr. Once in a process.
[[nodiscard]] ExitStatus runSimulator(const std::vector<std::string>& arguments);

} // namespace onudesk::sim
