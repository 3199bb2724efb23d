// SPDX-License-Identifier: MIT
#include "base/endpoint.h"

#include "base/numbers.h"

#include <arpa/inet.h>

namespace onudesk {

std::optional<Endpoint> parseEndpoint(std::string_view text, std::optional<std::uint16_t> port) {
    const auto colon = text.find(':');
    if (colon != std::string_view::npos) {
        port = parseNumber<std::uint16_t>(text.substr(colon + 1));
    }
    return port ? std::optional(Endpoint{std::string(text.substr(0, colon)), *port}) : std::nullopt;
}

bool isIpv4Address(const std::string& text) {
    in_addr address{};
    return ::inet_pton(AF_INET, text.c_str(), &address) == 1;
}

std::string addressText(std::uint32_t address) {
    in_addr network{};
    network.s_addr = htonl(address);
    return ::inet_ntoa(network);
}

} // namespace onudesk
