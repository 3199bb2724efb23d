// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace onudesk::host {

// The name of an error status: those of RFC 3416 for the positive ones, "time-out", "unknown user"
// and so on for those of onudesk::error_status; "error 99" for any other.
[[nodiscard]] std::string errorName(std::int32_t status);

// The error status for the object of a REPORT (RFC 3414 usmStats, RFC 3412 snmpMPDStats,
// RFC 3413 snmpUnknownContexts), written without instance.
struct ReportError {
    std::int32_t status = 0;
    std::string text;
};
[[nodiscard]] ReportError reportError(const std::string& objectOid);

} // namespace onudesk::host
