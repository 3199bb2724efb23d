// SPDX-License-Identifier: MIT
#include "ctl/exit_code.h"

#include "onudesk/messages.h"

namespace onudesk::ctl {

ExitCode exitOf(std::int32_t errorStatus) {
    switch (errorStatus) {
    case error_status::badRequest: // settings that no request can be made of
        return exitUsage;
    case error_status::noPlan:
        return exitClientFailed;
    case error_status::walkRefused:
    case error_status::badReply:
        return exitAgentError;
    default:
        return errorStatus > 0 ? exitAgentError : exitConnectionFailed;
    }
}

} // namespace onudesk::ctl
