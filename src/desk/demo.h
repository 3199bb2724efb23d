// SPDX-License-Identifier: MIT
//
// A private simulated agent with the ONUs of a recording, for trying the program out.
#pragma once

#include "base/result.h"
#include "desk/inventory.h"
#include "host/agent_launcher.h"
#include "snmp/object_schema.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace onudesk::desk {

// The ONUs of which a recording has the objects of the basic page: "OLT.PON.ONU" to the ONU's name,
// empty when the recording has none that is text.
using RecordedOnus = std::map<std::string, std::string>;
[[nodiscard]] Result<RecordedOnus> recordedOnus(const CatalogueSchema& catalogue,
                                                const std::filesystem::path& recording);

// One entry per recorded ONU, on the agent at 127.0.0.1:`port`, with the profile "demo".
[[nodiscard]] Inventory demoInventory(const RecordedOnus& onus, std::uint16_t port);

struct Demo {
    host::AgentLauncher agent;
    Inventory inventory;
};
// Starts the client tree's simulator on the recording, or on the one that comes with the client.
[[nodiscard]] Result<Demo> startDemo(const std::filesystem::path& clientDirectory,
                                     const std::optional<std::filesystem::path>& recording);

} // namespace onudesk::desk
