// SPDX-License-Identifier: MIT
#include "sim/access.h"
#include "sim/users.h"

#include <gtest/gtest.h>

#include <chrono>
#include <vector>

namespace onudesk::sim {
namespace {

TEST(Access, ReadsEveryForm) {
    const auto access = parseAccess("# comment\n\n community\tread public\r\n"
                                    "community write \"two words\"\n"
                                    "user a noAuthNoPriv\n"
                                    "user b authNoPriv MD5 12345678\n"
                                    "user c authNoPriv SHA \"a phrase\" write\n"
                                    "user d authPriv SHA 12345678 DES abcdefgh read\n"
                                    "user e authNoPriv MD5 readread write",
                                    "file");
    ASSERT_TRUE(access) << access.error();
    EXPECT_EQ(access->communities,
              (std::map<std::string, bool>{{"public", false}, {"two words", true}}));
    ASSERT_EQ(access->users.size(), 5U);
    EXPECT_EQ(access->users.at("c").authPhrase, "a phrase");
    EXPECT_EQ(access->users.at("c").digest, AuthProtocol::sha);
    EXPECT_TRUE(access->users.at("c").mayWrite);
    EXPECT_EQ(access->users.at("d").privPhrase, "abcdefgh");
    EXPECT_FALSE(access->users.at("d").mayWrite);
    EXPECT_EQ(access->users.at("e").digest, AuthProtocol::md5);
    EXPECT_TRUE(access->users.at("e").mayWrite);
}

TEST(Access, NamesLineAndReasonOfWhatIsWrong) {
    const std::string form = "expected user NAME noAuthNoPriv|authNoPriv|authPriv "
                             "[MD5|SHA AUTHPHRASE [DES PRIVPHRASE]] [read|write]";
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"allow public", "expected community or user"},
        {"community public", "expected community read|write NAME"},
        {"community all public", "expected community read|write NAME"},
        {"community read two words", "expected community read|write NAME"},
        {"community read \"open", "a quoted word does not end"},
        {"community read \"\"", "a community has a name"},
        {"community write public", "community \"public\" is given twice"},
        {"user", form},
        {"user a", form},
        {"user a noAuthNoPriv read write", form},
        {"user a noAuthNoPriv MD5 12345678", form},
        {"user a authNoPriv MD5", form},
        {"user a authNoPriv MD5 12345678 DES abcdefgh", form},
        {"user a authPriv MD5 12345678", form},
        {"user a authpriv", "unknown security level \"authpriv\""},
        {"user a authNoPriv md5 12345678", "unknown digest \"md5\", expected MD5 or SHA"},
        {"user a authPriv SHA 12345678 AES abcdefgh", "unknown cipher \"AES\", expected DES"},
        {"user a authNoPriv MD5 1234567", "a pass phrase has at least 8 characters"},
        {"user a authPriv MD5 12345678 DES abcdefg", "a pass phrase has at least 8 characters"},
        {"user \"\" noAuthNoPriv", "a user name has 1 to 32 bytes"},
        {"user " + std::string(33, 'n') + " noAuthNoPriv", "a user name has 1 to 32 bytes"},
        {"user known noAuthNoPriv", "user \"known\" is given twice"},
    };
    for (const auto& [line, reason] : cases) {
        const auto access =
            parseAccess("community read public\nuser known noAuthNoPriv\n" + line + "\n", "file");
        ASSERT_FALSE(access) << line;
        EXPECT_EQ(access.error(), "file:3: " + reason);
    }
}

TEST(Access, GrantsWhatTheRulesSay) {
    const Access access{
        .communities = {{"r", false}, {"w", true}},
        .users = {
            {"plain", {}},
            {"auth",
             {.level = SecurityLevel::authNoPriv, .authPhrase = "12345678", .mayWrite = true}}}};
    EXPECT_TRUE(access.allowsCommunity("r", false));
    EXPECT_FALSE(access.allowsCommunity("r", true));
    EXPECT_TRUE(access.allowsCommunity("w", true));
    EXPECT_FALSE(access.allowsCommunity("R", false));
    EXPECT_FALSE(access.allowsCommunity("", false));
    EXPECT_TRUE(access.allowsUser("plain", SecurityLevel::noAuthNoPriv, false));
    EXPECT_FALSE(access.allowsUser("plain", SecurityLevel::authPriv, true));
    EXPECT_FALSE(access.allowsUser("auth", SecurityLevel::noAuthNoPriv, false))
        << "below the user's level";
    EXPECT_TRUE(access.allowsUser("auth", SecurityLevel::authNoPriv, true));
    EXPECT_TRUE(access.allowsUser("auth", SecurityLevel::authPriv, true));
    EXPECT_FALSE(access.allowsUser("r", SecurityLevel::noAuthNoPriv, false));
}

TEST(Engine, BootsMoreOftenAtEveryLaterStart) {
    using std::chrono::seconds;
    const auto bootsAt = [](std::int64_t unixTime) {
        return engineBoots(std::chrono::system_clock::time_point(seconds(unixTime)));
    };
    EXPECT_EQ(bootsAt(0), 1);
    EXPECT_EQ(bootsAt(1577836800), 1);
    EXPECT_EQ(bootsAt(1577836802), 2);
    EXPECT_EQ(bootsAt(1577836803), 3);
    EXPECT_EQ(bootsAt(1577836800LL + 2147483646), 2147483646);
    EXPECT_EQ(bootsAt(1577836800LL + 2147483647), 2147483646);
}

} // namespace
} // namespace onudesk::sim
