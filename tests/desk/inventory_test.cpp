// SPDX-License-Identifier: MIT
#include "desk/inventory.h"

#include "sample_entries.h"

#include <functional>
#include <string>

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

struct OnuCase {
    const char* name;
    std::function<void(OnuEntry&)> change;
    const char* field; // null: accepted
    const char* text;  // part of the problem
};

const OnuCase kOnuCases[] = {
    {"AsItIs", [](OnuEntry&) {}, nullptr, ""},
    {"NoName", [](OnuEntry& e) { e.name.clear(); }, "name", "Name is missing"},
    {"LongestName", [](OnuEntry& e) { e.name = bytes(100); }, nullptr, ""},
    {"NameTooLong", [](OnuEntry& e) { e.name = bytes(101); }, "name", "100 bytes"},
    {"ChineseName", [](OnuEntry& e) { e.name = "三号楼"; }, nullptr, ""},
    {"NameWithLineBreak", [](OnuEntry& e) { e.name = "a\nb"; }, "name", "control character"},
    {"NameInUse", [](OnuEntry& e) { e.name = "Town hall"; }, "name",
     "already an ONU \"Town hall\""},
    {"NameInOtherCase", [](OnuEntry& e) { e.name = "town hall"; }, nullptr, ""},
    {"NoAgent", [](OnuEntry& e) { e.agent.clear(); }, "agent", "Agent is missing"},
    {"AddressAlone", [](OnuEntry& e) { e.agent = "192.168.1.255"; }, nullptr, ""},
    {"HostName", [](OnuEntry& e) { e.agent = "olt-7.example.net:1161"; }, nullptr, ""},
    {"AddressOutOfRange", [](OnuEntry& e) { e.agent = "10.0.0.256"; }, "agent", "10.0.0.256"},
    {"ShortAddress", [](OnuEntry& e) { e.agent = "10.1:161"; }, "agent", "10.1"},
    {"BlankInHost", [](OnuEntry& e) { e.agent = "olt 7"; }, "agent", "olt 7"},
    {"OptionLikeHost", [](OnuEntry& e) { e.agent = "-v:161"; }, "agent", "-v"},
    {"NoHost", [](OnuEntry& e) { e.agent = ":161"; }, "agent", ":161"},
    {"HighestPort", [](OnuEntry& e) { e.agent = "10.0.0.1:65535"; }, nullptr, ""},
    {"PortTooHigh", [](OnuEntry& e) { e.agent = "10.0.0.1:65536"; }, "agent", "1 to 65535"},
    {"PortZero", [](OnuEntry& e) { e.agent = "10.0.0.1:0"; }, "agent", "1 to 65535"},
    {"NoPort", [](OnuEntry& e) { e.agent = "10.0.0.1:"; }, "agent", "1 to 65535"},
    {"PortWithRest", [](OnuEntry& e) { e.agent = "10.0.0.1:161x"; }, "agent", "1 to 65535"},
    {"TwoPorts", [](OnuEntry& e) { e.agent = "10.0.0.1:161:162"; }, "agent", "1 to 65535"},
    {"NoIndex", [](OnuEntry& e) { e.onu.clear(); }, "onu", "ONU is missing"},
    {"TwoLevels", [](OnuEntry& e) { e.onu = "1.2"; }, "onu", "OLT.PON.ONU"},
    {"FourLevels", [](OnuEntry& e) { e.onu = "1.2.3.4"; }, "onu", "OLT.PON.ONU"},
    {"NegativeLevel", [](OnuEntry& e) { e.onu = "1.-1.3"; }, "onu", "1.-1.3"},
    {"EmptyLevel", [](OnuEntry& e) { e.onu = "1..3"; }, "onu", "1..3"},
    {"NoMenu", [](OnuEntry& e) { e.menuFile.clear(); }, "menu", "missing"},
    {"MenuElsewhere", [](OnuEntry& e) { e.menuFile = "..\\..\\passwd"; }, "menu", "folder"},
    {"KnownLanguage", [](OnuEntry& e) { e.localeId = 2052; }, nullptr, ""},
    {"UnknownLanguage", [](OnuEntry& e) { e.localeId = 1; }, "locale", "Language 1"},
    {"NoProfile", [](OnuEntry& e) { e.profile.clear(); }, "profile", "missing"},
    {"UnknownProfile", [](OnuEntry& e) { e.profile = "lab"; }, "profile", "\"lab\""},
};

void expectProblem(const Checked& checked, const char* field, const char* text) {
    ASSERT_EQ(checked.ok(), field == nullptr) << (checked ? "accepted" : checked.error());
    if (!checked) {
        EXPECT_EQ(checked.failure().field, field);
        EXPECT_NE(checked.error().find(text), std::string::npos) << checked.error();
    }
}

TEST(OnuCheck, AcceptsOrNamesTheProblemAndChangesNothing) {
    for (const OnuCase& each : kOnuCases) {
        SCOPED_TRACE(each.name);
        Inventory inventory = sampleInventory();
        OnuEntry onu = sampleOnu("School");
        each.change(onu);
        expectProblem(inventory.putOnu(onu), each.field, each.text);
        if (each.field != nullptr) {
            EXPECT_EQ(inventory, sampleInventory());
        } else {
            EXPECT_EQ(inventory.onus().at(onu.name), onu);
            EXPECT_EQ(inventory.onus().size(), 2U);
        }
    }
}

struct ProfileCase {
    const char* name;
    AccessProfile (*make)(const std::string& name);
    std::function<void(AccessProfile&)> change;
    const char* field; // null: accepted
    const char* text;
};

using host::AuthProtocol;
using host::PrivProtocol;
using host::SecurityLevel;
using host::SnmpVersion;
constexpr auto kV2 = &communityProfile;
constexpr auto kV3 = &v3Profile;

const ProfileCase kProfileCases[] = {
    {"V2", kV2, [](auto&) {}, nullptr, ""},
    {"V1", kV2, [](auto& p) { p.version = SnmpVersion::v1; }, nullptr, ""},
    {"V3", kV3, [](auto&) {}, nullptr, ""},
    {"NoName", kV2, [](auto& p) { p.name.clear(); }, "name", "missing"},
    {"NameInUse", kV2, [](auto& p) { p.name = "core"; }, "name",
     "already an access profile \"core\""},
    {"NoReadCommunity", kV2, [](auto& p) { p.readCommunity.clear(); }, "readCommunity", "missing"},
    {"ReadOnly", kV2, [](auto& p) { p.writeCommunity.clear(); }, nullptr, ""},
    {"CommunityTooLong", kV2, [](auto& p) { p.writeCommunity = bytes(101); }, "writeCommunity",
     "100 bytes"},
    {"V2IgnoresV3Part", kV2, [](auto& p) { p.v3.authPassphrase = "short"; }, nullptr, ""},
    {"V3IgnoresCommunities", kV3, [](auto& p) { p.readCommunity.clear(); }, nullptr, ""},
    {"NoUser", kV3, [](auto& p) { p.v3.user.clear(); }, "user", "missing"},
    {"LongestUser", kV3, [](auto& p) { p.v3.user = bytes(32); }, nullptr, ""},
    {"UserTooLong", kV3, [](auto& p) { p.v3.user = bytes(33); }, "user", "32 bytes"},
    {"NoLevel", kV3, [](auto& p) { p.v3.level = SecurityLevel::notSet; }, "level", "missing"},
    {"NoAuthProtocol", kV3, [](auto& p) { p.v3.authProtocol = AuthProtocol::none; }, "authProtocol",
     "missing"},
    {"AuthPhraseTooShort", kV3, [](auto& p) { p.v3.authPassphrase = bytes(7); }, "authPassphrase",
     "at least 8"},
    {"NoAuthPhrase", kV3, [](auto& p) { p.v3.authPassphrase.clear(); }, "authPassphrase",
     "missing"},
    {"NoPrivProtocol", kV3, [](auto& p) { p.v3.privProtocol = PrivProtocol::none; }, "privProtocol",
     "missing"},
    {"PrivPhraseTooShort", kV3, [](auto& p) { p.v3.privPassphrase = bytes(7); }, "privPassphrase",
     "at least 8"},
    {"AuthNoPrivNeedsNoPrivPhrase", kV3,
     [](auto& p) {
         p.v3.level = SecurityLevel::authNoPriv;
         p.v3.privPassphrase.clear();
     },
     nullptr, ""},
    {"AuthNoPrivNeedsAuthPhrase", kV3,
     [](auto& p) {
         p.v3.level = SecurityLevel::authNoPriv;
         p.v3.authPassphrase = bytes(7);
     },
     "authPassphrase", "at least 8"},
    {"NoAuthNeedsNoPhrases", kV3,
     [](auto& p) { p.v3 = {.user = "guest", .level = SecurityLevel::noAuthNoPriv}; }, nullptr, ""},
};

TEST(ProfileCheck, AcceptsOrNamesTheProblemAndChangesNothing) {
    for (const ProfileCase& each : kProfileCases) {
        SCOPED_TRACE(each.name);
        Inventory inventory = sampleInventory();
        AccessProfile profile = each.make("new");
        each.change(profile);
        expectProblem(inventory.putProfile(profile), each.field, each.text);
        if (each.field != nullptr) {
            EXPECT_EQ(inventory, sampleInventory());
        } else {
            EXPECT_EQ(inventory.profiles().at("new"), profile);
        }
    }
}

TEST(Inventory, ReplacesAnEntryUnderItsOldOrANewName) {
    Inventory inventory = sampleInventory();
    OnuEntry onu = sampleOnu();
    onu.onu = "1.2.6";
    ASSERT_TRUE(inventory.putOnu(onu, "Town hall"));
    EXPECT_EQ(inventory.onus().at("Town hall").onu, "1.2.6");

    onu.name = "City hall";
    ASSERT_TRUE(inventory.putOnu(onu, "Town hall"));
    EXPECT_EQ(inventory.onus().size(), 1U);
    EXPECT_EQ(inventory.onus().begin()->first, "City hall");
}

TEST(Inventory, RefusesARenameOntoAnotherEntry) {
    Inventory inventory = sampleInventory();
    ASSERT_TRUE(inventory.putOnu(sampleOnu("School")));
    const Inventory before = inventory;

    const auto taken = inventory.putOnu(sampleOnu("School"), "Town hall");

    ASSERT_FALSE(taken);
    EXPECT_EQ(taken.failure().field, "name");
    EXPECT_EQ(inventory, before);
}

TEST(Inventory, OnusFollowARenamedProfile) {
    Inventory inventory = sampleInventory();
    ASSERT_TRUE(inventory.putProfile(communityProfile("outdoor"), "field"));
    EXPECT_EQ(inventory.onus().at("Town hall").profile, "outdoor");
    EXPECT_FALSE(inventory.profiles().contains("field"));
}

TEST(Inventory, KeepsAProfileWhileAnOnuUsesIt) {
    Inventory inventory = sampleInventory();
    const auto removed = inventory.removeProfile("field");
    ASSERT_FALSE(removed);
    EXPECT_EQ(removed.error(), "Access profile \"field\" is in use by ONU \"Town hall\"");
    EXPECT_TRUE(inventory.profiles().contains("field"));

    inventory.removeOnu("Town hall");
    EXPECT_TRUE(inventory.removeProfile("field"));
    EXPECT_FALSE(inventory.profiles().contains("field"));
}

} // namespace

} // namespace onudesk::desk
