// SPDX-License-Identifier: MIT
#pragma once

namespace onudesk::desk {

// Exit status of onudesk, as its manual page lists them.
enum ExitCode : int {
    exitOk = 0,
    exitUsage = 2,        // arguments that cannot be used
    exitClientFailed = 4, // the simulator cannot be started
    exitNoDisplay = 5,
};

// The whole program. Once in a process; `argc` and `argv` stay valid meanwhile.
[[nodiscard]] ExitCode runProgram(int& argc, char** argv);

} // namespace onudesk::desk
