// SPDX-License-Identifier: MIT
#include "window/reply.h"

#include "env/language_module.h"
#include "env/xml_file.h"
#include "support/client_tree.h"
#include "support/test_desk.h"
#include "support/test_host.h"

#include <gtest/gtest.h>

namespace onudesk {
namespace {

using platform::PromptIcon;
using test::Answer;
using test::TestDesk;
using test::TestHost;

using Texts = std::vector<std::string>;

class ReplyTest : public testing::Test {
protected:
    ReplyTest() {
        const test::TemporaryDirectory directory;
        const auto file = directory.write("t.ENU", R"(<l>
            <text id="11001">Notice</text><text id="11002">subject</text>
            <text id="11045">done: </text><text id="11046">failed: </text>
            <text id="3262">imported</text></l>)");
        installLanguage(LanguageModule::load(file).value());
    }
    ~ReplyTest() override { installLanguage({}); }

    TestHost host_;
    TestDesk desk_;
    const Session session_ = host_.session();
};

TEST_F(ReplyTest, SuccessHangsOnTwoErrorStatusesOnly) {
    struct Case {
        Answer answer;
        bool success, completed;
        std::size_t values;
    };
    const Case cases[] = {
        {{.values = Texts{"1"}, .status = 1}, true, true, 1},
        {{.values = Texts{"1"}, .status = 0}, true, false, 1},
        {{.values = Texts{"1"}, .status = 2}, true, true, 1},
        {{.values = Texts{"1"}}, true, false, 1},
        {{}, true, false, 0},
        {{.errorText = "noSuchName", .errorStatus = 2}, false, false, 0},
        {{.status = 1, .errorText = "time-out", .errorStatus = -5}, false, true, 0},
        {{.values = Texts{"1"}, .errorText = "genErr", .errorStatus = 5}, true, false, 1},
        {{.errorText = "?"}, true, false, 0},
        // Without an error text the status is not looked at.
        {{.values = Texts{"1"}, .errorStatus = 2}, true, false, 1},
    };
    for (const Case& expected : cases) {
        const ReadResult result = readDecode(session_, TestHost::makeReply(expected.answer));
        EXPECT_EQ(result.success, expected.success);
        EXPECT_EQ(result.completed, expected.completed);
        EXPECT_EQ(result.values.size(), expected.values);
        EXPECT_EQ(TestHost::outstandingReplies(), 0U);
    }
    EXPECT_FALSE(readDecode(session_, nullptr).success);
}

TEST_F(ReplyTest, ListsKeepWholeByteStrings) {
    const std::string raw("\x00\x1A\x2B", 3);
    const ReadResult result =
        readDecode(session_, TestHost::makeReply({.values = Texts{raw, ""},
                                                  .oids = Texts{"1.2.3", "1.2.4"},
                                                  .lengths = std::vector<std::uint32_t>{3, 0},
                                                  .resultText = "group1"}));
    EXPECT_EQ(result.values, (Texts{raw, ""}));
    EXPECT_EQ(result.oids, (Texts{"1.2.3", "1.2.4"}));
    EXPECT_EQ(result.lengths, (std::vector<std::uint32_t>{3, 0}));
    EXPECT_EQ(result.resultText, "group1");
    EXPECT_EQ(valueAt(result, 1), "");
    EXPECT_EQ(valueAt(result, 2), "");
}

TEST(RowIndex, IsWhatFollowsTheLastDot) {
    EXPECT_EQ(rowIndexOf("1.3.6.1.27"), "27");
    EXPECT_EQ(rowIndexOf(".5"), "5");
    EXPECT_EQ(rowIndexOf("1.2."), "");
    EXPECT_EQ(rowIndexOf("none"), "");
}

TEST_F(ReplyTest, NoticeFollowsStatusAndMode) {
    constexpr auto done = PromptIcon::information;
    constexpr auto failed = PromptIcon::warning;
    const Answer refused = {.status = 0, .errorText = "genErr"};
    struct Case {
        Answer answer;
        std::string mode;
        bool result;
        std::string text; // empty: no box
        PromptIcon icon;
    };
    const Case cases[] = {
        {{.status = 1}, "", true, "done: subject", done},
        {refused, "", true, "failed: subject\ngenErr", failed},
        {{}, "", true, "failed: subject\n", failed},
        {{.status = 2}, "", true, "", done},
        {{.status = 7}, "", true, "done: subject", done},
        {refused, "ConfigSet", true, "failed: subject\nConfigSet", failed},
        {{.status = 2}, "ConfigSet", false, "", done},
        {{.status = 1}, "ConfigSetImport", true, "done: subject\nimported", done},
        {refused, "ConfigSetImport", true, "failed: subject\ngenErr", failed},
        {{.status = 2}, "ConfigSetImport", true, "", done},
    };
    for (const Case& expected : cases) {
        SCOPED_TRACE(expected.mode + "/" + expected.text);
        desk_.whileOpen = [] { EXPECT_EQ(TestHost::outstandingReplies(), 0U); };
        EXPECT_EQ(
            writeResultNotice(session_, 77, TestHost::makeReply(expected.answer), expected.mode),
            expected.result);
        EXPECT_EQ(TestHost::outstandingReplies(), 0U);
        const auto boxes = desk_.takeBoxes();
        ASSERT_EQ(boxes.size(), expected.text.empty() ? 0U : 1U);
        if (!boxes.empty()) {
            EXPECT_EQ(boxes[0].text, expected.text);
            EXPECT_EQ(boxes[0].caption, "Notice");
            EXPECT_EQ(boxes[0].icon, expected.icon);
            EXPECT_EQ(boxes[0].owner, 77U);
            EXPECT_EQ(LastNoticeText(), expected.text);
        }
    }
    EXPECT_FALSE(writeResultNotice(session_, 77, nullptr, ""));
}

TEST_F(ReplyTest, EmptyNoticeShowsNoBox) {
    installLanguage({});
    EXPECT_FALSE(writeResultNotice(session_, 1, TestHost::makeReply({.status = 1}), ""));
    // A failure keeps its line break even then.
    EXPECT_TRUE(writeResultNotice(session_, 1, TestHost::makeReply({.status = 0}), ""));
    EXPECT_EQ(desk_.takeBox().text, "\n");
}

CodeParaReply* chunk(std::uint32_t status, std::uint32_t number, std::uint32_t length,
                     const std::string& data) {
    CodeParaReply* reply = TestHost::makeReply({.status = status});
    putInteger(*reply->entries, CP_CHUNK_NUMBER, number);
    putInteger(*reply->entries, CP_CHUNK_LENGTH, length);
    putBytes(*reply->entries, CP_CHUNK_DATA, data);
    return reply;
}

TEST_F(ReplyTest, ConfigSetCollectsChunksAtTheirOffsets) {
    EXPECT_FALSE(
        writeResultNotice(session_, 1, chunk(2, 0, 100, std::string(100, 'a')), "ConfigSet"));
    EXPECT_TRUE(writeResultNotice(session_, 1, chunk(1, 1, 50, std::string(60, 'b')), "ConfigSet"));
    EXPECT_EQ(desk_.takeBox().icon, PromptIcon::information);
    EXPECT_EQ(transferBuffer().byteCount, 150U);
    EXPECT_EQ(transferBuffer().data[99], 'a');
    EXPECT_EQ(transferBuffer().data[100], '\0');
    EXPECT_EQ(transferBuffer().data[3072], 'b');
    EXPECT_EQ(transferBuffer().data[3072 + 50], '\0');
}

TEST_F(ReplyTest, ConfigSetNeverWritesPastTheBuffer) {
    EXPECT_FALSE(writeResultNotice(session_, 1, chunk(2, 0, 0, ""), "ConfigSet"));
    EXPECT_FALSE(
        writeResultNotice(session_, 1, chunk(2, 2, 3072, std::string(3072, 'c')), "ConfigSet"));
    EXPECT_EQ(transferBuffer().byteCount, 2048U);
    EXPECT_EQ(transferBuffer().data[8191], 'c');
    EXPECT_FALSE(
        writeResultNotice(session_, 1, chunk(2, 0xFFFFFFFF, 10, "0123456789"), "ConfigSet"));
    EXPECT_EQ(transferBuffer().byteCount, 2048U);
    // A length beyond the data that came counts what came.
    EXPECT_FALSE(writeResultNotice(session_, 1, chunk(2, 0, 500, "abc"), "ConfigSet"));
    EXPECT_EQ(transferBuffer().byteCount, 3U);
}

} // namespace
} // namespace onudesk
