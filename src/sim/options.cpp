// SPDX-License-Identifier: MIT
#include "sim/options.h"

#include <map>
#include <string_view>
#include <utility>

namespace onudesk::sim {

namespace {

// Takes the value of an option from behind "=" or from the next argument.
std::optional<std::string> optionValue(std::string_view argument, std::size_t equals,
                                       const char* const*& next, const char* const* end) {
    if (equals != std::string_view::npos) {
        return std::string(argument.substr(equals + 1));
    }
    return next == end ? std::nullopt : std::optional<std::string>(*next++);
}

Result<void> setOption(Options& options, std::string_view name, std::string value) {
    const std::map<std::string_view, std::string*> files = {{"--catalogue", &options.catalogue},
                                                            {"--access", &options.access},
                                                            {"--save", &options.save}};
    if (const auto file = files.find(name); file != files.end()) {
        *file->second = std::move(value);
        return {};
    }
    const auto endpoint = parseEndpoint(value);
    if (!endpoint || !isIpv4Address(endpoint->host)) {
        return Error{"--listen: expected ADDRESS:PORT, an IPv4 address and a port from 0 to 65535"};
    }
    options.listen = *endpoint;
    return {};
}

bool takesValue(std::string_view name) {
    return name == "--listen" || name == "--catalogue" || name == "--access" || name == "--save";
}

} // namespace

Result<Options> parseOptions(int count, const char* const* arguments) {
    Options options;
    const char* const* const end = arguments + count;
    for (const char* const* next = arguments; next != end;) {
        const std::string_view argument = *next++;
        const auto equals = argument.find('=');
        const std::string_view name = argument.substr(0, equals);
        if (argument == "--help" || argument == "-h") {
            options = {};
            options.help = true;
            return options;
        }
        if (argument == "--with-parent") {
            options.withParent = true;
        } else if (takesValue(name)) {
            auto value = optionValue(argument, equals, next, end);
            if (!value || value->empty()) {
                return Error{std::string(name) + ": value missing"};
            }
            if (const auto taken = setOption(options, name, std::move(*value)); !taken) {
                return Error{taken.error()};
            }
        } else if (argument.starts_with('-')) {
            return Error{"unknown option " + std::string(argument)};
        } else if (!options.recording.empty()) {
            return Error{"more than one recording"};
        } else {
            options.recording = argument;
        }
    }
    if (options.recording.empty()) {
        return Error{"recording missing"};
    }
    return options;
}

} // namespace onudesk::sim
