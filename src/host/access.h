// SPDX-License-Identifier: MIT
#pragma once

#include "snmp/security.h"

#include <compare>
#include <cstdint>
#include <string>

namespace onudesk::host {

using onudesk::AuthProtocol;
using onudesk::PrivProtocol;
using onudesk::SecurityLevel;
using onudesk::SnmpVersion;

// Who asks, for SNMPv3 (RFC 3414). Pass phrases have at least 8 bytes where the level uses them.
struct V3Access {
    std::string user{};
    std::string contextName{};
    std::string engineId{}; // bytes of the agent's engine id; empty: ask the agent
    SecurityLevel level = SecurityLevel::notSet;
    AuthProtocol authProtocol = AuthProtocol::none;
    std::string authPassphrase{};
    PrivProtocol privProtocol = PrivProtocol::none;
    std::string privPassphrase{};

    // The check takes the generated comparison with 0 for one with a pointer.
    auto operator<=>(const V3Access&) const = default; // NOLINT(modernize-use-nullptr)
};

// How to reach an agent.
struct AgentAccess {
    std::uint32_t address = 0; // IPv4, host byte order
    std::uint16_t port = 161;
    SnmpVersion version = SnmpVersion::v2c;
    std::string readCommunity{};
    std::string writeCommunity{};
    std::int32_t timeout = 5; // of one attempt, in time-out units (seconds), 1 to 60
    std::int32_t retries = 1; // attempts after the first, 0 to 9
    V3Access v3{};
};

// "10.0.0.1:161"
[[nodiscard]] std::string agentName(const AgentAccess& access);

} // namespace onudesk::host
