// SPDX-License-Identifier: MIT
#pragma once

#include "desk/inventory.h"

#include <string>

namespace onudesk::test {

inline desk::AccessProfile communityProfile(const std::string& name = "field") {
    return {.name = name, .readCommunity = "look", .writeCommunity = "touch"};
}

inline desk::AccessProfile v3Profile(const std::string& name = "core") {
    return {.name = name,
            .version = host::SnmpVersion::v3,
            .v3 = {.user = "keeper",
                   .contextName = "olt 7",
                   .level = host::SecurityLevel::authPriv,
                   .authProtocol = host::AuthProtocol::sha,
                   .authPassphrase = "eight888",
                   .privProtocol = host::PrivProtocol::des,
                   .privPassphrase = "private8"}};
}

inline desk::OnuEntry sampleOnu(const std::string& name = "Town hall") {
    return {.name = name,
            .agent = "10.0.0.1:1161",
            .onu = "1.2.5",
            .menuFile = "epononu4470_menu.xml",
            .profile = "field"};
}

// The profiles above and one ONU on the first.
inline desk::Inventory sampleInventory() {
    desk::Inventory inventory;
    static_cast<void>(inventory.putProfile(communityProfile()));
    static_cast<void>(inventory.putProfile(v3Profile()));
    static_cast<void>(inventory.putOnu(sampleOnu()));
    return inventory;
}

} // namespace onudesk::test
