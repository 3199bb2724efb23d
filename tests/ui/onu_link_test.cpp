// SPDX-License-Identifier: MIT
//
// Forward error correction, encryption and loopback.
#include "pages/port/onu_encription.h"
#include "pages/port/onu_fec.h"
#include "pages/port/onu_loopback.h"

#include "page_test.h"

namespace onudesk {
namespace {

using test::Texts;

class FecTest : public test::PageTest<TOnuFEC, 616> {};

TEST_F(FecTest, ShowsSupportAndModeOfItsOwnTable) {
    struct Case {
        Texts values;
        std::string support;
        std::string mode;
    };
    for (const Case& known :
         {Case{{"2", "3"}, messageText(11043), messageText(11008)},
          Case{{"1", "2", "9"}, messageText(11239), messageText(11007)},
          Case{{"3", "1"}, messageText(11044), ""}, Case{{"4", "2"}, "", messageText(11007)},
          Case{{"2"}, "", messageText(11007)}}) {
        read(known.values, "maintable");
        EXPECT_EQ(text("supportComb"), known.support);
        EXPECT_EQ(text("modeComb"), known.mode);
    }
    read({"2", "3"}, "other", 0);
    EXPECT_EQ(text("supportComb"), "");
    EXPECT_FALSE(enabled("configBtn")) << "the flag of any reply counts";
    EXPECT_FALSE(enabled("supportComb"));
}

TEST_F(FecTest, WritesTheModeAlone) {
    read({"2", "3"}, "maintable");
    selectByText(control<QComboBox>("modeComb"), messageText(11007));
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), Texts{"onuFecMode@1.2.5=2"});
    EXPECT_FALSE(enabled("configBtn") || enabled("refreshBtn"));
    expectWrittenAndRead();
}

class EncryptionTest : public test::PageTest<TOnuEncription, 649> {
protected:
    void choose(int textId) { selectByText(control<QComboBox>("enableComb"), messageText(textId)); }
};

TEST_F(EncryptionTest, StatesRefuseOnAndNeverOff) {
    struct Case {
        const char* state;
        int chosen;
        int notice; // 0: it is written
    };
    for (const Case& known :
         {Case{"1", 11007, 3110}, Case{"2", 11007, 3111}, Case{"1", 11008, 0}, Case{"2", 11008, 0},
          Case{"0", 11007, 0}, Case{"3", 11007, 0}, Case{"x", 11007, 0}}) {
        read({"0", known.state}, "maintable");
        choose(known.chosen);
        test::click(*page().configBtn);
        expectBox({known.notice, {}, 11054, platform::PromptIcon::information});
        if (known.notice != 0) {
            EXPECT_EQ(host.pending(), 0U);
            EXPECT_TRUE(enabled("configBtn"));
            continue;
        }
        const std::string code = known.chosen == 11007 ? "1" : "0";
        EXPECT_EQ(takeWrite(), Texts{"onuEncrypEnable@1.2.5=" + code});
        expectWrittenAndRead();
    }
}

TEST_F(EncryptionTest, TheStateOfTheLastWholeReplyCounts) {
    read({"1", "1"}, "maintable");
    EXPECT_EQ(text("enableComb"), messageText(11007));
    read({"0"}, "maintable");
    read({"0", "0"}, "state");
    EXPECT_EQ(text("enableComb"), messageText(11007));
    test::click(*page().configBtn);
    expectBox({3110, {}, 11054, platform::PromptIcon::information});
    read({"1", "0"}, "maintable", 0);
    EXPECT_FALSE(enabled("configBtn"));
    failRead();
    EXPECT_TRUE(enabled("configBtn"));
}

class LoopbackTest : public test::PageTest<TOnuLoopback, 772> {};

TEST_F(LoopbackTest, UnknownCodesAndFailedReadsKeepTheChoice) {
    EXPECT_FALSE(enabled("configBtn") || enabled("refreshBtn"));
    read({"1"}, "maintable");
    EXPECT_EQ(text("enableComb"), messageText(11007));
    read({"2"}, "maintable");
    read({}, "maintable");
    read({"0"}, "group1");
    EXPECT_EQ(text("enableComb"), messageText(11007));
    EXPECT_TRUE(enabled("configBtn"));
    failRead();
    EXPECT_FALSE(enabled("configBtn"));
    EXPECT_EQ(text("enableComb"), messageText(11007));
}

TEST_F(LoopbackTest, WritesTheCodeAndNothingWithoutChoice) {
    read({"1"}, "maintable");
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), Texts{"onuloopbackoam@1.2.5=1"});
    expectWrittenAndRead();
    control<QComboBox>("enableComb").setCurrentIndex(-1);
    read({"5"}, "maintable");
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), Texts{"onuloopbackoam@1.2.5="});
}

} // namespace
} // namespace onudesk
