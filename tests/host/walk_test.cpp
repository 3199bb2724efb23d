// SPDX-License-Identifier: MIT
#include "engine_fixture.h"

#include "onudesk/messages.h"

namespace onudesk::host::test {

namespace {

using namespace std::chrono_literals;

const Texts kFirst = {"1", "1.2.5.1", "4294967295"};
const Texts kSecond = {"2", "1.2.5.2", "4294967295"};

// Rows 1 and 2 of the ONU, and rows of its neighbours.
Mib smallTable() {
    Mib mib;
    for (const char* onu : {"1.2.4", "1.2.5", "1.2.6"}) {
        for (const char* row : {".1", ".2"}) {
            const std::string index = std::string(onu) + row;
            mib.values()[cell(601, 1, index)] = integerValue(row[1] - '0');
            mib.values()[cell(601, 2, index)] = octetsValue(index);
            mib.values()[cell(601, 3, index)] = {Tag::gauge32, std::uint64_t{4294967295U}};
        }
    }
    return mib;
}

class WalkTest : public EngineTest {
protected:
    std::vector<SeenReply> walk(const Script& script, const WalkLimits& limits = {}) {
        return readFrom(script, 1s, 601, limits);
    }
    void expectRefused(const Script& script, std::int32_t status, const std::string& text,
                       const WalkLimits& limits = {}) {
        const auto replies = walk(script, limits);
        ASSERT_FALSE(replies.empty());
        expectError(replies.back(), status, text);
    }
    Mib mib = smallTable();
};

// Rows without end: every answer lies behind the question, in the same column.
Script endless() {
    return [](const AgentRequest& request, Outbox& outbox) {
        AgentResponse response;
        VarBinds last = request.bindings;
        for (std::int64_t repetition = 0; repetition < request.maxRepetitions; ++repetition) {
            for (VarBind& binding : last) {
                const bool first = binding.oid.size() == 13;
                binding.oid = first ? binding.oid.joined({1})
                                    : binding.oid.head(13).joined({binding.oid.last() + 1});
                binding.value = integerValue(1);
                response.bindings.push_back(binding);
            }
        }
        outbox.answer(request, response);
    };
}

} // namespace

TEST_F(WalkTest, RowsOfTheOnuOnlyOneReplyEach) {
    for (const int version : {0, 1}) {
        session.context.snmpVersion = version;
        const auto replies = walk(honest(mib));
        ASSERT_EQ(replies.size(), 2U);
        EXPECT_EQ(replies[0].values, kFirst);
        EXPECT_EQ(replies[1].values, kSecond);
        EXPECT_EQ(replies[1].oids, (Texts{kBase + ".601.1.1.1.2.5.2", kBase + ".601.1.2.1.2.5.2",
                                          kBase + ".601.1.3.1.2.5.2"}));
        EXPECT_EQ(replies[1].lengths, (std::vector<std::uint32_t>{1, 7, 5}));
        EXPECT_EQ(replies[0].resultText, "group1");
        EXPECT_EQ(replies[0].status, 0U);
        EXPECT_EQ(replies[1].status, 1U);
        EXPECT_EQ(requests.front().pdu, version == 0 ? kGetNext : kGetBulk);
        EXPECT_EQ(requests.size(), version == 0 ? 3U : 1U);
    }
    // The same with nothing behind them.
    std::erase_if(mib.values(),
                  [](const auto& entry) { return entry.first > cell(601, 3, "1.2.5.2"); });
    for (const int version : {0, 1}) {
        session.context.snmpVersion = version;
        const auto replies = walk(honest(mib));
        ASSERT_EQ(replies.size(), 2U);
        EXPECT_EQ(replies[1].status, 1U);
    }
}

TEST_F(WalkTest, MissingCellsLeaveTheirPlaceEmptyAndATableWithoutRowsOneEmptyReply) {
    mib.values().erase(cell(601, 1, "1.2.5.1"));
    mib.values().erase(cell(601, 2, "1.2.5.2"));
    Mib empty;
    for (const int version : {0, 1}) {
        session.context.snmpVersion = version;
        auto replies = walk(honest(mib));
        ASSERT_EQ(replies.size(), 2U);
        EXPECT_EQ(replies[0].values, (Texts{"", "1.2.5.1", "4294967295"}));
        EXPECT_EQ(replies[1].values, (Texts{"2", "", "4294967295"}));
        EXPECT_EQ(replies[0].oids[0], kBase + ".601.1.1.1.2.5.1");
        replies = walk(honest(empty));
        ASSERT_EQ(replies.size(), 1U);
        EXPECT_EQ(replies[0].status, 1U);
        EXPECT_EQ(replies[0].resultText, "group1");
        EXPECT_TRUE(replies[0].values.empty());
        EXPECT_FALSE(replies[0].errorText.has_value());
    }
}

TEST_F(WalkTest, LargeTableArrivesWholeAndInOrder) {
    for (int row = 1; row <= 200; ++row) {
        for (int column = 1; column <= 3; ++column) {
            mib.values()[cell(601, column, "1.2.5." + std::to_string(row))] = integerValue(row);
        }
    }
    const auto replies = walk(honest(mib));
    ASSERT_EQ(replies.size(), 200U);
    for (std::size_t at = 0; at < replies.size(); ++at) {
        const std::string row = std::to_string(at + 1);
        ASSERT_EQ(replies[at].values, (Texts{row, row, row}));
        ASSERT_EQ(replies[at].status, at == 199 ? 1U : 0U);
    }
    EXPECT_EQ(requests.size(), 11U); // 20 rows a message, and the end
}

TEST_F(WalkTest, CutAnswersAreContinued) {
    const auto replies = walk([&](const AgentRequest& request, Outbox& outbox) {
        AgentResponse response = mib.answer(request);
        response.bindings.resize(std::min<std::size_t>(response.bindings.size(), 2));
        outbox.answer(request, response);
    });
    ASSERT_EQ(replies.size(), 2U);
    EXPECT_EQ(replies[1].values, kSecond);
}

TEST_F(WalkTest, TooBigAsksForLessUntilItFits) {
    const auto replies = walk([&](const AgentRequest& request, Outbox& outbox) {
        const bool fits = request.bindings.size() == 1 && request.maxRepetitions == 1;
        outbox.answer(request, fits ? mib.answer(request) : AgentResponse{.status = 1});
    });
    ASSERT_EQ(replies.size(), 2U);
    EXPECT_EQ(replies[0].values, kFirst);
    expectRefused(refusing(1), error_status::tooBig, "tooBig"); // even for one cell
}

TEST_F(WalkTest, BackwardsAndRepeatedRowsAreRefused) {
    for (const char* next : {"1.2.5.1", "1.2.5.0"}) {
        expectRefused(
            [&](const AgentRequest& request, Outbox& outbox) {
                AgentResponse response;
                for (const char* index : {"1.2.5.1", next}) {
                    for (int column = 1; column <= 3; ++column) {
                        response.bindings.push_back({cell(601, column, index), integerValue(1)});
                    }
                }
                outbox.answer(request, response);
            },
            error_status::walkRefused, "table refused: after " + kBase + ".601.1.1.1.2.5.1 came ");
    }
}

TEST_F(WalkTest, EndlessTableEndsAtTheRowLimitOrTheDeadline) {
    EXPECT_EQ(walk(honest(mib), {.rows = 2}).back().values, kSecond) << "so many rows are allowed";
    expectRefused(honest(mib), error_status::walkRefused, "table refused: it has more than 1 rows",
                  {.rows = 1});
    expectRefused(endless(), error_status::walkRefused, "table refused: it has more than 50 rows",
                  {.rows = 50, .duration = 1min});
    expectRefused(endless(), error_status::walkRefused, "table refused: it did not end in time",
                  {.rows = 100000000, .duration = 20ms});
}

TEST_F(WalkTest, AnswersThatDoNotFitTheQuestionAreRefused) {
    expectRefused([](const AgentRequest& request, Outbox& outbox) { outbox.answer(request, {}); },
                  error_status::badReply, "bad reply");
    expectRefused(
        [&](const AgentRequest& request, Outbox& outbox) {
            AgentResponse response = mib.answer(request);
            response.bindings.push_back(response.bindings.back());
            outbox.answer(request, response);
        },
        error_status::badReply, "bad reply");
    expectRefused(refusing(5, 2), 5, "genErr: text"); // the column
}

TEST_F(WalkTest, RowsBeforeAnErrorAreShown) {
    int answered = 0;
    const auto replies = walk([&](const AgentRequest& request, Outbox& outbox) {
        AgentResponse response = mib.answer(request);
        response.bindings.resize(3);
        outbox.answer(request, answered++ == 0 ? response : AgentResponse{.status = 5});
    });
    ASSERT_EQ(replies.size(), 2U);
    EXPECT_EQ(replies[0].values, kFirst);
    EXPECT_EQ(replies[0].status, 0U);
    EXPECT_EQ(replies[1].errorText, "genErr");
}

} // namespace onudesk::host::test
