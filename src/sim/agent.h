// SPDX-License-Identifier: MIT
//
// A store served over SNMPv1, v2c and v3 by the Net-SNMP agent library.
#pragma once

#include "base/endpoint.h"
#include "base/result.h"
#include "sim/access.h"
#include "sim/store.h"

#include <cstdint>
#include <memory>
#include <string>

namespace onudesk::sim {

// The library serves one agent in a process, once. It reads no configuration, loads no MIBs, writes
// no files and prints nothing.
class Agent {
public:
    // Listens on the UDP endpoint, a free port for port 0. The store must outlive the agent.
    [[nodiscard]] static Result<std::unique_ptr<Agent>> open(Store& store, Access access,
                                                             const Endpoint& endpoint);
    virtual ~Agent() = default;

    // Where it listens, with the real port.
    [[nodiscard]] virtual const Endpoint& endpoint() const = 0;
    // Answers requests until the descriptor is readable.
    virtual void serve(int stopDescriptor) = 0;

protected:
    Agent() = default;
    Agent(const Agent&) = default;
    Agent& operator=(const Agent&) = default;
};

} // namespace onudesk::sim
