// SPDX-License-Identifier: MIT
//
// Hosts with their ports, and IPv4 addresses.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace onudesk {

struct Endpoint {
    std::string host{}; // a name or a dotted IPv4 address
    std::uint16_t port = 0;

    [[nodiscard]] std::string text() const { return host + ":" + std::to_string(port); }
};

// Reads "HOST:PORT", or "HOST" where there is a port to take instead. Nothing when the port is
// missing or no number from 0 to 65535. What the host is, is not looked at.
[[nodiscard]] std::optional<Endpoint> parseEndpoint(std::string_view text,
                                                    std::optional<std::uint16_t> port = {});

// Four numbers from 0 to 255 between dots, as in 192.0.2.1.
[[nodiscard]] bool isIpv4Address(const std::string& text);
// The dotted form of an address in host byte order.
[[nodiscard]] std::string addressText(std::uint32_t address);

} // namespace onudesk
