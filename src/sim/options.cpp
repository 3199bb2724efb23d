// SPDX-License-Identifier: MIT
#include "sim/options.h"

#include "base/command_line.h"
#include "base/endpoint.h"

#include <utility>

namespace onudesk::sim {

namespace {

TakeValue toText(std::string& text) {
    return [&text](const std::string& value) {
        text = value;
        return Result<void>();
    };
}

} // namespace

Result<Options> parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    const auto line = makeCommandLine("onusim", "[OPTION]... RECORDING.snmprec");
    const auto listen = [&options](const std::string& value) -> Result<void> {
        const auto endpoint = parseEndpoint(value);
        if (!endpoint || !isIpv4Address(endpoint->host)) {
            return Error{"must be an IPv4 address and a port from 0 to 65535"};
        }
        options.listen = *endpoint;
        return {};
    };
    addValue(*line, "--listen", "ADDRESS:PORT", "where to answer (127.0.0.1:0, a free port)",
             listen);
    addValue(*line, "--catalogue", "FILE", "the objects; that of the client tree when not given",
             toText(options.catalogue));
    addValue(*line, "--access", "FILE",
             "who may read and write; \"public\" and \"private\" when not given",
             toText(options.access));
    addValue(*line, "--save", "FILE.snmprec", "write what the agent holds in the end",
             toText(options.save));
    addFlag(*line, "--with-parent", "end when the parent process ends", options.withParent);
    addValue(*line, "RECORDING.snmprec", "", "what to answer", toText(options.recording))
        ->required();
    Result<std::string> text = parseCommandLine(*line, arguments);
    if (!text) {
        return Error{text.error()};
    }
    options.text = std::move(text).value();
    return options;
}

} // namespace onudesk::sim
