// SPDX-License-Identifier: MIT
#include "desk/options.h"

#include "base/numbers.h"
#include "platform/files.h"

#include <string_view>

namespace onudesk::desk {

namespace {

namespace fs = std::filesystem;

// "--name=value", or "--name" with the value in the next argument.
struct Argument {
    std::string name;
    std::optional<std::string> value;
};

Argument split(const std::string& text) {
    const auto equals = text.find('=');
    if (equals == std::string::npos) {
        return {text, std::nullopt};
    }
    return {text.substr(0, equals), text.substr(equals + 1)};
}

// Takes an option that stands alone; false when it is none of these.
bool takeFlag(const Argument& argument, Options& options) {
    if (argument.name == "--sim") {
        options.simulate = true;
        if (argument.value && !argument.value->empty()) {
            options.recording = fs::absolute(*argument.value);
        }
        return true;
    }
    if (argument.value) {
        return false;
    }
    options.help = options.help || argument.name == "--help" || argument.name == "-h";
    options.version = options.version || argument.name == "--version";
    return argument.name == "--help" || argument.name == "-h" || argument.name == "--version";
}

bool takesValue(const std::string& name) {
    return name == "--client" || name == "--inventory" || name == "--locale";
}

Result<void> takeValue(const std::string& name, const std::string& value, Options& options) {
    if (name == "--client") {
        options.client = fs::absolute(value);
        return {};
    }
    if (name == "--inventory") {
        options.inventory = fs::absolute(value);
        return {};
    }
    const auto locale = parseNumber<std::uint32_t>(value);
    if (!locale || platform::localeAbbreviation(*locale).empty()) {
        return Error{"--locale " + value + ": must be the number of a language, such as 1033"};
    }
    options.localeId = *locale;
    return {};
}

} // namespace

Result<Options> parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    for (auto next = arguments.begin(); next != arguments.end();) {
        Argument argument = split(*next++);
        if (takeFlag(argument, options)) {
            if (argument.value && argument.value->empty()) {
                return Error{argument.name + ": value missing"};
            }
            continue;
        }
        if (!takesValue(argument.name)) {
            return Error{"unknown argument " + argument.name};
        }
        if (!argument.value && next != arguments.end()) {
            argument.value = *next++;
        }
        if (!argument.value || argument.value->empty()) {
            return Error{argument.name + ": value missing"};
        }
        if (const Result<void> taken = takeValue(argument.name, *argument.value, options); !taken) {
            return Error{taken.error()};
        }
    }
    if (options.simulate && options.inventory) {
        return Error{"give either --sim or --inventory"};
    }
    return options;
}

std::string usageText() {
    return "usage: onudesk [--sim[=FILE.snmprec]] [--client DIR] [--inventory FILE] [--locale ID]\n"
           "\n"
           "  --sim[=FILE.snmprec]  list the ONUs of a private simulated agent\n"
           "  --client DIR          client tree; that of the program when not given\n"
           "  --inventory FILE      list of ONUs; onudesk/inventory.json in the user's\n"
           "                        configuration directory when not given\n"
           "  --locale ID           language, such as 1033 (English) or 2052 (Simplified Chinese)\n"
           "  --help, --version     print this text, print the version\n";
}

} // namespace onudesk::desk
