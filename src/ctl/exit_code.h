// SPDX-License-Identifier: MIT
#pragma once

namespace onudesk::ctl {

// Exit status of onuctl, as its manual page lists them.
enum ExitCode : int {
    exitOk = 0,
    exitAgentError = 1,       // the agent answered with an error
    exitUsage = 2,            // arguments, script or secrets that cannot be used
    exitConnectionFailed = 3, // no answer, or SNMPv3 access refused
    exitClientFailed = 4,     // client tree, simulator or output file
};

} // namespace onudesk::ctl
