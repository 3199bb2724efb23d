// SPDX-License-Identifier: MIT
#include "engine_fixture.h"

#include "onudesk/messages.h"

#include <algorithm>
#include <atomic>

namespace onudesk::host::test {

namespace {

using namespace std::chrono_literals;

const Texts kFull = {"-7", "caf\xC3\xA9", "414243444546", "10.1.2.254"};

class ReadTest : public EngineTest {
protected:
    // All objects of item 600.
    Mib mib{{{cell(600, 1), integerValue(-7)},
             {cell(600, 2), octetsValue("caf\xC3\xA9")},
             {cell(600, 3), octetsValue("ABCDEF")},
             {cell(600, 4), {Tag::ipAddress, "\x0A\x01\x02\xFE"}}}};
};

// Two valid answers for one question, or answers that do not belong to it.
AgentResponse wrongValues(const AgentRequest& request) {
    AgentResponse response{.bindings = request.bindings};
    for (VarBind& binding : response.bindings) {
        binding.value = integerValue(666);
    }
    return response;
}

} // namespace

TEST_F(ReadTest, ScalarGroupIsReadWithOneGetInTheOrderOfTheCatalogue) {
    const SeenReply reply = readOne(honest(mib));
    EXPECT_EQ(reply.message, WM_CODEPARA_READ_REPLY);
    EXPECT_EQ(reply.status, 1U);
    EXPECT_EQ(reply.resultText, "maintable");
    EXPECT_FALSE(reply.errorText.has_value());
    EXPECT_EQ(reply.agentAddress, 0x7F000001U);
    EXPECT_EQ(reply.values, kFull);
    EXPECT_EQ(reply.lengths, (std::vector<std::uint32_t>{1, 5, 6, 4}));
    EXPECT_EQ(reply.oids, (Texts{kBase + ".600.1.1.1.2.5", kBase + ".600.1.2.1.2.5",
                                 kBase + ".600.1.3.1.2.5", kBase + ".600.1.4.1.2.5"}));
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].pdu, kGet);
    EXPECT_EQ(requests[0].community, "readers");
}

TEST_F(ReadTest, MissingObjectKeepsItsPlace) {
    mib.values().erase(cell(600, 2));
    for (const int version : {0, 1}) {
        session.context.snmpVersion = version;
        const SeenReply reply = readOne(honest(mib));
        EXPECT_EQ(reply.status, 1U);
        EXPECT_EQ(reply.values, (Texts{"-7", "", "414243444546", "10.1.2.254"}));
        EXPECT_EQ(reply.lengths, (std::vector<std::uint32_t>{1, 0, 6, 4}));
        EXPECT_EQ(reply.oids.size(), 4U);
        EXPECT_EQ(requests.size(), version == 0 ? 2U : 1U);
    }
}

TEST_F(ReadTest, GroupWithoutAnyObjectIsAnError) {
    mib.values().clear();
    for (const int version : {0, 1}) {
        session.context.snmpVersion = version;
        const SeenReply reply = readOne(honest(mib));
        expectError(reply, error_status::noSuchName, "noSuchName: count (object 1)");
        EXPECT_EQ(reply.errorIndex, 1);
    }
}

TEST_F(ReadTest, TooBigIsSplitUntilItFits) {
    const SeenReply reply = readOne([&](const AgentRequest& request, Outbox& outbox) {
        outbox.answer(request, request.bindings.size() > 1 ? AgentResponse{.status = 1}
                                                           : mib.answer(request));
    });
    EXPECT_EQ(reply.values, kFull);
    EXPECT_EQ(requests.size(), 7U); // 4, 2, 1, 1, 2, 1, 1
}

TEST_F(ReadTest, AgentErrorsAreNamedWithTheirObject) {
    struct Case {
        std::int32_t status;
        std::int32_t index;
        std::int32_t seenIndex;
        const char* text;
    };
    for (const Case& known :
         {Case{1, 0, 0, "tooBig"}, Case{5, 3, 3, "genErr: mac (object 3)"},
          Case{6, 1, 1, "noAccess: count (object 1)"}, Case{16, 0, 0, "authorizationError"},
          Case{5, 9, 0, "genErr"}, Case{5, -1, 0, "genErr"},
          Case{77, 2, 2, "error 77: label (object 2)"}}) {
        const SeenReply reply = readOne(refusing(known.status, known.index));
        expectError(reply, known.status);
        EXPECT_EQ(reply.errorIndex, known.seenIndex);
        EXPECT_EQ(reply.errorText, known.text);
    }
}

TEST_F(ReadTest, AnswersThatDoNotFitTheQuestionAreRefused) {
    const std::vector<std::function<void(VarBinds&)>> faults = {
        [](VarBinds& bindings) { bindings.pop_back(); },
        [](VarBinds& bindings) { bindings.clear(); },
        [](VarBinds& bindings) { bindings.push_back(bindings.back()); },
        [](VarBinds& bindings) { std::swap(bindings[1], bindings[2]); },
        [](VarBinds& bindings) { bindings[3].oid = cell(600, 4, "1.2.6"); },
    };
    for (const auto& fault : faults) {
        const SeenReply reply = readOne([&](const AgentRequest& request, Outbox& outbox) {
            AgentResponse response = mib.answer(request);
            fault(response.bindings);
            outbox.answer(request, response);
        });
        expectError(reply, error_status::badReply);
    }
}

TEST_F(ReadTest, SilentAgentIsATimeOut) {
    session.context.retries = 2;
    expectError(readOne(silent(), 2ms), error_status::timeout,
                "time-out: no answer from 127.0.0.1:");
    EXPECT_EQ(requests.size(), 3U);
}

TEST_F(ReadTest, ClosedPortIsATimeOutThatSaysSo) {
    const std::uint16_t port = Agent(*this, silent(), 2ms).port();
    const auto& replies = readAll(600);
    ASSERT_EQ(replies.size(), 1U);
    EXPECT_EQ(replies[0].errorStatus, error_status::timeout);
    EXPECT_EQ(replies[0].errorText,
              "time-out: no answer from 127.0.0.1:" + std::to_string(port) + " (port closed)");
}

TEST_F(ReadTest, LostMessagesAreSentAgain) {
    EXPECT_EQ(readOne(losingTheFirstRequest(honest(mib)), 40ms).values, kFull);
}

TEST_F(ReadTest, AnswerToAnEarlierAttemptCounts) {
    std::optional<AgentRequest> first;
    const SeenReply reply = readOne(
        [&](const AgentRequest& request, Outbox& outbox) {
            if (first) {
                outbox.answer(*first, mib.answer(*first));
            } else {
                first = request;
            }
        },
        40ms);
    EXPECT_EQ(reply.values, kFull);
}

TEST_F(ReadTest, OnlyTheFirstOfSeveralAnswersCounts) {
    Agent agent(*this, [&](const AgentRequest& request, Outbox& outbox) {
        outbox.answer(request, mib.answer(request));
        outbox.answer(request, wrongValues(request));
        outbox.answer(request, mib.answer(request));
    });
    for (int round = 0; round < 3; ++round) {
        const auto& replies = readAll(600);
        ASSERT_EQ(replies.size(), 1U);
        EXPECT_EQ(replies[0].values.front(), "-7");
    }
}

TEST_F(ReadTest, StrangeAndCutDatagramsAreIgnored) {
    const SeenReply reply = readOne([&](const AgentRequest& request, Outbox& outbox) {
        AgentRequest other = request;
        ++other.requestId;
        const std::string good = encodeResponse(request, wrongValues(request));
        outbox.sendBytes("no SNMP at all");
        for (std::size_t length = 0; length < good.size(); ++length) {
            outbox.sendBytes(good.substr(0, length));
        }
        outbox.answer(other, wrongValues(other));
        outbox.answerFromElsewhere(request, wrongValues(request));
        outbox.answer(request, mib.answer(request));
    });
    EXPECT_EQ(reply.values.front(), "-7");
}

// A damaged answer may pass for an answer, but then it is one reply all the same.
TEST_F(ReadTest, EveryDamagedByteOfAnAnswerIsSurvived) {
    const std::string engineId = AgentResponse().engineId;
    session.context.v3UserName = "operator";
    session.context.securityLevel = 1;
    std::atomic<std::size_t> position = 0;
    std::atomic<std::size_t> size = 1;
    std::atomic<char> damage = 0;
    Agent agent(*this, [&](const AgentRequest& request, Outbox& outbox) {
        const bool known = request.version != 3 || request.engineId == engineId;
        const std::string good = encodeResponse(
            request, known ? mib.answer(request)
                           : AgentResponse{.bindings = {{oidOf("1.3.6.1.6.3.15.1.1.4.0"),
                                                         {Tag::counter32, std::uint64_t{1}}}},
                                           .pdu = kReport});
        std::string bad = good;
        char& byte = bad[std::min<std::size_t>(position, bad.size() - 1)];
        byte = static_cast<char>(byte ^ damage);
        size = std::max<std::size_t>(size, good.size());
        outbox.sendBytes(bad);
        outbox.sendBytes(good);
    });
    for (const int version : {0, 1, 3}) {
        session.context.snmpVersion = version;
        size = 1;
        for (position = 0; position < size; ++position) {
            for (const int bits : {0x01, 0x80, 0xFF}) {
                damage = static_cast<char>(bits);
                const auto& replies = readAll(600);
                ASSERT_EQ(replies.size(), 1U) << version << " at " << position;
                ASSERT_TRUE(replies[0].errorText || replies[0].values.size() == 4);
            }
        }
        damage = 0;
        EXPECT_EQ(readAll(600)[0].values.size(), 4U) << version;
    }
}

TEST_F(ReadTest, RequestsOfDifferentItemsDoNotWaitForEachOther) {
    std::optional<AgentRequest> held;
    Agent agent(*this, [&](const AgentRequest& request, Outbox& outbox) {
        if (request.bindings.size() == 4) {
            held = request; // item 600 is answered last
            return;
        }
        outbox.answer(request, {.bindings = {{request.bindings[0].oid, integerValue(1)}}});
        if (request.pdu == kGet && request.bindings[0].oid.arcs()[8] == 4 && held) {
            outbox.answer(*held, mib.answer(*held));
        }
    });
    FakeWindow other;
    registerReadRoute(session, 602, other.handle());
    read(600);
    ASSERT_TRUE(sendReadRequest(session, 602));
    waitUntil([&] { return other.replies.size() == 3; });
    waitUntilIdle();
    ASSERT_EQ(window->replies.size(), 1U);
    EXPECT_EQ(window->replies[0].values.size(), 4U);
}

TEST_F(ReadTest, GroupsAnswerInOrderAndOnlyTheLastReplyCompletes) {
    const auto oid = [](const char* rest) { return oidOf(kBase + ".602." + rest); };
    mib = Mib({{oid("1.1.1.2.5"), integerValue(11)},
               {oid("2.1.1.2.5"), integerValue(99)},
               {oid("3.1.1.2.5.1"), integerValue(21)},
               {oid("3.1.1.2.5.2"), integerValue(22)},
               {oid("4.1.1.2.5"), integerValue(31)}});
    auto replies = readFrom(honest(mib), 1s, 602);
    ASSERT_EQ(replies.size(), 4U);
    const std::vector<std::pair<std::string, Texts>> expected = {
        {"first", {"11"}}, {"rows", {"21"}}, {"rows", {"22"}}, {"last", {"31"}}};
    for (std::size_t at = 0; at < replies.size(); ++at) {
        EXPECT_EQ(replies[at].resultText, expected[at].first);
        EXPECT_EQ(replies[at].values, expected[at].second);
        EXPECT_EQ(replies[at].status, at + 1 == replies.size() ? 1U : 0U);
    }
    // A group that fails leaves the others alone.
    mib.values().erase(mib.values().begin(), std::prev(mib.values().end()));
    replies = readFrom(honest(mib), 1s, 602);
    ASSERT_EQ(replies.size(), 2U);
    expectError(replies[0], error_status::noSuchName);
    EXPECT_EQ(replies[0].resultText, "first");
    EXPECT_EQ(replies[1].values, Texts{"31"});
    EXPECT_EQ(replies[1].status, 1U);
}

TEST_F(ReadTest, UnreachableAgentEndsTheWholeRead) {
    const auto replies = readFrom(silent(), 2ms, 602);
    ASSERT_EQ(replies.size(), 1U);
    expectError(replies[0], error_status::timeout);
    EXPECT_EQ(requests.size(), 2U);
}

TEST_F(ReadTest, UnknownItemsAreNamedAndItemsThatAreOnlyWrittenAnswerWithNothing) {
    auto replies = readFrom(silent(), 1s, 777);
    ASSERT_EQ(replies.size(), 1U);
    expectError(replies[0], error_status::noPlan, "not in the catalogue: item 777 is unknown");
    replies = readFrom(silent(), 1s, 604);
    ASSERT_EQ(replies.size(), 1U);
    EXPECT_TRUE(replies[0].values.empty());
    EXPECT_FALSE(replies[0].errorText);
    EXPECT_EQ(replies[0].status, 1U);
    EXPECT_TRUE(requests.empty());
}

} // namespace onudesk::host::test
