// SPDX-License-Identifier: MIT
#include "engine_fixture.h"

#include "onudesk/messages.h"

namespace onudesk::host::test {

namespace {

using namespace std::chrono_literals;

const Texts k42 = {"42", "", "", ""};
const std::string kOtherEngine = "\x80\x09\x08\x07\x06\x05";

class V3Test : public EngineTest {
protected:
    V3Test() {
        session.context.snmpVersion = 3;
        session.context.v3UserName = "operator";
        session.context.securityLevel = 1;
        session.context.securityModel = 3;
    }
    Mib mib{{{cell(600, 1), integerValue(42)}}};
};

// A REPORT with one of the counters of RFC 3414.
AgentResponse report(std::uint32_t counter, const std::string& engineId) {
    return {.bindings = {{oidOf("1.3.6.1.6.3.15.1.1." + std::to_string(counter) + ".0"),
                          {Tag::counter32, std::uint64_t{1}}}},
            .pdu = kReport,
            .engineId = engineId};
}

constexpr std::uint32_t kNotInTime = 2; // is tried once more
constexpr std::uint32_t kUnknownEngine = 4;

// Reports its engine to whoever does not know it, and answers everybody else from the data.
Script discoverable(Mib& mib, std::string engineId) {
    return [&mib, engineId = std::move(engineId)](const AgentRequest& request, Outbox& outbox) {
        AgentResponse response =
            request.engineId == engineId ? mib.answer(request) : report(kUnknownEngine, engineId);
        response.engineId = engineId;
        outbox.answer(request, response);
    };
}

} // namespace

TEST_F(V3Test, EngineIsFoundOnceAndThenKnown) {
    Agent agent(*this, discoverable(mib, kOtherEngine));
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(readAll(600)[0].values, k42);
    }
    requests = agent.requests();
    ASSERT_EQ(requests.size(), 4U);
    EXPECT_TRUE(requests[0].user.empty());
    EXPECT_TRUE(requests[0].bindings.empty());
    EXPECT_EQ(requests[1].user, "operator");
    EXPECT_EQ(requests[3].engineId, kOtherEngine);
}

TEST_F(V3Test, GivenEngineIdIsUsedWithoutAskingAndNamedWhenWrong) {
    session.context.v3EngineId = "800908070605";
    EXPECT_EQ(readOne(discoverable(mib, kOtherEngine)).values, k42);
    EXPECT_EQ(requests.size(), 1U);
    session.context.v3EngineId = "800908070604";
    expectError(readOne(discoverable(mib, kOtherEngine)), error_status::unknownEngine);
}

TEST_F(V3Test, AgentWithANewEngineIsFoundAgain) {
    std::atomic<bool> changed = false;
    const std::string firstEngine = "\x80\x01\x02\x03\x04\x05";
    const Script before = discoverable(mib, firstEngine);
    const Script after = discoverable(mib, kOtherEngine);
    Agent agent(*this, [&](const AgentRequest& request, Outbox& outbox) {
        (changed ? after : before)(request, outbox);
    });
    EXPECT_EQ(readAll(600)[0].values, k42);
    changed = true;
    EXPECT_EQ(readAll(600)[0].values, k42);
    EXPECT_EQ(agent.requests().size(), 5U); // probe, get; get, probe, get
}

TEST_F(V3Test, EngineThatIsNeverAcceptedIsNamed) {
    const SeenReply reply = readOne([](const AgentRequest& request, Outbox& outbox) {
        outbox.answer(request, report(kUnknownEngine, kOtherEngine));
    });
    expectError(reply, error_status::unknownEngine);
    EXPECT_EQ(requests.size(), 4U);
}

TEST_F(V3Test, SecurityReportsAreNamedAtOnce) {
    const std::vector<std::tuple<std::uint32_t, std::int32_t, std::string>> cases = {
        {1, error_status::securityLevel, "unsupported security level: "},
        {kNotInTime, error_status::notInTime, "not in time window: "},
        {3, error_status::unknownUser, "unknown user: "},
        {5, error_status::wrongDigest, "wrong digest: "},
        {6, error_status::decryption, "decryption error: "},
        {9, error_status::badReply, "bad reply: "},
    };
    for (const auto& [counter, status, text] : cases) {
        const SeenReply reply =
            readOne([&, number = counter](const AgentRequest& request, Outbox& outbox) {
                outbox.answer(request, report(request.engineId.empty() ? kUnknownEngine : number,
                                              kOtherEngine));
            });
        expectError(reply, status, text);
        EXPECT_EQ(requests.size(), counter == kNotInTime ? 3U : 2U);
    }
}

TEST_F(V3Test, LostProbeIsSentAgainAndASilentAgentIsATimeOut) {
    EXPECT_EQ(readOne(losingTheFirstRequest(discoverable(mib, kOtherEngine)), 40ms).values, k42);
    expectError(readOne(silent(), 2ms), error_status::timeout);
    EXPECT_EQ(requests.size(), 2U);
}

TEST_F(V3Test, DiscoveryOfOneAgentHoldsUpNobody) {
    Agent mute(*this, silent());
    ScriptedAgent agent(discoverable(mib, kOtherEngine));
    FakeWindow other;
    registerReadRoute(session, 602, other.handle());
    ASSERT_TRUE(sendReadRequest(session, 602));
    useAgent(agent.port());
    read(600);
    waitUntil([&] { return window->replies.size() == 1; });
    EXPECT_EQ(window->replies[0].values, k42);
    EXPECT_TRUE(other.replies.empty());
    waitUntil([&] { return engine().outstanding() == 1; });
}

TEST_F(V3Test, SettingsOfTheProfileApplyWhereTheRequestHasNone) {
    const std::vector<std::function<void(SessionContext&)>> gaps = {
        [](SessionContext& context) { context.v3UserName.clear(); },
        [](SessionContext& context) { context.securityLevel = -1; },
    };
    for (const auto& gap : gaps) {
        session.context.v3UserName = "operator";
        session.context.securityLevel = 1;
        gap(session.context);
        Agent agent(*this, discoverable(mib, kOtherEngine));
        EXPECT_EQ(readAll(600)[0].errorStatus, error_status::badRequest);
        engine().setV3Defaults({.user = "profile", .level = SecurityLevel::noAuthNoPriv});
        EXPECT_EQ(readAll(600)[0].values, k42);
        EXPECT_EQ(agent.requests().back().user, "profile");
    }
}

} // namespace onudesk::host::test
