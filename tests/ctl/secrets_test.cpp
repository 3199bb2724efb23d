// SPDX-License-Identifier: MIT
#include "ctl/secrets.h"

#include "support/client_tree.h"

#include <cstdlib>

#include <gtest/gtest.h>

namespace onudesk::ctl {
namespace {

namespace fs = std::filesystem;

class SecretsTest : public testing::Test {
protected:
    // What reading a file with the text says, empty for nothing.
    std::string read(const std::string& text, unsigned mode = 0600) {
        const fs::path file = directory_.write("secrets", text);
        fs::permissions(file, static_cast<fs::perms>(mode));
        const auto taken = readSecretsFile(file, target);
        return taken ? std::string() : taken.error();
    }

    host::OnuTarget target;

private:
    test::TemporaryDirectory directory_;
};

TEST_F(SecretsTest, FileSetsWhatItNames) {
    target.writeCommunity = "kept";
    EXPECT_EQ(read("# access\n\nread-community=a=b \r\nv3-user=operator\nv3-level=authPriv\n"
                   "v3-auth-protocol=SHA\nv3-auth-passphrase=authentic\nv3-context=c\n"
                   "v3-priv-protocol=DES\nv3-priv-passphrase=privately"),
              "");
    EXPECT_EQ(target.readCommunity, "a=b ");
    EXPECT_EQ(target.writeCommunity, "kept");
    const host::V3Access expected{.user = "operator",
                                  .contextName = "c",
                                  .level = host::SecurityLevel::authPriv,
                                  .authProtocol = host::AuthProtocol::sha,
                                  .authPassphrase = "authentic",
                                  .privProtocol = host::PrivProtocol::des,
                                  .privPassphrase = "privately"};
    EXPECT_EQ(target.v3, expected);
}

TEST_F(SecretsTest, MistakesNameTheLineAndNeverTheValue) {
    struct Case {
        std::string text;
        const char* reason;
        unsigned mode = 0600;
    };
    const Case rows[] = {
        {"v3-user=a\nhunter2", ":2: no known NAME=VALUE"},
        {"password=hunter2", ":1: no known NAME=VALUE"},
        {"\nv3-level=hunter2", ":2: unknown or too long value of v3-level"},
        {"read-community=hunter2" + std::string(94, 'x'), ":1: unknown or too long value of read"},
        {"v3-context=hunter2", "others can read it", 0640},
        {"v3-context=hunter2", "others can read it", 0602},
    };
    for (const Case& row : rows) {
        const std::string told = read(row.text, row.mode);
        EXPECT_NE(told.find(row.reason), std::string::npos) << row.text << ": " << told;
        EXPECT_EQ(told.find("hunter2"), std::string::npos) << told;
    }
    EXPECT_EQ(target.v3.contextName, "");
    EXPECT_FALSE(readSecretsFile("/nowhere/secrets", target));
}

TEST_F(SecretsTest, EnvironmentSetsTheSameNames) {
    ::setenv("ONUDESK_READ_COMMUNITY", "from-environment", 1);
    ::setenv("ONUDESK_V3_LEVEL", "authNoPriv", 1);
    EXPECT_TRUE(readSecretsEnvironment(target));
    EXPECT_EQ(target.readCommunity, "from-environment");
    EXPECT_EQ(target.v3.level, host::SecurityLevel::authNoPriv);
    ::setenv("ONUDESK_V3_LEVEL", "most", 1);
    EXPECT_FALSE(readSecretsEnvironment(target));
    ::unsetenv("ONUDESK_READ_COMMUNITY");
    ::unsetenv("ONUDESK_V3_LEVEL");
}

} // namespace
} // namespace onudesk::ctl
