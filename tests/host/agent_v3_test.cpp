// SPDX-License-Identifier: MIT
//
// The engine against a real agent in another process.
#include "engine_fixture.h"

#include "base/hexadecimal.h"
#include "host/agent_launcher.h"
#include "onudesk/messages.h"
#include "support/client_tree.h"

namespace onudesk::host::test {

namespace {

using namespace std::chrono_literals;

constexpr const char* kAccess = "community read readers\n"
                                "community write writers\n"
                                "user open noAuthNoPriv write\n"
                                "user reader noAuthNoPriv\n"
                                "user md5user authNoPriv MD5 authphrase1 write\n"
                                "user shauser authNoPriv SHA authphrase1 write\n"
                                "user privuser authPriv SHA authphrase1 DES privphrase1 write\n"
                                "user md5priv authPriv MD5 authphrase1 DES privphrase1 write\n";
constexpr const char* kRecording = "1.3.6.1.4.1.27315.606.1.1.2.1.2.5|2|17\n"
                                   "1.3.6.1.4.1.27315.606.1.1.19.1.2.5|4|first\n";

class AgentV3Test : public EngineTest {
protected:
    void SetUp() override {
        if (std::string_view(ONUSIM_PROGRAM).empty()) {
            GTEST_SKIP() << "the simulated agent is not part of this build";
        }
        std::filesystem::permissions(options_.access, std::filesystem::perms::owner_read |
                                                          std::filesystem::perms::owner_write);
        launch(options_);
        CatalogueSchema catalogue = testCatalogue();
        catalogue.merge(loadSchema(options_.catalogue).value());
        useCatalogue(std::move(catalogue));
        startEngine();
        useAgent(agent_->port());
        session.context.snmpVersion = 3;
    }
    void launch(const LaunchOptions& options) {
        agent_.reset();
        Result<AgentLauncher> started = AgentLauncher::start(options);
        ASSERT_TRUE(started.ok()) << started.error();
        agent_.emplace(std::move(started).value());
    }
    void useUser(const std::string& name, int level, int auth = 1,
                 const std::string& authPhrase = {}, const std::string& privPhrase = {}) {
        session.context.v3UserName = name;
        session.context.securityLevel = level;
        session.context.authProtocol = auth;
        session.context.authPassword = authPhrase;
        session.context.privProtocol = level == 3 ? 2 : 1;
        session.context.privPassword = privPhrase;
    }
    void useGoodUser() { useUser("privuser", 3, 3, "authphrase1", "privphrase1"); }
    // The LLID of the ONU, or the error of reading it.
    std::string readLlid() {
        const auto& replies = readAll(606);
        if (replies.size() != 1) {
            return std::to_string(replies.size()) + " replies";
        }
        return replies[0].errorText.value_or(replies[0].values.size() > 1 ? replies[0].values[1]
                                                                          : "value missing");
    }

    const onudesk::test::TemporaryDirectory directory_;
    const LaunchOptions options_ = {.program = ONUSIM_PROGRAM,
                                    .access = directory_.write("access", kAccess),
                                    .catalogue =
                                        ONUDESK_SOURCE_DIR "/client/CONF/snmp/snmpconfig.xml",
                                    .recording = directory_.write("data.snmprec", kRecording)};
    std::optional<AgentLauncher> agent_;
};

} // namespace

TEST_F(AgentV3Test, EveryLevelAndProtocolReadsAndWrites) {
    struct User {
        const char* name;
        int level, auth;
        bool mayWrite = true;
    };
    for (const User& user :
         {User{"open", 1, 1}, User{"reader", 1, 1, false}, User{"md5user", 2, 2},
          User{"shauser", 2, 3}, User{"md5priv", 3, 2}, User{"privuser", 3, 3}}) {
        useUser(user.name, user.level, user.auth, "authphrase1", "privphrase1");
        EXPECT_EQ(readLlid(), "17") << user.name;
        CodeParaPtr para = createWriteRequest(session, 606);
        addWriteBinding(*para, "new", {"onuName", "1.3.6.1.4.1.27315.606.1.1.19", 4}, "1.2.5");
        EXPECT_EQ(writeAll(std::move(para)).errorText.value_or(""),
                  user.mayWrite ? "" : "noAccess: onuName (binding 1)");
    }
}

TEST_F(AgentV3Test, WrongSecretsAreToldApart) {
    struct Wrong {
        const char* name;
        int level, auth;
        std::string authPhrase, told;
    };
    for (const Wrong& each : {Wrong{"nobody", 1, 1, "", "unknown user: "},
                              Wrong{"nobody", 3, 3, "authphrase1", "unknown user: "},
                              Wrong{"privuser", 3, 3, "authphrase2", "wrong digest: "},
                              Wrong{"privuser", 3, 2, "authphrase1", "wrong digest: "},
                              Wrong{"privuser", 2, 3, "authphrase1", "authorizationError"},
                              Wrong{"open", 3, 3, "authphrase1", "unsupported security level: "}}) {
        useUser(each.name, each.level, each.auth, each.authPhrase, "privphrase1");
        EXPECT_TRUE(readLlid().starts_with(each.told)) << readLlid();
    }
    // Nothing of this is left behind.
    useGoodUser();
    EXPECT_EQ(readLlid(), "17");
}

TEST_F(AgentV3Test, WrongPrivacyPassPhraseIsToldFromALostNetwork) {
    startEngine(50ms);
    session.context.timeout = 4;
    useUser("privuser", 3, 3, "authphrase1", "privphrase2");
    EXPECT_TRUE(readLlid().starts_with("decryption error: ")) << readLlid();
    session.context.retries = 0;
    EXPECT_TRUE(readLlid().starts_with("decryption error: ")) << readLlid();
    useGoodUser();
    EXPECT_EQ(readLlid(), "17");
    agent_.reset();
    EXPECT_TRUE(readLlid().starts_with("time-out: ")) << readLlid();
}

// Two sessions with the same user and different keys share the library's table of users.
TEST_F(AgentV3Test, RightAndWrongKeysOfOneUserSideBySide) {
    FakeWindow other;
    for (int round = 0; round < 5; ++round) {
        window->replies.clear();
        other.replies.clear();
        useUser("privuser", 3, 3, "authphrase2", "privphrase1");
        registerReadRoute(session, 601, other.handle());
        registerReadRoute(session, 606, window->handle());
        ASSERT_TRUE(sendReadRequest(session, 601));
        useGoodUser();
        ASSERT_TRUE(sendReadRequest(session, 606));
        waitUntilIdle();
        ASSERT_EQ(other.replies.size(), 1U);
        EXPECT_EQ(other.replies[0].errorStatus, error_status::wrongDigest);
        ASSERT_EQ(window->replies.size(), 1U);
        EXPECT_EQ(window->replies[0].values[1], "17");
    }
}

// The restarted agent has the same engine id and another number of boots.
TEST_F(AgentV3Test, RestartedAgentIsFoundAgainWithinOneRead) {
    useGoodUser();
    EXPECT_EQ(readLlid(), "17");
    LaunchOptions options = options_;
    options.arguments = {"--listen", "127.0.0.1:" + std::to_string(agent_->port())};
    launch(options);
    EXPECT_EQ(agent_->port(), session.context.snmpPort);
    EXPECT_EQ(readLlid(), "17");
    session.context.v3EngineId =
        "80001F8804" + hexDigits("onusim 127.0.0.1:" + std::to_string(agent_->port()));
    EXPECT_EQ(readLlid(), "17") << "not the same engine";
}

} // namespace onudesk::host::test
