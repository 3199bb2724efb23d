// SPDX-License-Identifier: MIT
//
// The operator's ONUs and the access profiles that say how their agents are reached.
#pragma once

#include "base/result.h"
#include "host/access.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

namespace onudesk::desk {

// The window takes at most this many bytes of a text (see HolderConfigParam).
inline constexpr std::size_t kMaxTextBytes = 100;
inline constexpr std::size_t kMaxLongTextBytes = 255;
// The menu that every client tree has.
inline constexpr const char* kGeneralMenu = "epononuother_menu.xml";

// How to reach an agent. Only what the version and, for v3, the level use is checked; the rest is
// kept. The engine id stays empty.
struct AccessProfile {
    std::string name{};
    host::SnmpVersion version = host::SnmpVersion::v2c;
    std::string readCommunity{};
    std::string writeCommunity{};
    host::V3Access v3{};

    auto operator<=>(const AccessProfile&) const = default;
};

struct OnuEntry {
    std::string name{};
    std::string agent{};        // "HOST[:PORT]"
    std::string onu{};          // "OLT.PON.ONU"
    std::string menuFile{};     // a file of CONF/snmp
    std::uint32_t localeId = 0; // 0: that of the program
    std::string profile{};      // name of an access profile

    auto operator<=>(const OnuEntry&) const = default;
};

// Why an entry was refused. `field` is the key the field has in the file.
struct Problem {
    std::string field;
    std::string text;
};
using Checked = Result<void, Problem>;

// Names are unique and compared exactly. A refused operation changed nothing.
class Inventory {
public:
    using Onus = std::map<std::string, OnuEntry>;
    using Profiles = std::map<std::string, AccessProfile>;

    [[nodiscard]] const Onus& onus() const { return onus_; }
    [[nodiscard]] const Profiles& profiles() const { return profiles_; }

    // Adds the entry, or puts it in the place of the one named `replaced`.
    [[nodiscard]] Checked putOnu(const OnuEntry& onu, const std::string& replaced = {});
    void removeOnu(const std::string& name);

    // The same for profiles; ONUs follow a profile to its new name.
    [[nodiscard]] Checked putProfile(const AccessProfile& profile,
                                     const std::string& replaced = {});
    // Refused while an ONU uses the profile.
    [[nodiscard]] Checked removeProfile(const std::string& name);

    bool operator==(const Inventory&) const = default;

private:
    Onus onus_;
    Profiles profiles_;
};

} // namespace onudesk::desk
