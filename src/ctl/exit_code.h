// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace onudesk::ctl {

// Exit status of onuctl, as its manual page lists them.
enum ExitCode : int {
    exitOk = 0,
    exitAgentError = 1,       // the agent answered with an error
    exitUsage = 2,            // arguments, script or secrets that cannot be used
    exitConnectionFailed = 3, // no answer, or SNMPv3 access refused
    exitClientFailed = 4,     // client tree, simulator or output file
    exitScriptFailed = 5,     // a step that cannot be done, or an expectation that does not hold
    exitInterrupted = 130,    // SIGINT or SIGTERM
};

// For a reply's error status.
[[nodiscard]] ExitCode exitOf(std::int32_t errorStatus);

} // namespace onudesk::ctl
