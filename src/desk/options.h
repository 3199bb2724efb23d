// SPDX-License-Identifier: MIT
#pragma once

#include "base/result.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace onudesk::desk {

// The command line, checked. File names are absolute.
struct Options {
    std::string text{}; // help or version: to be printed instead of doing anything
    bool simulate = false;
    std::optional<std::filesystem::path> recording; // of the simulator; its own when absent
    std::optional<std::filesystem::path> client;
    std::optional<std::filesystem::path> inventory;
    std::optional<std::uint32_t> localeId;
};

// Arguments without the program's name. Errors are one line that names the option.
[[nodiscard]] Result<Options> parseOptions(const std::vector<std::string>& arguments);

} // namespace onudesk::desk
