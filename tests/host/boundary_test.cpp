// SPDX-License-Identifier: MIT
#include "engine_fixture.h"

#include "bridge/code_para_access.h"
#include "onudesk/messages.h"

namespace onudesk::host::test {

namespace {

using namespace std::chrono_literals;

class BoundaryTest : public EngineTest {
protected:
    // The record of a complete read request of item 600.
    CodeParaPtr readRecord() {
        CodeParaPtr para = createCodePara();
        fillReadRequest(*para, session, 600);
        return para;
    }
    // Reads with the reply going to that window.
    void readFor(const FakeWindow& receiver, std::int32_t itemType = 600) {
        registerReadRoute(session, itemType, receiver.handle());
        ASSERT_TRUE(sendReadRequest(session, itemType));
    }
    // Answers nothing until it is told to, then the last request it held back as well.
    Script holding(std::atomic<bool>& release) {
        return [this, &release, held = std::optional<AgentRequest>()](const AgentRequest& request,
                                                                      Outbox& outbox) mutable {
            if (release) {
                outbox.answer(*held, mib.answer(*held));
                outbox.answer(request, mib.answer(request));
            } else {
                held = request;
            }
        };
    }
    Mib mib{{{cell(600, 1), integerValue(1)}}};
};

} // namespace

TEST_F(BoundaryTest, ReplyGoesToTheWindowThatRegisteredLast) {
    std::atomic<bool> release = false;
    Agent agent(*this, holding(release));
    FakeWindow second;
    read(600);
    waitUntil([&] { return agent.requests().size() == 1; });
    release = true;
    readFor(second);
    waitUntilIdle();
    EXPECT_TRUE(window->replies.empty());
    EXPECT_EQ(second.replies.size(), 2U);
}

TEST_F(BoundaryTest, ReplyWithoutRouteOrWindowIsReleasedOnce) {
    Agent agent(*this, honest(mib));
    ASSERT_TRUE(sendReadRequest(session, 600));
    waitUntilIdle();
    EXPECT_EQ(liveReplies(), 0U);
    read(600); // the route stays behind
    window.reset();
    waitUntilIdle();
    ASSERT_EQ(observedReplies().size(), 2U);
    EXPECT_FALSE(observedReplies()[0].delivered);
    EXPECT_EQ(liveReplies(), 0U);
}

TEST_F(BoundaryTest, ReplyThatWaitsForAVanishingWindowIsReleasedOnce) {
    Agent agent(*this, honest(mib));
    read(600);
    // Without dispatching: the reply has to wait.
    while (engine().outstanding() != 0) {
        std::this_thread::yield();
    }
    EXPECT_EQ(platform::pendingWindowMessages(), 1U);
    EXPECT_EQ(liveReplies(), 1U);
    window.reset();
    EXPECT_EQ(liveReplies(), 0U);
}

TEST_F(BoundaryTest, EveryReadIsAnsweredOnceInOrder) {
    startEngine();
    for (int number = 0; number < 500; ++number) {
        read(1000 + number); // items that no agent is asked for
        platform::dispatchWindowMessages();
    }
    waitUntilIdle();
    ASSERT_EQ(window->replies.size(), 500U);
    for (std::size_t at = 0; at < window->replies.size(); ++at) {
        EXPECT_EQ(window->replies[at].errorText,
                  "not in the catalogue: item " + std::to_string(1000 + at) + " is unknown");
    }
}

TEST_F(BoundaryTest, ClosingWindowsLosesNoReply) {
    startEngine();
    for (int round = 0; round < 500; ++round) {
        const FakeWindow closing;
        readFor(closing, 777);
        if (round % 3 == 0) {
            platform::dispatchWindowMessages();
        }
        unregisterWindow(session, closing.handle());
    }
    waitUntilIdle();
    EXPECT_EQ(observedReplies().size(), 500U);
    EXPECT_EQ(liveReplies(), 0U);
}

TEST_F(BoundaryTest, OutstandingCountsARequestUntilItsReplyIsPosted) {
    std::atomic<bool> release = false;
    Agent agent(*this, holding(release));
    EXPECT_EQ(engine().outstanding(), 0U);
    read(600);
    waitUntil([&] { return agent.requests().size() == 1; });
    EXPECT_EQ(engine().outstanding(), 1U);
    EXPECT_EQ(engine().unobserved(), 0U) << "asked, and not answered";
    release = true;
    read(600);
    const std::size_t outstanding = engine().outstanding(); // before the others: they only grow
    EXPECT_GE(outstanding + window->replies.size() + platform::pendingWindowMessages(), 2U);
    waitUntilIdle();
    EXPECT_EQ(window->replies.size(), 2U);
}

TEST_F(BoundaryTest, TellsWhenEverythingIsAnswered) {
    Agent agent(*this, honest(mib));
    std::atomic<int> idle = 0;
    engine().setOnSettled([&] { idle += engine().outstanding() == 0 ? 1 : 0; });
    for (int round = 1; round <= 3; ++round) {
        read(600);
        waitUntil([&] { return idle >= round; });
        EXPECT_EQ(idle, round) << "once, with the reply posted";
        EXPECT_EQ(window->replies.size() + platform::waitingWindowMessages(),
                  static_cast<std::size_t>(round));
    }
    engine().endSession(); // posts to the engine, too
    waitUntil([&] { return idle > 3; });
    engine().setOnSettled({});
}

TEST_F(BoundaryTest, LateRepliesOfAClosedWindowNeverReachTheNextOne) {
    std::atomic<bool> release = false;
    Agent slow(*this, holding(release));
    ScriptedAgent prompt(honest(mib));
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
    Agent dead(*this, silent());
    ScriptedAgent prompt(honest(mib));
    postFirstOfTwo(writeOf({{"label", "x"}})); // its failure would be told with the next write
    waitUntil([&] { return dead.requests().size() == 1; });
    engine().endSession();
    useAgent(prompt.port());
    post(writeOf({{"label", "y"}}));
    waitUntil([&] { return window->replies.size() == 1; });
    EXPECT_EQ(window->replies[0].status, 1U) << window->replies[0].errorText.value_or("");
    // The answered one is counted out right after its reply; the other agent still has time.
    waitUntil([&] { return engine().outstanding() == 1; });
}

TEST_F(BoundaryTest, StopReturnsAtOnceWhateverIsOutstanding) {
    Agent agent(*this, silent());
    session.context.timeout = 60;
    for (int round = 0; round < 20; ++round) {
        read(600);
        read(601);
        post(writeOf({{"label", "x"}}));
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

TEST_F(BoundaryTest, BadRecordsAreAnsweredAndEmptyAndForeignOnesSurvived) {
    startEngine();
    CodeParaPtr para = readRecord();
    para->entries->erase(CP_SNMP_PORT);
    registerReadRoute(session, 600, window->handle());
    ASSERT_TRUE(postRequest(session, std::move(para)));
    waitUntilIdle();
    ASSERT_EQ(window->replies.size(), 1U);
    expectError(window->replies[0], error_status::badRequest,
                "bad request: the port is missing or of the wrong kind");
    ASSERT_TRUE(postRequest(session, createCodePara()));
    CodeParaPtr foreign = readRecord();
    setServiceCode(*foreign, 9);
    ASSERT_TRUE(postRequest(session, std::move(foreign)));
    ASSERT_TRUE(platform::postThreadMessage(session.hostThreadId, {4711, nullptr, 0}));
    ASSERT_TRUE(
        platform::postThreadMessage(session.hostThreadId, {WM_CODEPARA_REQUEST, nullptr, 0}));
    waitUntilIdle();
    EXPECT_EQ(observedReplies().size(), 3U);
    EXPECT_EQ(liveReplies(), 0U);
}

TEST_F(BoundaryTest, RecordsHoldEverythingButSecrets) {
    session.context.readCommunity = "hidden-1";
    session.context.writeCommunity = "hidden-2";
    session.context.authPassword = "hidden-3";
    session.context.privPassword = "hidden-4";
    Agent agent(*this, silent(), 2ms);
    read(600);
    post(writeOf({{"label", std::string("a\0b", 3), 3}}));
    waitUntilIdle();
    const auto seen = observedRequests();
    ASSERT_EQ(seen.size(), 2U);
    EXPECT_EQ(seen[0].kind, RequestKind::read);
    EXPECT_EQ(seen[0].itemType, 600);
    EXPECT_EQ(seen[0].suffix, ".1.2.5");
    EXPECT_TRUE(seen[0].bindings.empty());
    EXPECT_EQ(seen[1].kind, RequestKind::write);
    ASSERT_EQ(seen[1].bindings.size(), 1U);
    EXPECT_EQ(seen[1].bindings[0].name, "label");
    EXPECT_EQ(seen[1].bindings[0].oid, kBase + ".603.1.1.1.2.5");
    EXPECT_EQ(seen[1].bindings[0].type, 4U);
    EXPECT_EQ(seen[1].bindings[0].value, std::string("a\0b", 3));
    for (const ReplyRecord& reply : observedReplies()) {
        EXPECT_FALSE(reply.error.text.empty());
        EXPECT_EQ(reply.error.text.find("hidden"), std::string::npos);
    }
}

} // namespace onudesk::host::test
