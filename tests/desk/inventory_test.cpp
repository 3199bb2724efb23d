// SPDX-License-Identifier: MIT
#include "desk/inventory.h"

#include "sample_entries.h"

#include <functional>

#include <gtest/gtest.h>

namespace onudesk::desk {

namespace {

using test::communityProfile;
using test::sampleInventory;
using test::sampleOnu;
using test::v3Profile;

std::string bytes(std::size_t count) {
    return std::string(count, 'x');
}

// What the entry's field is refused for, in part; empty when it is taken.
struct OnuCase {
    std::string OnuEntry::*member;
    const char* field;
    std::string text;
    const char* problem;
};

const OnuCase kOnuCases[] = {
    {&OnuEntry::name, "name", "", "Name is missing"},
    {&OnuEntry::name, "name", bytes(100), ""},
    {&OnuEntry::name, "name", bytes(101), "100 bytes"},
    {&OnuEntry::name, "name", "三号楼", ""},
    {&OnuEntry::name, "name", "a\nb", "control character"},
    {&OnuEntry::name, "name", "Town hall", "already an ONU \"Town hall\""},
    {&OnuEntry::name, "name", "town hall", ""},
    {&OnuEntry::agent, "agent", "", "Agent is missing"},
    {&OnuEntry::agent, "agent", "192.168.1.255", ""},
    {&OnuEntry::agent, "agent", "olt-7.example.net:1161", ""},
    {&OnuEntry::agent, "agent", "10.0.0.256", "10.0.0.256"},
    {&OnuEntry::agent, "agent", "10.1:161", "10.1"},
    {&OnuEntry::agent, "agent", "olt 7", "olt 7"},
    {&OnuEntry::agent, "agent", "-v:161", "-v"},
    {&OnuEntry::agent, "agent", ":161", ":161"},
    {&OnuEntry::agent, "agent", "10.0.0.1:65535", ""},
    {&OnuEntry::agent, "agent", "10.0.0.1:65536", "1 to 65535"},
    {&OnuEntry::agent, "agent", "10.0.0.1:0", "1 to 65535"},
    {&OnuEntry::agent, "agent", "10.0.0.1:", "1 to 65535"},
    {&OnuEntry::agent, "agent", "10.0.0.1:161x", "1 to 65535"},
    {&OnuEntry::agent, "agent", "10.0.0.1:161:162", "1 to 65535"},
    {&OnuEntry::onu, "onu", "", "ONU is missing"},
    {&OnuEntry::onu, "onu", "1.2.3", ""},
    {&OnuEntry::onu, "onu", "1.2", "OLT.PON.ONU"},
    {&OnuEntry::onu, "onu", "1.2.3.4", "OLT.PON.ONU"},
    {&OnuEntry::onu, "onu", "1.-1.3", "1.-1.3"},
    {&OnuEntry::onu, "onu", "1..3", "1..3"},
    {&OnuEntry::menuFile, "menu", "", "missing"},
    {&OnuEntry::menuFile, "menu", "..\\..\\passwd", "folder"},
    {&OnuEntry::profile, "profile", "", "missing"},
    {&OnuEntry::profile, "profile", "lab", "\"lab\""},
};

// Whether the entry was refused for that, or taken.
void expectPut(const Checked& checked, const char* field, const std::string& text) {
    ASSERT_EQ(checked.ok(), text.empty()) << (checked ? "taken" : checked.error());
    if (!checked) {
        EXPECT_EQ(checked.failure().field, field);
        EXPECT_NE(checked.error().find(text), std::string::npos) << checked.error();
    }
}

void expectOnu(const OnuEntry& onu, const char* field, const std::string& problem) {
    SCOPED_TRACE(onu.name + '|' + onu.agent + '|' + onu.onu + '|' + onu.menuFile);
    Inventory inventory = sampleInventory();
    expectPut(inventory.putOnu(onu), field, problem);
    if (problem.empty()) {
        EXPECT_EQ(inventory.onus().at(onu.name), onu);
        EXPECT_EQ(inventory.onus().size(), 2U);
    } else {
        EXPECT_EQ(inventory, sampleInventory());
    }
}

TEST(Inventory, TakesAnOnuOrNamesTheProblemAndChangesNothing) {
    for (const OnuCase& row : kOnuCases) {
        OnuEntry onu = sampleOnu("School");
        onu.*row.member = row.text;
        expectOnu(onu, row.field, row.problem);
    }
    for (const auto& [locale, problem] : {std::pair(2052U, ""), {1U, "Language 1"}}) {
        OnuEntry onu = sampleOnu("School");
        onu.localeId = locale;
        expectOnu(onu, "locale", problem);
    }
}

using host::AuthProtocol;
using host::PrivProtocol;
using host::SecurityLevel;
using host::SnmpVersion;
using Change = std::function<void(AccessProfile&)>;

struct ProfileCase {
    bool v3;
    Change change;
    const char* field;
    const char* problem;
};

const ProfileCase kProfileCases[] = {
    {false, [](auto&) {}, "", ""},
    {false, [](auto& p) { p.version = SnmpVersion::v1; }, "", ""},
    {true, [](auto&) {}, "", ""},
    {false, [](auto& p) { p.name.clear(); }, "name", "missing"},
    {false, [](auto& p) { p.name = "core"; }, "name", "already an access profile \"core\""},
    {false, [](auto& p) { p.readCommunity.clear(); }, "readCommunity", "missing"},
    {false, [](auto& p) { p.writeCommunity.clear(); }, "", ""},
    {false, [](auto& p) { p.writeCommunity = bytes(101); }, "writeCommunity", "100 bytes"},
    {false, [](auto& p) { p.v3.authPassphrase = "short"; }, "", ""},
    {true, [](auto& p) { p.readCommunity.clear(); }, "", ""},
    {true, [](auto& p) { p.v3.user.clear(); }, "user", "missing"},
    {true, [](auto& p) { p.v3.user = bytes(32); }, "", ""},
    {true, [](auto& p) { p.v3.user = bytes(33); }, "user", "32 bytes"},
    {true, [](auto& p) { p.v3.level = SecurityLevel::notSet; }, "level", "missing"},
    {true, [](auto& p) { p.v3.authProtocol = AuthProtocol::none; }, "authProtocol", "missing"},
    {true, [](auto& p) { p.v3.authPassphrase = bytes(7); }, "authPassphrase", "at least 8"},
    {true, [](auto& p) { p.v3.authPassphrase.clear(); }, "authPassphrase", "missing"},
    {true, [](auto& p) { p.v3.privProtocol = PrivProtocol::none; }, "privProtocol", "missing"},
    {true, [](auto& p) { p.v3.privPassphrase = bytes(7); }, "privPassphrase", "at least 8"},
    {true,
     [](auto& p) {
         p.v3.level = SecurityLevel::authNoPriv;
         p.v3.privPassphrase.clear();
     },
     "", ""},
    {true,
     [](auto& p) {
         p.v3.level = SecurityLevel::authNoPriv;
         p.v3.authPassphrase = bytes(7);
     },
     "authPassphrase", "at least 8"},
    {true, [](auto& p) { p.v3 = {.user = "guest", .level = SecurityLevel::noAuthNoPriv}; }, "", ""},
};

TEST(Inventory, TakesAProfileOrNamesTheProblemAndChangesNothing) {
    for (const ProfileCase& row : kProfileCases) {
        SCOPED_TRACE(&row - kProfileCases);
        Inventory inventory = sampleInventory();
        AccessProfile profile = row.v3 ? v3Profile("new") : communityProfile("new");
        row.change(profile);
        expectPut(inventory.putProfile(profile), row.field, row.problem);
        if (std::string(row.problem).empty()) {
            EXPECT_EQ(inventory.profiles().at("new"), profile);
        } else {
            EXPECT_EQ(inventory, sampleInventory());
        }
    }
}

TEST(Inventory, ReplacesRenamesAndKeepsWhatIsInUse) {
    Inventory inventory = sampleInventory();
    OnuEntry onu = sampleOnu();
    onu.onu = "1.2.6";
    expectPut(inventory.putOnu(onu, "Town hall"), "", "");
    EXPECT_EQ(inventory.onus().at("Town hall").onu, "1.2.6");
    onu.name = "City hall";
    expectPut(inventory.putOnu(onu, "Town hall"), "", "");
    EXPECT_EQ(inventory.onus().size(), 1U);
    EXPECT_TRUE(inventory.onus().contains("City hall"));

    expectPut(inventory.putOnu(sampleOnu("School")), "", "");
    const Inventory before = inventory;
    expectPut(inventory.putOnu(sampleOnu("School"), "City hall"), "name", "already an ONU");
    EXPECT_EQ(inventory, before);

    expectPut(inventory.putProfile(communityProfile("outdoor"), "field"), "", "");
    EXPECT_EQ(inventory.onus().at("City hall").profile, "outdoor");
    EXPECT_FALSE(inventory.profiles().contains("field"));
    expectPut(inventory.removeProfile("outdoor"), "name",
              "Access profile \"outdoor\" is in use by ONU \"City hall\"");
    EXPECT_TRUE(inventory.profiles().contains("outdoor"));
    inventory.removeOnu("City hall");
    inventory.removeOnu("School");
    expectPut(inventory.removeProfile("outdoor"), "", "");
    EXPECT_FALSE(inventory.profiles().contains("outdoor"));
}

} // namespace

} // namespace onudesk::desk
