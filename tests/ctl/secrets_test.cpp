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
    fs::path write(const std::string& text,
                   fs::perms mode = fs::perms::owner_read | fs::perms::owner_write) {
        const fs::path file = directory_.write("secrets", text);
        fs::permissions(file, mode);
        return file;
    }

private:
    test::TemporaryDirectory directory_;
};

TEST_F(SecretsTest, FileSetsWhatItNames) {
    host::OnuTarget target;
    target.writeCommunity = "kept";
    const auto taken = readSecretsFile(write("# access\n\nread-community=a=b \r\n"
                                             "v3-user=operator\nv3-level=authPriv\n"
                                             "v3-auth-protocol=SHA\nv3-auth-passphrase=authentic\n"
                                             "v3-priv-protocol=DES\nv3-priv-passphrase=privately"),
                                       target);
    ASSERT_TRUE(taken) << taken.error();
    EXPECT_EQ(target.readCommunity, "a=b ");
    EXPECT_EQ(target.writeCommunity, "kept");
    EXPECT_EQ(target.v3.user, "operator");
    EXPECT_EQ(target.v3.level, host::SecurityLevel::authPriv);
    EXPECT_EQ(target.v3.authProtocol, host::AuthProtocol::sha);
    EXPECT_EQ(target.v3.privPassphrase, "privately");
}

TEST_F(SecretsTest, MistakesNameTheLineAndNeverTheValue) {
    const std::pair<const char*, const char*> cases[] = {
        {"v3-user=a\nhunter2", ":2: no known NAME=VALUE"},
        {"password=hunter2", ":1: no known NAME=VALUE"},
        {"\nv3-level=hunter2", ":2: unknown or too long value of v3-level"},
    };
    host::OnuTarget tooLong;
    EXPECT_FALSE(readSecretsFile(write("read-community=" + std::string(101, 'x')), tooLong));
    for (const auto& [text, reason] : cases) {
        host::OnuTarget target;
        const auto taken = readSecretsFile(write(text), target);
        ASSERT_FALSE(taken);
        EXPECT_NE(taken.error().find(reason), std::string::npos) << taken.error();
        EXPECT_EQ(taken.error().find("hunter2"), std::string::npos) << taken.error();
    }
}

TEST_F(SecretsTest, FilesThatOthersCanReadAreRefused) {
    host::OnuTarget target;
    const fs::perms owner = fs::perms::owner_read | fs::perms::owner_write;
    EXPECT_FALSE(readSecretsFile(write("v3-user=a", owner | fs::perms::group_read), target));
    EXPECT_FALSE(readSecretsFile(write("v3-user=a", owner | fs::perms::others_write), target));
    EXPECT_EQ(target.v3.user, "");
    EXPECT_FALSE(readSecretsFile("/nowhere/secrets", target));
}

TEST_F(SecretsTest, EnvironmentSetsTheSameNames) {
    host::OnuTarget target;
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
