// SPDX-License-Identifier: MIT
#pragma once

namespace onudesk::sim {

// Exit statuses of onusim.
enum class ExitStatus {
    ended = 0,  // by SIGTERM or SIGINT, or help was shown
    failed = 1, // cannot listen, or cannot save
    usage = 2,  // command line or input file is not right
};

// The whole program: serves until SIGTERM or SIGINT; messages go to stderr. Once in a process.
[[nodiscard]] ExitStatus runSimulator(int count, const char* const* arguments);

} // namespace onudesk::sim
