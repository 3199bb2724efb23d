// SPDX-License-Identifier: MIT
//
// Command lines of the programs, in one style of help and errors. Options may stand before and
// behind the command; of one given more than once the last counts.
//
//     const auto line = makeCommandLine("onusim", "[OPTION]... RECORDING.snmprec");
//     addValue(*line, "--save", "FILE", "what the agent holds in the end", takeFileName);
//     const Result<std::string> text = parseCommandLine(*line, arguments);
#pragma once

#include "base/result.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <CLI/App.hpp>

namespace onudesk {

// Has --help, -h and --version; `synopsis` is what follows the program's name in the usage.
[[nodiscard]] std::unique_ptr<CLI::App> makeCommandLine(const std::string& program,
                                                        const std::string& synopsis);

// Takes a value, which is never empty, while the command line is parsed. The error says what it
// must be; option and value are named before it.
using TakeValue = std::function<Result<void>(const std::string& value)>;
CLI::Option* addValue(CLI::App& line, const std::string& name, const std::string& placeholder,
                      const std::string& help, const TakeValue& take);
CLI::Option* addFlag(CLI::App& line, const std::string& name, const std::string& help, bool& given);
// Takes the name of a file or directory, made absolute: the current directory may change later.
template <typename Path>
[[nodiscard]] TakeValue toFile(Path& path) {
    return [&path](const std::string& value) {
        path = std::filesystem::absolute(value);
        return Result<void>();
    };
}
// An option that stands alone or with "=FILE" (made absolute).
CLI::Option* addOptionalFile(CLI::App& line, const std::string& name,
                             const std::string& placeholder, const std::string& help, bool& given,
                             std::optional<std::filesystem::path>& file);

// The help or version text that was asked for, empty when the program is to run. Errors are one
// line that names the option. Arguments are without the program's name.
[[nodiscard]] Result<std::string> parseCommandLine(CLI::App& line,
                                                   std::vector<std::string> arguments);

} // namespace onudesk
