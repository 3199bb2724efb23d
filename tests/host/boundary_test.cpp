// SPDX-License-Identifier: MIT
#include "engine_fixture.h"

#include "bridge/code_para_access.h"
#include "onudesk/messages.h"

namespace onudesk::host::test {

namespace {

using namespace std::chrono_literals;

class BoundaryTest : public EngineTest {
protected:
    Mib mib{{{oidOf(kBase + ".600.1.1.1.2.5"), integerValue(1)}}};
};

// The record of a complete read request of item 600.
CodeParaPtr readRecord(Session& session) {
    CodeParaPtr para = createCodePara();
    fillReadRequest(*para, session, 600);
    return para;
}

} // namespace

TEST_F(BoundaryTest, ReplyGoesToTheWindowThatRegisteredLast) {
    std::optional<AgentRequest> held;
    ScriptedAgent agent([&](const AgentRequest& request, Outbox& outbox) {
        if (!held) {
            held = request;
            return;
        }
        outbox.answer(*held, mib.answer(*held));
        outbox.answer(request, mib.answer(request));
    });
    startEngine();
    useAgent(agent.port());
    FakeWindow second;
    read(600);
    registerReadRoute(session, 600, second.handle());
    ASSERT_TRUE(sendReadRequest(session, 600));
    waitUntilIdle();
    EXPECT_TRUE(window->replies.empty());
    EXPECT_EQ(second.replies.size(), 2U);
}

TEST_F(BoundaryTest, ReplyWithoutRouteIsReleased) {
    ScriptedAgent agent(honest(mib));
    startEngine();
    useAgent(agent.port());
    ASSERT_TRUE(sendReadRequest(session, 600));
    waitUntilIdle();
    ASSERT_EQ(observedReplies().size(), 1U);
    EXPECT_FALSE(observedReplies()[0].delivered);
    EXPECT_EQ(liveReplies(), 0U);
}

TEST_F(BoundaryTest, ReplyForAVanishedWindowIsReleasedOnce) {
    ScriptedAgent agent(honest(mib));
    startEngine();
    useAgent(agent.port());
    read(600); // the route stays behind
    window.reset();
    waitUntilIdle();
    EXPECT_EQ(liveReplies(), 0U);
}

TEST_F(BoundaryTest, ReplyThatWaitsForAVanishingWindowIsReleasedOnce) {
    ScriptedAgent agent(honest(mib));
    startEngine();
    useAgent(agent.port());
    registerReadRoute(session, 600, window->handle());
    ASSERT_TRUE(sendReadRequest(session, 600));
    // Without dispatching: the reply has to wait.
    while (engine().outstanding() != 0) {
        std::this_thread::yield();
    }
    EXPECT_EQ(platform::pendingWindowMessages(), 1U);
    EXPECT_EQ(liveReplies(), 1U);
    window.reset();
    EXPECT_EQ(liveReplies(), 0U);
}

TEST_F(BoundaryTest, OutstandingCountsARequestUntilItsReplyIsPosted) {
    std::atomic<bool> release = false;
    std::optional<AgentRequest> held;
    ScriptedAgent agent([&](const AgentRequest& request, Outbox& outbox) {
        if (release) {
            outbox.answer(*held, mib.answer(*held));
            outbox.answer(request, mib.answer(request));
        } else {
            held = request;
        }
    });
    startEngine();
    useAgent(agent.port());
    EXPECT_EQ(engine().outstanding(), 0U);
    read(600);
    waitUntil([&] { return agent.requests().size() == 1; });
    EXPECT_EQ(engine().outstanding(), 1U);
    EXPECT_EQ(engine().unobserved(), 0U) << "asked, and not answered";
    release = true;
    read(600);
    EXPECT_GE(engine().outstanding() + window->replies.size() + platform::pendingWindowMessages(),
              2U);
    waitUntilIdle();
    EXPECT_EQ(window->replies.size(), 2U);
}

TEST_F(BoundaryTest, LateRepliesOfAClosedWindowNeverReachTheNextOne) {
    std::atomic<bool> release = false;
    std::optional<AgentRequest> held;
    ScriptedAgent slow([&](const AgentRequest& request, Outbox& outbox) {
        if (release) {
            outbox.answer(*held, mib.answer(*held));
        } else {
            held = request;
        }
    });
    ScriptedAgent prompt(honest(mib));
    startEngine();
    useAgent(slow.port());
    read(600);
    waitUntil([&] { return slow.requests().size() == 1; });
    window.emplace(); // the next ONU's window, on the same item
    engine().endSession();
    useAgent(prompt.port());
    read(600);
    waitUntil([&] { return window->replies.size() == 1; });
    release = true; // the retry of the first request is answered now
    waitUntilIdle();
    EXPECT_EQ(window->replies.size(), 1U);
    ASSERT_EQ(observedReplies().size(), 2U) << "the late reply is still seen by the trace";
    EXPECT_TRUE(observedReplies()[0].delivered);
    EXPECT_FALSE(observedReplies()[1].delivered);
    EXPECT_EQ(liveReplies(), 0U);
}

TEST_F(BoundaryTest, WritesOfAClosedWindowHoldNothingUpAndExplainNothing) {
    ScriptedAgent dead(silent());
    ScriptedAgent prompt(honest(mib));
    startEngine();
    useAgent(dead.port());
    CodeParaPtr lost = newWrite(603);
    bind(*lost, "label", "x");
    setInteger(*lost, CP_FLAG_130, 0); // its failure would be told with the next write
    postUnrouted(std::move(lost));
    waitUntil([&] { return dead.requests().size() == 1; });
    engine().endSession();
    useAgent(prompt.port());
    CodeParaPtr next = newWrite(603);
    bind(*next, "label", "y");
    post(std::move(next));
    waitUntil([&] { return window->replies.size() == 1; });
    EXPECT_EQ(window->replies[0].status, 1U) << window->replies[0].errorText.value_or("");
    // The answered one is counted out right after its reply; the other agent still has time.
    waitUntil([&] { return engine().outstanding() == 1; });
}

TEST_F(BoundaryTest, StopReturnsAtOnceWhateverIsOutstanding) {
    ScriptedAgent agent(silent());
    startEngine(1s);
    useAgent(agent.port());
    session.context.timeout = 60;
    for (int round = 0; round < 20; ++round) {
        read(600);
        read(601);
        CodeParaPtr para = newWrite(603);
        bind(*para, "label", "x");
        post(std::move(para));
    }
    waitUntil([&] { return agent.requests().size() >= 3; });
    const auto begin = std::chrono::steady_clock::now();
    engine().stop();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 100ms);
    EXPECT_EQ(engine().outstanding(), 0U);
    EXPECT_FALSE(sendReadRequest(session, 600));
    platform::dispatchWindowMessages();
    EXPECT_TRUE(window->replies.empty());
}

TEST_F(BoundaryTest, StopWhileRepliesArriveLosesNothing) {
    ScriptedAgent agent(honest(mib));
    for (int round = 0; round < 30; ++round) {
        startEngine();
        useAgent(agent.port());
        for (int request = 0; request < 10; ++request) {
            read(600);
        }
        waitUntil([&] { return agent.requests().size() > static_cast<std::size_t>(round); });
        engine().stop();
    }
    platform::dispatchWindowMessages();
    EXPECT_EQ(liveReplies(), 0U);
}

TEST_F(BoundaryTest, BadRecordsAreAnsweredWithWhatIsWrong) {
    startEngine();
    struct Case {
        const char* name;
        std::function<void(DllClientCodePara&)> damage;
        const char* text;
    };
    const auto erase = [](std::uint8_t id) {
        return [id](DllClientCodePara& para) { para.entries->erase(id); };
    };
    const std::vector<Case> cases = {
        {"no address", erase(CP_AGENT_ADDR),
         "bad request: the agent address is missing or of the wrong kind"},
        {"no port", erase(CP_SNMP_PORT), "bad request: the port is missing or of the wrong kind"},
        {"no community", erase(CP_READ_COMMUNITY),
         "bad request: the read community is missing or of the wrong kind"},
        {"suffix",
         [](DllClientCodePara& para) {
             para.entries->erase(CP_INDEX_SUFFIX);
             setText(para, CP_INDEX_SUFFIX, ".1.x");
         },
         "bad request: the instance suffix \".1.x\" is no list of numbers"},
    };
    for (const Case& known : cases) {
        window->replies.clear();
        CodeParaPtr para = readRecord(session);
        known.damage(*para);
        registerReadRoute(session, 600, window->handle());
        ASSERT_TRUE(postRequest(session, std::move(para)));
        waitUntilIdle();
        ASSERT_EQ(window->replies.size(), 1U) << known.name;
        EXPECT_EQ(window->replies[0].errorStatus, error_status::badRequest);
        EXPECT_EQ(window->replies[0].errorText, known.text);
        EXPECT_EQ(window->replies[0].status, 0U);
    }
}

TEST_F(BoundaryTest, EmptyAndForeignRecordsAreSurvived) {
    startEngine();
    CodeParaPtr empty = createCodePara();
    ASSERT_TRUE(postRequest(session, std::move(empty)));
    CodeParaPtr foreign = readRecord(session);
    setServiceCode(*foreign, 9);
    ASSERT_TRUE(postRequest(session, std::move(foreign)));
    ASSERT_TRUE(platform::postThreadMessage(session.hostThreadId, {4711, nullptr, 0}));
    ASSERT_TRUE(
        platform::postThreadMessage(session.hostThreadId, {WM_CODEPARA_REQUEST, nullptr, 0}));
    waitUntilIdle();
    EXPECT_EQ(observedReplies().size(), 2U);
    EXPECT_EQ(liveReplies(), 0U);
}

TEST_F(BoundaryTest, RecordsHoldEverythingButSecrets) {
    session.context.readCommunity = "hidden-1";
    session.context.writeCommunity = "hidden-2";
    session.context.authPassword = "hidden-3";
    session.context.privPassword = "hidden-4";
    ScriptedAgent agent(silent());
    startEngine(2ms);
    useAgent(agent.port());
    read(600);
    CodeParaPtr para = newWrite(603);
    bind(*para, "label", std::string("a\0b", 3), 3);
    post(std::move(para));
    waitUntilIdle();
    const auto requests = observedRequests();
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[0].kind, RequestKind::read);
    EXPECT_EQ(requests[0].itemType, 600);
    EXPECT_EQ(requests[0].suffix, ".1.2.5");
    EXPECT_TRUE(requests[0].bindings.empty());
    EXPECT_EQ(requests[1].kind, RequestKind::write);
    ASSERT_EQ(requests[1].bindings.size(), 1U);
    EXPECT_EQ(requests[1].bindings[0].name, "label");
    EXPECT_EQ(requests[1].bindings[0].oid, kBase + ".603.1.1.1.2.5");
    EXPECT_EQ(requests[1].bindings[0].type, 4U);
    EXPECT_EQ(requests[1].bindings[0].value, std::string("a\0b", 3));
    for (const ReplyRecord& reply : observedReplies()) {
        EXPECT_FALSE(reply.error.text.empty());
        EXPECT_EQ(reply.error.text.find("hidden"), std::string::npos);
    }
}

} // namespace onudesk::host::test
