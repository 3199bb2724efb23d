// SPDX-License-Identifier: MIT
//
// The SNMPv3 engine and users of the agent library's process (RFC 3414).
#pragma once

#include "base/result.h"
#include "sim/access.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <string>

namespace onudesk::sim {

// The number of boots of an engine that starts now: the seconds since 2020, from 1 to 2147483646.
// As nothing is stored, the clock makes it grow, so that managers see a device that restarted.
[[nodiscard]] std::int64_t engineBoots(std::chrono::system_clock::time_point now);

// Gives the local engine an id made from the text, and its number of boots.
void installEngine(const std::string& identity);

// Adds the users to the local engine; after installEngine(). Deriving a key takes milliseconds, so
// equal pass phrases are derived once.
[[nodiscard]] Result<void> installUsers(const std::map<std::string, User>& users);

} // namespace onudesk::sim
