// SPDX-License-Identifier: MIT
#include "desk/inventory.h"

#include "base/endpoint.h"
#include "base/text.h"
#include "host/client_host.h"
#include "platform/files.h"

#include <algorithm>
#include <string_view>

namespace onudesk::desk {

namespace {

struct TextCheck {
    const char* field;
    const char* label;
    const std::string& text;
    std::size_t least;
    std::size_t most;
};

Checked checkText(const TextCheck& check) {
    const std::string label = check.label;
    if (check.text.empty() && check.least > 0) {
        return Problem{check.field, label + " is missing"};
    }
    if (check.text.size() < check.least) {
        return Problem{check.field,
                       label + " needs at least " + std::to_string(check.least) + " characters"};
    }
    if (check.text.size() > check.most) {
        return Problem{check.field,
                       label + " is longer than " + std::to_string(check.most) + " bytes"};
    }
    if (!isLine(check.text)) {
        return Problem{check.field, label + " contains a control character"};
    }
    return {};
}

template <std::size_t count>
Checked checkTexts(const TextCheck (&checks)[count]) {
    for (const TextCheck& check : checks) {
        if (Checked checked = checkText(check); !checked) {
            return checked;
        }
    }
    return {};
}

bool isHostName(const std::string& host) {
    constexpr std::string_view digits = "0123456789";
    constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    if (host.find_first_not_of(std::string(digits) + '.') == std::string::npos) {
        return isIpv4Address(host);
    }
    return host.front() != '-' && host.front() != '.' &&
           host.find_first_not_of(std::string(digits) + std::string(letters) + ".-_") ==
               std::string::npos;
}

Checked checkAgent(const std::string& agent) {
    if (!isHostName(agent.substr(0, agent.find(':')))) {
        return Problem{"agent", "Agent \"" + agent +
                                    "\" does not begin with an IPv4 address or a host name"};
    }
    const auto endpoint = parseEndpoint(agent, 1);
    if (!endpoint || endpoint->port == 0) {
        return Problem{"agent",
                       "Agent \"" + agent + "\": the port must be a number from 1 to 65535"};
    }
    return {};
}

Checked checkPlace(const OnuEntry& onu) {
    host::OnuTarget target;
    if (!host::parseOnuIndex(onu.onu, target) || target.onuNumber < 0) {
        return Problem{"onu",
                       "ONU \"" + onu.onu + "\" is not of the form OLT.PON.ONU, such as 1.2.5"};
    }
    if (onu.menuFile.find_first_of("/\\") != std::string::npos) {
        return Problem{"menu", "Menu file \"" + onu.menuFile +
                                   "\" must be the name of a file in CONF/snmp, without a folder"};
    }
    if (onu.localeId != 0 && platform::localeAbbreviation(onu.localeId).empty()) {
        return Problem{"locale", "Language " + std::to_string(onu.localeId) + " is not known"};
    }
    return checkAgent(onu.agent);
}

Checked checkCommunities(const AccessProfile& profile) {
    const TextCheck checks[] = {
        {"readCommunity", "Read community", profile.readCommunity, 1, kMaxTextBytes},
        {"writeCommunity", "Write community", profile.writeCommunity, 0, kMaxTextBytes}};
    return checkTexts(checks);
}

Checked checkAuthentication(const host::V3Access& v3) {
    if (v3.authProtocol == host::AuthProtocol::none) {
        return Problem{"authProtocol", "Authentication protocol is missing"};
    }
    return checkText({"authPassphrase", "Authentication pass phrase", v3.authPassphrase,
                      kMinPassphraseBytes, kMaxLongTextBytes});
}

Checked checkPrivacy(const host::V3Access& v3) {
    if (v3.privProtocol == host::PrivProtocol::none) {
        return Problem{"privProtocol", "Privacy protocol is missing"};
    }
    return checkText({"privPassphrase", "Privacy pass phrase", v3.privPassphrase,
                      kMinPassphraseBytes, kMaxLongTextBytes});
}

Checked checkV3(const host::V3Access& v3) {
    const TextCheck checks[] = {{"user", "User", v3.user, 1, kMaxUserBytes},
                                {"context", "Context", v3.contextName, 0, kMaxLongTextBytes}};
    Checked checked = checkTexts(checks);
    if (checked && v3.level == host::SecurityLevel::notSet) {
        checked = Problem{"level", "Security level is missing"};
    }
    if (checked && v3.level >= host::SecurityLevel::authNoPriv) {
        checked = checkAuthentication(v3);
    }
    if (checked && v3.level == host::SecurityLevel::authPriv) {
        checked = checkPrivacy(v3);
    }
    return checked;
}

Checked checkProfile(const AccessProfile& profile) {
    if (Checked checked = checkText({"name", "Name", profile.name, 1, kMaxTextBytes}); !checked) {
        return checked;
    }
    return profile.version == host::SnmpVersion::v3 ? checkV3(profile.v3)
                                                    : checkCommunities(profile);
}

Checked checkOnu(const OnuEntry& onu) {
    const TextCheck checks[] = {{"name", "Name", onu.name, 1, kMaxTextBytes},
                                {"agent", "Agent", onu.agent, 1, kMaxLongTextBytes},
                                {"onu", "ONU", onu.onu, 1, kMaxTextBytes},
                                {"menu", "Menu file", onu.menuFile, 1, kMaxTextBytes},
                                {"profile", "Access profile", onu.profile, 1, kMaxTextBytes}};
    Checked checked = checkTexts(checks);
    return checked ? checkPlace(onu) : checked;
}

template <typename Entry>
Checked checkName(const std::map<std::string, Entry>& entries, const std::string& name,
                  const std::string& replaced, const char* what) {
    if (name != replaced && entries.contains(name)) {
        return Problem{"name", std::string("There is already ") + what + " \"" + name + "\""};
    }
    return {};
}

} // namespace

Checked Inventory::putOnu(const OnuEntry& onu, const std::string& replaced) {
    Checked checked = checkOnu(onu);
    if (checked) {
        checked = checkName(onus_, onu.name, replaced, "an ONU");
    }
    if (checked && !profiles_.contains(onu.profile)) {
        checked = Problem{"profile", "There is no access profile \"" + onu.profile + "\""};
    }
    if (checked) {
        onus_.erase(replaced);
        onus_.insert_or_assign(onu.name, onu);
    }
    return checked;
}

void Inventory::removeOnu(const std::string& name) {
    onus_.erase(name);
}

Checked Inventory::putProfile(const AccessProfile& profile, const std::string& replaced) {
    Checked checked = checkProfile(profile);
    if (checked) {
        checked = checkName(profiles_, profile.name, replaced, "an access profile");
    }
    if (!checked) {
        return checked;
    }
    profiles_.erase(replaced);
    profiles_.insert_or_assign(profile.name, profile);
    for (auto& [name, onu] : onus_) {
        if (!replaced.empty() && onu.profile == replaced) {
            onu.profile = profile.name;
        }
    }
    return {};
}

Checked Inventory::removeProfile(const std::string& name) {
    const auto user = std::ranges::find_if(
        onus_, [&name](const auto& entry) { return entry.second.profile == name; });
    if (user != onus_.end()) {
        return Problem{"name",
                       "Access profile \"" + name + "\" is in use by ONU \"" + user->first + "\""};
    }
    profiles_.erase(name);
    return {};
}

} // namespace onudesk::desk
