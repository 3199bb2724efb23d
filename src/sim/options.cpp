// SPDX-License-Identifier: MIT
#include "sim/options.h"

#include <charconv>
#include <map>
#include <string_view>
#include <utility>

#include <arpa/inet.h>

namespace onudesk::sim {

namespace {

std::optional<Endpoint> parseEndpoint(std::string_view text) {
    const auto colon = text.rfind(':');
    if (colon == std::string_view::npos) {
        return std::nullopt;
    }
    Endpoint endpoint{std::string(text.substr(0, colon)), 0};
    const char* const end = text.data() + text.size();
    const auto [next, error] = std::from_chars(text.data() + colon + 1, end, endpoint.port);
    in_addr address{};
    if (error != std::errc() || next != end ||
        ::inet_pton(AF_INET, endpoint.address.c_str(), &address) != 1) {
        return std::nullopt;
    }
    return endpoint;
}

// Takes the value of an option from behind "=" or from the next argument.
std::optional<std::string> optionValue(std::string_view argument, std::size_t equals,
                                       const char* const*& next, const char* const* end) {
    if (equals != std::string_view::npos) {
        return std::string(argument.substr(equals + 1));
    }
    return next == end ? std::nullopt : std::optional<std::string>(*next++);
}

std::optional<Error> setOption(Options& options, std::string_view name, std::string value) {
    const std::map<std::string_view, std::string*> files = {{"--catalogue", &options.catalogue},
                                                            {"--access", &options.access},
                                                            {"--save", &options.save}};
    if (const auto file = files.find(name); file != files.end()) {
        *file->second = std::move(value);
        return std::nullopt;
    }
    const auto endpoint = parseEndpoint(value);
    if (!endpoint) {
        return Error{"--listen: expected ADDRESS:PORT, an IPv4 address and a port from 0 to 65535"};
    }
    options.listen = *endpoint;
    return std::nullopt;
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
            if (auto error = setOption(options, name, std::move(*value))) {
                return std::move(*error);
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
