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
    bool help = false;
    bool version = false;
    bool simulate = false;
    std::optional<std::filesystem::path> recording; // of the simulator; its own when absent
    std::optional<std::filesystem::path> client;
    std::optional<std::filesystem::path> inventory;
    std::optional<std::uint32_t> localeId;
};

// Arguments without the program's name. Errors are one line that names the argument.
[[nodiscard]] Result<Options> parseOptions(const std::vector<std::string>& arguments);

[[nodiscard]] std::string usageText();

} // namespace onudesk::desk
