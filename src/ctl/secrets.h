// SPDX-License-Identifier: MIT
//
// Communities and SNMPv3 settings, from a file only its owner can read or from the environment:
//
//     read-community=…        ONUDESK_READ_COMMUNITY
//     v3-user=…               ONUDESK_V3_USER
//     v3-level=authPriv       ONUDESK_V3_LEVEL (noAuthNoPriv, authNoPriv, authPriv)
//     v3-auth-protocol=SHA    …
#pragma once

#include "base/result.h"
#include "host/client_host.h"

#include <filesystem>
#include <optional>

namespace onudesk::ctl {

// Lines are NAME=VALUE; blank lines and lines that start with "#" are skipped. Fails on files that
// others can read, and on unknown names or values, with file and line.
[[nodiscard]] Result<void> readSecretsFile(const std::filesystem::path& file,
                                           host::OnuTarget& target);
// Takes what the environment sets. Fails on values that cannot be used.
[[nodiscard]] Result<void> readSecretsEnvironment(host::OnuTarget& target);

} // namespace onudesk::ctl
