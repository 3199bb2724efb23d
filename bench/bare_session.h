// SPDX-License-Identifier: MIT
#pragma once

#include "host/client_host.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace onudesk::bench {

// A plain Net-SNMP session that asks for a list of objects and waits for the answer: what reading
// costs without anything around it.
class BareSession {
public:
    explicit BareSession(const host::OnuTarget& target);
    ~BareSession();
    BareSession(const BareSession&) = delete;
    BareSession& operator=(const BareSession&) = delete;

    [[nodiscard]] bool open() const { return session_ != nullptr; }
    // How many of the objects the agent answered.
    [[nodiscard]] std::size_t get(const std::vector<std::string>& oids);

private:
    void* session_ = nullptr;
};

} // namespace onudesk::bench
