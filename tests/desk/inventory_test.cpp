// SPDX-License-Identifier: MIT
#include "host/desk/inventory.h"

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

class OnuCheck : public testing::TestWithParam<OnuCase> {};

TEST_P(OnuCheck, AcceptsOrNamesTheProblemAndChangesNothing) {
    Inventory inventory = sampleInventory();
    OnuEntry onu = sampleOnu("School");
    GetParam().change(onu);

    const auto problem = inventory.putOnu(onu);

    ASSERT_EQ(problem.has_value(), GetParam().field != nullptr)
        << (problem ? problem->text : "accepted");
    if (problem) {
        EXPECT_EQ(problem->field, GetParam().field);
        EXPECT_NE(problem->text.find(GetParam().text), std::string::npos) << problem->text;
        EXPECT_EQ(inventory, sampleInventory());
    } else {
        EXPECT_EQ(inventory.onus().at(onu.name), onu);
        EXPECT_EQ(inventory.onus().size(), 2U);
    }
}

INSTANTIATE_TEST_SUITE_P(Table, OnuCheck, testing::ValuesIn(kOnuCases),
                         [](const auto& param) { return param.param.name; });

struct ProfileCase {
    const char* name;
    std::function<AccessProfile()> make;
    const char* field;
    const char* text;
};

AccessProfile changedV3(const std::function<void(AccessProfile&)>& change) {
    AccessProfile profile = v3Profile("new");
    change(profile);
    return profile;
}

AccessProfile changedV2(const std::function<void(AccessProfile&)>& change) {
    AccessProfile profile = communityProfile("new");
    change(profile);
    return profile;
}

using host::AuthProtocol;
using host::PrivProtocol;
using host::SecurityLevel;

const ProfileCase kProfileCases[] = {
    {"V2", [] { return changedV2([](auto&) {}); }, nullptr, ""},
    {"V1", [] { return changedV2([](auto& p) { p.version = host::SnmpVersion::v1; }); }, nullptr,
     ""},
    {"V3", [] { return changedV3([](auto&) {}); }, nullptr, ""},
    {"NoName", [] { return changedV2([](auto& p) { p.name.clear(); }); }, "name", "missing"},
    {"NameInUse", [] { return changedV2([](auto& p) { p.name = "core"; }); }, "name",
     "already an access profile \"core\""},
    {"NoReadCommunity", [] { return changedV2([](auto& p) { p.readCommunity.clear(); }); },
     "readCommunity", "missing"},
    {"ReadOnly", [] { return changedV2([](auto& p) { p.writeCommunity.clear(); }); }, nullptr, ""},
    {"CommunityTooLong", [] { return changedV2([](auto& p) { p.writeCommunity = bytes(101); }); },
     "writeCommunity", "100 bytes"},
    {"V2IgnoresV3Part", [] { return changedV2([](auto& p) { p.v3.authPassphrase = "short"; }); },
     nullptr, ""},
    {"V3IgnoresCommunities", [] { return changedV3([](auto& p) { p.readCommunity.clear(); }); },
     nullptr, ""},
    {"NoUser", [] { return changedV3([](auto& p) { p.v3.user.clear(); }); }, "user", "missing"},
    {"LongestUser", [] { return changedV3([](auto& p) { p.v3.user = bytes(32); }); }, nullptr, ""},
    {"UserTooLong", [] { return changedV3([](auto& p) { p.v3.user = bytes(33); }); }, "user",
     "32 bytes"},
    {"NoLevel", [] { return changedV3([](auto& p) { p.v3.level = SecurityLevel::notSet; }); },
     "level", "missing"},
    {"NoAuthProtocol",
     [] { return changedV3([](auto& p) { p.v3.authProtocol = AuthProtocol::none; }); },
     "authProtocol", "missing"},
    {"AuthPhraseTooShort",
     [] { return changedV3([](auto& p) { p.v3.authPassphrase = bytes(7); }); }, "authPassphrase",
     "at least 8"},
    {"NoAuthPhrase", [] { return changedV3([](auto& p) { p.v3.authPassphrase.clear(); }); },
     "authPassphrase", "missing"},
    {"NoPrivProtocol",
     [] { return changedV3([](auto& p) { p.v3.privProtocol = PrivProtocol::none; }); },
     "privProtocol", "missing"},
    {"PrivPhraseTooShort",
     [] { return changedV3([](auto& p) { p.v3.privPassphrase = bytes(7); }); }, "privPassphrase",
     "at least 8"},
    {"AuthNoPrivNeedsNoPrivPhrase",
     [] {
         return changedV3([](auto& p) {
             p.v3.level = SecurityLevel::authNoPriv;
             p.v3.privPassphrase.clear();
         });
     },
     nullptr, ""},
    {"AuthNoPrivNeedsAuthPhrase",
     [] {
         return changedV3([](auto& p) {
             p.v3.level = SecurityLevel::authNoPriv;
             p.v3.authPassphrase = bytes(7);
         });
     },
     "authPassphrase", "at least 8"},
    {"NoAuthNeedsNoPhrases",
     [] {
         return changedV3(
             [](auto& p) { p.v3 = {.user = "guest", .level = SecurityLevel::noAuthNoPriv}; });
     },
     nullptr, ""},
};

class ProfileCheck : public testing::TestWithParam<ProfileCase> {};

TEST_P(ProfileCheck, AcceptsOrNamesTheProblemAndChangesNothing) {
    Inventory inventory = sampleInventory();
    const AccessProfile profile = GetParam().make();

    const auto problem = inventory.putProfile(profile);

    ASSERT_EQ(problem.has_value(), GetParam().field != nullptr)
        << (problem ? problem->text : "accepted");
    if (problem) {
        EXPECT_EQ(problem->field, GetParam().field);
        EXPECT_NE(problem->text.find(GetParam().text), std::string::npos) << problem->text;
        EXPECT_EQ(inventory, sampleInventory());
    } else {
        EXPECT_EQ(inventory.profiles().at("new"), profile);
    }
}

INSTANTIATE_TEST_SUITE_P(Table, ProfileCheck, testing::ValuesIn(kProfileCases),
                         [](const auto& param) { return param.param.name; });

TEST(Inventory, ReplacesAnEntryUnderItsOldOrANewName) {
    Inventory inventory = sampleInventory();
    OnuEntry onu = sampleOnu();
    onu.onu = "1.2.6";
    ASSERT_FALSE(inventory.putOnu(onu, "Town hall"));
    EXPECT_EQ(inventory.onus().at("Town hall").onu, "1.2.6");

    onu.name = "City hall";
    ASSERT_FALSE(inventory.putOnu(onu, "Town hall"));
    EXPECT_EQ(inventory.onus().size(), 1U);
    EXPECT_EQ(inventory.onus().begin()->first, "City hall");
}

TEST(Inventory, RefusesARenameOntoAnotherEntry) {
    Inventory inventory = sampleInventory();
    ASSERT_FALSE(inventory.putOnu(sampleOnu("School")));
    const Inventory before = inventory;

    const auto problem = inventory.putOnu(sampleOnu("School"), "Town hall");

    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->field, "name");
    EXPECT_EQ(inventory, before);
}

TEST(Inventory, OnusFollowARenamedProfile) {
    Inventory inventory = sampleInventory();
    ASSERT_FALSE(inventory.putProfile(communityProfile("outdoor"), "field"));
    EXPECT_EQ(inventory.onus().at("Town hall").profile, "outdoor");
    EXPECT_FALSE(inventory.profiles().contains("field"));
}

TEST(Inventory, KeepsAProfileWhileAnOnuUsesIt) {
    Inventory inventory = sampleInventory();
    const auto problem = inventory.removeProfile("field");
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->text, "Access profile \"field\" is in use by ONU \"Town hall\"");
    EXPECT_TRUE(inventory.profiles().contains("field"));

    inventory.removeOnu("Town hall");
    EXPECT_FALSE(inventory.removeProfile("field"));
    EXPECT_FALSE(inventory.profiles().contains("field"));
}

} // namespace

} // namespace onudesk::desk
