// SPDX-License-Identifier: MIT
#pragma once

#include "base/result.h"
#include "sim/agent.h"

#include <string>
#include <vector>

namespace onudesk::sim {

struct Options {
    std::string text{}; // help or version: to be printed instead of doing anything
    Endpoint listen{"127.0.0.1", 0};
    std::string catalogue{}; // empty: that of the client tree
    std::string access{};    // empty: defaultAccess()
    std::string save{};      // empty: not saved
    std::string recording{};
    bool withParent = false; // end when the parent process ends
};

// Arguments without the program's name. Errors are one line that names the option.
[[nodiscard]] Result<Options> parseOptions(const std::vector<std::string>& arguments);

} // namespace onudesk::sim
