// SPDX-License-Identifier: MIT
#pragma once

#include "base/result.h"
#include "host/client_host.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace onudesk::ctl {

enum class Command { items, show, screenshot, run };

// The command line, checked. File names are absolute.
struct Options {
    std::string text{}; // help or version: to be printed instead of doing anything
    Command command = Command::items;
    std::int32_t item = 0;            // of show and screenshot
    std::filesystem::path outputFile; // of screenshot
    std::filesystem::path scriptFile; // of run; "-" for standard input
    bool simulate = false;
    std::optional<std::filesystem::path> recording; // of the simulator; its own when absent
    host::OnuTarget target;                         // communities and pass phrases still empty
    std::optional<std::filesystem::path> secretsFile;
    std::filesystem::path clientDirectory;
    std::optional<std::filesystem::path> traceFile; // "-" for standard output
    bool json = false;
    bool watch = false; // of run
};

inline constexpr const char* kStandardOutput = "-";
inline constexpr const char* kStandardInput = "-";

// Arguments without the program's name. Errors are one line that names the option.
[[nodiscard]] Result<Options> parseOptions(const std::vector<std::string>& arguments);

} // namespace onudesk::ctl
