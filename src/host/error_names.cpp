// SPDX-License-Identifier: MIT
#include "host/error_names.h"

#include "onudesk/messages.h"

#include <array>
#include <map>

namespace onudesk::host {

std::string errorName(std::int32_t status) {
    using namespace onudesk::error_status;
    static constexpr std::array<const char*, 19> kAgentErrors = {"noError",
                                                                 "tooBig",
                                                                 "noSuchName",
                                                                 "badValue",
                                                                 "readOnly",
                                                                 "genErr",
                                                                 "noAccess",
                                                                 "wrongType",
                                                                 "wrongLength",
                                                                 "wrongEncoding",
                                                                 "wrongValue",
                                                                 "noCreation",
                                                                 "inconsistentValue",
                                                                 "resourceUnavailable",
                                                                 "commitFailed",
                                                                 "undoFailed",
                                                                 "authorizationError",
                                                                 "notWritable",
                                                                 "inconsistentName"};
    static const std::map<std::int32_t, const char*> hostErrors = {
        {timeout, "time-out"},
        {badRequest, "bad request"},
        {noPlan, "not in the catalogue"},
        {noSession, "no session"},
        {sendFailed, "sending failed"},
        {walkRefused, "table refused"},
        {badReply, "bad reply"},
        {unknownUser, "unknown user"},
        {wrongDigest, "wrong digest"},
        {decryption, "decryption error"},
        {notInTime, "not in time window"},
        {unknownEngine, "unknown engine"},
        {securityLevel, "unsupported security level"}};
    if (status >= 0 && static_cast<std::size_t>(status) < kAgentErrors.size()) {
        return kAgentErrors[static_cast<std::size_t>(status)];
    }
    const auto found = hostErrors.find(status);
    return found == hostErrors.end() ? "error " + std::to_string(status) : found->second;
}

ReportError reportError(const std::string& objectOid) {
    using namespace onudesk::error_status;
    static const std::map<std::string, ReportError> reports = {
        {"1.3.6.1.6.3.15.1.1.1", {securityLevel, "the agent does not grant it to this user"}},
        {"1.3.6.1.6.3.15.1.1.2", {notInTime, "the clocks of host and agent do not agree"}},
        {"1.3.6.1.6.3.15.1.1.3", {unknownUser, "the agent does not know this user"}},
        {"1.3.6.1.6.3.15.1.1.4", {unknownEngine, "the agent has another engine id"}},
        {"1.3.6.1.6.3.15.1.1.5", {wrongDigest, "wrong authentication protocol or pass phrase"}},
        {"1.3.6.1.6.3.15.1.1.6", {decryption, "wrong privacy protocol or pass phrase"}},
        {"1.3.6.1.6.3.11.2.1.1", {badReply, "the agent does not know the security model"}},
        {"1.3.6.1.6.3.12.1.5", {badReply, "the agent does not know the context"}},
    };
    const auto found = reports.find(objectOid);
    return found == reports.end() ? ReportError{badReply, "the agent reports " + objectOid}
                                  : found->second;
}

} // namespace onudesk::host
