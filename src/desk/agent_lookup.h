// SPDX-License-Identifier: MIT
#pragma once

#include "base/result.h"
#include "host/client_host.h"

#include <functional>
#include <memory>
#include <string>

namespace onudesk::desk {

// Finds the address behind "HOST[:PORT]" without keeping the user interface waiting for a name
// server. User-interface thread only.
class AgentLookup {
public:
    // A target with the address and port filled in.
    using Done = std::function<void(const Result<host::OnuTarget>& target)>;

    AgentLookup();
    ~AgentLookup();
    AgentLookup(const AgentLookup&) = delete;
    AgentLookup& operator=(const AgentLookup&) = delete;

    // Calls `done` once: before returning when the host is an address, otherwise later, from the
    // event loop. Never after this object is gone.
    void start(const std::string& agent, const Done& done);

private:
    struct Receiver;
    std::shared_ptr<Receiver> receiver_;
};

} // namespace onudesk::desk
