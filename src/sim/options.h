// SPDX-License-Identifier: MIT
#pragma once

#include "base/result.h"
#include "sim/agent.h"

#include <optional>
#include <string>

namespace onudesk::sim {

struct Options {
    Endpoint listen{"127.0.0.1", 0};
    std::string catalogue{}; // empty: that of the client tree
    std::string access{};    // empty: defaultAccess()
    std::string save{};      // empty: not saved
    std::string recording{};
    bool withParent = false; // end when the parent process ends
    bool help = false;       // nothing else is set
};

inline constexpr const char* kUsage =
    "usage: onusim [--listen ADDRESS:PORT] [--catalogue FILE] [--access FILE]\n"
    "              [--save FILE.snmprec] [--with-parent] RECORDING.snmprec\n";

// The command line without the program's name.
[[nodiscard]] Result<Options> parseOptions(int count, const char* const* arguments);

} // namespace onudesk::sim
