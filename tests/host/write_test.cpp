// SPDX-License-Identifier: MIT
#include "engine_fixture.h"

#include "bridge/code_para_access.h"
#include "onudesk/messages.h"

#include <algorithm>

namespace onudesk::host::test {

namespace {

using namespace std::chrono_literals;

class WriteTest : public EngineTest {
protected:
    SeenReply write(const Script& script, const std::vector<Setting>& values,
                    std::chrono::milliseconds unit = 1s) {
        Agent agent(*this, script, unit);
        SeenReply reply = writeAll(writeOf(values));
        agent.stop();
        requests = agent.requests();
        return reply;
    }
    [[nodiscard]] std::size_t sets() const {
        return static_cast<std::size_t>(std::ranges::count(requests, kSet, &AgentRequest::pdu));
    }
    Mib mib;
};

// Carries out SETs without a word, answers everything else.
Script muteOnSet(Mib& mib, bool carryOut) {
    return [&mib, carryOut](const AgentRequest& request, Outbox& outbox) {
        if (request.pdu != kSet) {
            outbox.answer(request, mib.answer(request));
        } else if (carryOut) {
            static_cast<void>(mib.answer(request));
        }
    };
}

} // namespace

TEST_F(WriteTest, AllBindingsInOneSetInOrderWithTheirTypes) {
    std::string bytes; // all there are
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    const SeenReply reply = write(honest(mib), {{"limit", "-2147483648"},
                                                {"label", bytes, bytes.size()},
                                                {"peer", "10.0.0.255"},
                                                {"link", "1.3.6.1.4294967295"},
                                                {"rate", "4294967295"},
                                                {"total", "18446744073709551615"},
                                                {"untyped", "free"},
                                                {"label", ""}});
    EXPECT_EQ(reply.message, WM_CODEPARA_WRITE_REPLY);
    EXPECT_EQ(reply.status, 1U);
    EXPECT_FALSE(reply.errorText.has_value());
    EXPECT_EQ(reply.agentAddress, 0x7F000001U);
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].pdu, kSet);
    EXPECT_EQ(requests[0].community, "writers");
    const VarBinds& sent = requests[0].bindings;
    ASSERT_EQ(sent.size(), 8U);
    EXPECT_EQ(sent[0].oid, cell(603, 2));
    EXPECT_EQ(sent[0].value, integerValue(-2147483648LL));
    EXPECT_EQ(sent[1].value, octetsValue(bytes));
    EXPECT_EQ(sent[2].value, (Value{Tag::ipAddress, std::string("\x0A\0\0\xFF", 4)}));
    EXPECT_EQ(sent[3].value, (Value{Tag::objectId, Oid{1, 3, 6, 1, 4294967295U}}));
    EXPECT_EQ(sent[4].value, (Value{Tag::gauge32, std::uint64_t{4294967295U}}));
    EXPECT_EQ(sent[5].value, (Value{Tag::counter64, std::uint64_t{~0ULL}}));
    EXPECT_EQ(sent[6].value, octetsValue("free"));
    EXPECT_EQ(sent[7].value, octetsValue(""));
}

TEST_F(WriteTest, ValuesThatAreNoneAreNamedAndNothingIsSent) {
    const std::string number = "number in range";
    const std::vector<std::tuple<std::string, std::string, std::string>> cases = {
        {"limit", "", "a " + number},
        {"limit", "12x", "a " + number},
        {"limit", " 1", "a " + number},
        {"limit", "2147483648", "a " + number},
        {"rate", "-1", "a " + number},
        {"rate", "4294967296", "a " + number},
        {"total", "18446744073709551616", "a " + number},
        {"peer", "10.0.0.256", "a dotted address"},
        {"peer", "10.0.1", "a dotted address"},
        {"link", "1.3..6", "an object identifier"},
        {"link", "1", "an object identifier"},
    };
    for (const auto& [object, value, kind] : cases) {
        const SeenReply reply = write(honest(mib), {{"label", "x"}, {object, value}});
        expectError(reply, error_status::badRequest);
        EXPECT_EQ(reply.errorIndex, 2);
        EXPECT_EQ(reply.errorText,
                  "bad request: " + object + " (binding 2): \"" + value + "\" is not " + kind);
        EXPECT_TRUE(requests.empty());
    }
}

TEST_F(WriteTest, UnusableOidsAndTypesAreNamedAndNothingIsSent) {
    struct Case {
        CONFIG_OID_T object;
        const char* text = nullptr;
    };
    for (const Case& known :
         {Case{{"label", "", 4}, "bad request: label (binding 1): \"\" is no OID"},
          Case{{"label", "1.3.x", 4}, "bad request: label (binding 1): \"1.3.x.1.2.5\" is no OID"},
          Case{{"label", "1.3.6", 5},
               "bad request: label (binding 1): values of type 5 cannot be written"},
          Case{{"label", "1.3.6", 260},
               "bad request: label (binding 1): values of type 260 cannot be written"}}) {
        Agent agent(*this, honest(mib));
        CodeParaPtr para = createWriteRequest(session, 603);
        addWriteBinding(*para, "x", known.object, session.OnuIndexText);
        const SeenReply reply = writeAll(std::move(para));
        EXPECT_EQ(reply.errorText, known.text);
        EXPECT_TRUE(agent.requests().empty());
    }
}

TEST_F(WriteTest, AgentErrorsAreNamedWithTheirBinding) {
    const std::vector<std::tuple<int, int, int, std::string>> cases = {
        {17, 2, 2, "notWritable: limit (binding 2)"},
        {7, 1, 1, "wrongType: label (binding 1)"},
        {10, 2, 2, "wrongValue: limit (binding 2)"},
        {2, 1, 1, "noSuchName: label (binding 1)"},
        {3, 1, 1, "badValue: label (binding 1)"},
        {12, 2, 2, "inconsistentValue: limit (binding 2)"},
        {14, 0, 0, "commitFailed"},
        {5, 3, 0, "genErr"},
        {5, -3, 0, "genErr"},
        {1, 0, 0, "tooBig"},
    };
    for (const auto& [status, index, seenIndex, text] : cases) {
        const SeenReply reply = write(refusing(status, index), {{"label", "x"}, {"limit", "1"}});
        expectError(reply, status);
        EXPECT_EQ(reply.errorIndex, seenIndex);
        EXPECT_EQ(reply.errorText, text);
        EXPECT_EQ(requests.size(), 1U);
    }
}

TEST_F(WriteTest, LostAnswerIsFoundOutByReadingBackNotByWritingTwice) {
    const SeenReply reply = write(muteOnSet(mib, true), {{"label", "x"}, {"limit", "5"}}, 40ms);
    EXPECT_EQ(reply.status, 1U);
    EXPECT_EQ(sets(), 1U);
    EXPECT_EQ(requests.back().pdu, kGet);
    EXPECT_EQ(requests.back().community, "readers");
    EXPECT_EQ(requests.back().bindings.size(), 2U);
}

TEST_F(WriteTest, LostWriteIsSentAgainOnceItIsKnownToBeLost) {
    const SeenReply reply = write(losingTheFirstRequest(honest(mib)), {{"label", "x"}}, 40ms);
    EXPECT_EQ(reply.status, 1U);
    EXPECT_EQ(sets(), 2U);
    EXPECT_EQ(mib.values()[cell(603, 1)], octetsValue("x"));
}

TEST_F(WriteTest, WriteThatIsNeverTakenOverEndsAfterItsRetries) {
    session.context.retries = 2;
    const SeenReply reply = write(muteOnSet(mib, false), {{"label", "x"}}, 40ms);
    expectError(reply, error_status::timeout);
    EXPECT_TRUE(reply.errorText->ends_with("; the values were not taken over")) << *reply.errorText;
    EXPECT_EQ(sets(), 3U);
}

TEST_F(WriteTest, SilentAgentIsATimeOutAfterOneWrite) {
    expectError(write(silent(), {{"label", "x"}}, 2ms), error_status::timeout,
                "time-out: no answer from 127.0.0.1:");
    EXPECT_EQ(sets(), 1U);
}

TEST_F(WriteTest, WhatCannotBeReadBackIsNotSentAgain) {
    const SeenReply reply = write(muteOnSet(mib, true), {{"restart", "1"}}, 2ms);
    expectError(reply, error_status::timeout);
    EXPECT_TRUE(reply.errorText->ends_with("; whether it was carried out is unknown"));
    EXPECT_EQ(requests.size(), 1U);
}

TEST_F(WriteTest, RowStatusReadsBackAsTheStateItLeadsTo) {
    struct Case {
        const char* written = nullptr;
        std::optional<int> held; // nothing: no such row
        bool success = false;
    };
    for (const Case& known :
         {Case{"4", 1, true}, Case{"4", 4, false}, Case{"5", 2, true}, Case{"5", 3, true},
          Case{"5", 1, false}, Case{"6", std::nullopt, true}, Case{"6", 1, false},
          Case{"2", 2, true}, Case{"4", std::nullopt, false}}) {
        session.context.retries = 0;
        mib.values().clear();
        if (known.held) {
            mib.values()[cell(603, 7)] = integerValue(*known.held);
        }
        const SeenReply reply = write(muteOnSet(mib, false), {{"rowStatus", known.written}}, 40ms);
        EXPECT_EQ(reply.status, known.success ? 1U : 0U) << known.written;
    }
    // A destroyed row takes its other objects along.
    mib.values().clear();
    EXPECT_EQ(write(muteOnSet(mib, false), {{"label", "x"}, {"rowStatus", "6"}}, 40ms).status, 1U);
}

TEST_F(WriteTest, ReadAfterWriteSeesWhatWasWritten) {
    std::optional<AgentRequest> held;
    Agent agent(*this, [&](const AgentRequest& request, Outbox& outbox) {
        if (request.pdu == kSet && !held) {
            held = request; // answered only when the operator's other page is read
            return;
        }
        outbox.answer(request, mib.answer(request));
        if (held && request.bindings[0].oid.arcs()[7] == 600) {
            outbox.answer(*held, mib.answer(*held));
        }
    });
    post(writeOf({{"label", "new"}}));
    read(603);
    read(600);
    waitUntilIdle();
    ASSERT_EQ(window->replies.size(), 3U);
    EXPECT_EQ(window->replies[2].resultText, "settings");
    EXPECT_EQ(window->replies[2].values[0], "new");
}

// Of two writes in a row only the second one's reply reaches the window.
TEST_F(WriteTest, FirstOfTwoWritesIsNotAnsweredEvenWhenARouteIsThere) {
    Agent agent(*this, honest(mib));
    postFirstOfTwo(writeOf({{"label", "row"}}));
    const SeenReply reply = writeAll(writeOf({{"rowStatus", "4"}}));
    EXPECT_EQ(reply.status, 1U);
    requests = agent.requests();
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[0].bindings[0].oid, cell(603, 1));
    EXPECT_EQ(requests[1].bindings[0].oid, cell(603, 7));
    ASSERT_EQ(observedReplies().size(), 2U);
    EXPECT_FALSE(observedReplies()[0].delivered);
    EXPECT_TRUE(observedReplies()[1].delivered);
}

TEST_F(WriteTest, FailureOfTheFirstOfTwoWritesIsToldWithTheSecond) {
    Agent agent(*this, [&](const AgentRequest& request, Outbox& outbox) {
        const bool first = request.bindings[0].oid == cell(603, 1);
        outbox.answer(request,
                      first ? AgentResponse{.status = 10, .index = 1} : mib.answer(request));
    });
    postFirstOfTwo(writeOf({{"label", "row"}}));
    const SeenReply second = writeAll(writeOf({{"rowStatus", "4"}}));
    expectError(second, 10);
    EXPECT_EQ(second.errorText, "first of two writes: wrongValue: label (binding 1)");
    EXPECT_EQ(writeAll(writeOf({{"rowStatus", "4"}})).status, 1U);
    postFirstOfTwo(writeOf({{"label", "row"}}));
    postFirstOfTwo(writeOf({{"rowStatus", "4"}})); // the one that counts
    EXPECT_EQ(writeAll(writeOf({{"rowStatus", "4"}})).status, 1U);
}

} // namespace onudesk::host::test
