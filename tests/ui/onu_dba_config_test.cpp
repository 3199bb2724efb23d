// SPDX-License-Identifier: MIT
#include "pages/basic/onu_dba_config.h"

#include "page_test.h"

namespace onudesk {
namespace {

using test::Box;
using test::Texts;

class DbaTest : public test::PageTest<TOnuDbaConfig, 608> {
protected:
    // A reply with these profile and bounds; rates that every profile allows.
    void readProfile(Texts profileAndBounds, std::uint32_t status = 1) {
        Texts values = {"0",    "1000", "2000", "64", "1",  "10", "20", "0", "500",
                        "1000", "2000", "64",   "2",  "30", "40", "3",  "1"};
        values.insert(values.end(), profileAndBounds.begin(), profileAndBounds.end());
        read(values, "maingroup", status);
    }
    Texts labels() {
        return {label("upFirEdtLabel"), label("upCirEdtLabel"), label("upPirEdtLabel")};
    }
};

TEST_F(DbaTest, StartsWithDesignCaptionsAndFirstEntries) {
    EXPECT_EQ(labels(), (Texts{"upFir", "upCir", "upPir"}));
    EXPECT_FALSE(enabled("configBtn"));
    EXPECT_FALSE(enabled("refreshBtn"));
    EXPECT_TRUE(page().Timer1->isActive());
    EXPECT_FALSE(enabled("downFirEdt"));
    EXPECT_EQ(text("upPoliceComb"), "CIR_MARK_NO_DROP");
    Texts policing;
    for (int at = 0; at < control<QComboBox>("downPoliceComb").count(); ++at) {
        policing.push_back(bytesOf(control<QComboBox>("downPoliceComb").itemText(at)));
    }
    EXPECT_EQ(policing, (Texts{"CIR_MARK_NO_DROP", "CIR_MARK_PIR_DROP", "DISABLE",
                               "NO_MARK_CIR_DROP", "NO_MARK_PIR_DROP", "PIR_MARK_NO_DROP"}));
    EXPECT_FALSE(text("shapeActionComb").empty());
    EXPECT_EQ(control<QComboBox>("shapeActionComb").currentIndex(), 0);
    const auto* panel = page().findChild<QWidget*>(QStringLiteral("Panel1"));
    EXPECT_EQ(panel->x(), (page().width() - panel->width()) / 2);
    EXPECT_EQ(panel->y(), (page().height() - panel->height()) / 2);
}

TEST_F(DbaTest, FillsByPosition) {
    readProfile({"4", "0", "0", "0", "0"});
    EXPECT_EQ(text("upCirEdt"), "1000");
    EXPECT_EQ(text("upJitterEdt"), "20");
    EXPECT_EQ(text("upPoliceComb"), "DISABLE");
    EXPECT_EQ(text("downFirEdt"), "500");
    EXPECT_EQ(text("downJitterEdt"), "40");
    EXPECT_EQ(text("downPoliceComb"), "CIR_MARK_PIR_DROP");
    EXPECT_EQ(text("shapeActionComb"), messageText(3119));
    EXPECT_TRUE(enabled("configBtn"));
    EXPECT_FALSE(enabled("refreshBtn"));
}

TEST_F(DbaTest, LimitsFollowTheProfile) {
    struct Case {
        Texts profileAndBounds;
        bool firEnabled;
        Texts labels;
    };
    // In this order: what a profile leaves unchanged is that of the one before.
    const Case cases[] = {
        {{"9", "1", "2", "3", "4"},
         true,
         {"upFir(0-0 :kbps)", "upCir(0-0 :kbps)", "upPir(0-0 :kbps)"}},
        {{"1", "7", "8", "900000", "64"},
         false,
         {"upFir(0-0 :kbps)", "upCir(0-661375 :kbps)", "upPir(64-900000 :kbps)"}},
        {{"2", "300000", "600000", "900000", "512"},
         true,
         {"upFir(0-300000 :kbps)", "upCir(0-500004 :kbps)", "upPir(512-900000 :kbps)"}},
        {{"2", "500005", "500003", "1", "many"},
         true,
         {"upFir(0-500004 :kbps)", "upCir(0-500003 :kbps)", "upPir(0-1 :kbps)"}},
        {{"3", "1", "2", "3", "4"},
         false,
         {"upFir(0-500004 :kbps)", "upCir(0-955000 :kbps)", "upPir(0-1000000 :kbps)"}},
        {{"0", "1", "2", "3", "4"},
         false,
         {"upFir(0-500004 :kbps)", "upCir(0-955000 :kbps)", "upPir(0-1000000 :kbps)"}},
        {{"4 ", "1", "2", "3", "4"},
         true,
         {"upFir(0-955000 :kbps)", "upCir(0-955000 :kbps)", "upPir(0-1000000 :kbps)"}},
    };
    for (const Case& expected : cases) {
        readProfile(expected.profileAndBounds);
        EXPECT_EQ(enabled("upFirEdt"), expected.firEnabled) << expected.profileAndBounds[0];
        EXPECT_EQ(labels(), expected.labels) << expected.profileAndBounds[0];
    }
}

TEST_F(DbaTest, RepliesItCannotUseOnlySetConfig) {
    readProfile({"4", "0", "0", "0", "0"}, 0);
    EXPECT_FALSE(enabled("configBtn"));
    EXPECT_EQ(text("upCirEdt"), "1000");
    readProfile({"3", "0", "0", "0"}); // one value short
    EXPECT_TRUE(enabled("configBtn"));
    EXPECT_TRUE(enabled("upFirEdt"));
    read(Texts(22, "3"), "rowstat");
    EXPECT_EQ(text("upCirEdt"), "1000");
    failRead();
    EXPECT_FALSE(enabled("configBtn"));
}

TEST_F(DbaTest, RefusesInTheOrderOfTheFields) {
    readProfile({"2", "300000", "600000", "900000", "512"});
    struct Case {
        const char* control;
        const char* bad;
        Box box;
        const char* good;
    };
    const Box downstream{11068, {"0", "1000000"}};
    // Each one is mended before the next, so that its place in the order is seen.
    const Case cases[] = {
        {"upFirEdt", "", {}, "300000"},
        {"upFirEdt", "300001", {11068, {"0", "300000"}}, "300000"},
        {"upCirEdt", "", {}, "500004"},
        {"upCirEdt", "500005", {11068, {"0", "500004"}}, "500004"},
        {"upPirEdt", "511", {11068, {"512", "900000"}}, "900000"},
        {"upPirEdt", "900001", {11068, {"512", "900000"}}, "900000"},
        {"upBustEdt", "", {}, "640"},
        {"upBustEdt", "31", {11068, {"32", "640"}}, "32"},
        {"upBustEdt", "641", {11068, {"32", "640"}}, "640"},
        {"upPriorityEdt", "33", {11068, {"1", "32"}}, "32"},
        {"upDelayEdt", "1000001", {11068, {"1", "1000000"}}, "1000000"},
        {"upJitterEdt", "0", {11068, {"1", "1000000"}}, "1"},
        {"downCirEdt", "1000001", downstream, "1000000"},
        {"downPirEdt", "9999999", downstream, "1000000"},
        {"downBustEdt", "31", {11068, {"32", "640"}}, "32"},
        {"downPriorityEdt", "", {}, "1"},
        {"downDelayEdt", "0", {11068, {"1", "1000000"}}, "1"},
        {"downJitterEdt", "", {}, "1000000"},
    };
    for (const Case& wrong : cases) {
        setText(wrong.control, wrong.bad);
    }
    for (const Case& wrong : cases) {
        setText(wrong.control, wrong.bad);
        expectRefused("configBtn", wrong.control, wrong.box);
        setText(wrong.control, wrong.good);
    }
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite().size(), 19U);
}

TEST_F(DbaTest, RatesMustBeInOrderEvenWhereTheEditIsDisabled) {
    readProfile({"3", "0", "0", "0", "0"});
    const Box upstream{3031, {}, 113, platform::PromptIcon::none};
    const Box downstream{3032, {}, 113, platform::PromptIcon::none};
    setText("upFirEdt", "1001"); // disabled by the profile, and beyond its own limit
    expectRefused("configBtn", "upCirEdt", upstream);
    setText("upFirEdt", "1000");
    setText("upPirEdt", "999");
    expectRefused("configBtn", "upCirEdt", upstream);
    setText("upPirEdt", "1000");
    setText("downFirEdt", "1001");
    expectRefused("configBtn", "downCirEdt", downstream);
    setText("downFirEdt", "");
    test::click(*page().configBtn);
    EXPECT_EQ(desk.takeBox().text, fillPlaces(messageText(20029), {""}));
    setText("downFirEdt", " 980000"); // as some devices report it
    setText("downCirEdt", "980000");
    setText("downPirEdt", "980000");
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite()[9], "downFir@1.2.5= 980000");
}

TEST_F(DbaTest, AnEmptyUpstreamRateThatIsDisabledEndsTheClick) {
    readProfile({"1", "0", "0", "900000", "64"});
    setText("upFirEdt", "");
    test::click(*page().configBtn);
    EXPECT_EQ(desk.takeBox().text, fillPlaces(messageText(20029), {""}));
    EXPECT_EQ(host.pending(), 0U);
    setText("upFirEdt", "661375"); // beyond its limit of 0, and not checked
    setText("upCirEdt", "661375");
    setText("upPirEdt", "661375");
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite().size(), 19U);
}

TEST_F(DbaTest, TypingIsLimitedToDigitsAndTheirNumber) {
    struct Case {
        const char* control;
        std::size_t digits;
    };
    readProfile({"4", "0", "0", "0", "0"});
    for (const Case& limited :
         {Case{"upFirEdt", 6}, Case{"upCirEdt", 6}, Case{"upPirEdt", 7}, Case{"upBustEdt", 3},
          Case{"upPriorityEdt", 2}, Case{"upDelayEdt", 9}, Case{"downCirEdt", 7},
          Case{"downPirEdt", 7}, Case{"downPriorityEdt", 2}}) {
        setText(limited.control, "");
        test::type(control<QLineEdit>(limited.control), QStringLiteral("1x23456789"));
        EXPECT_EQ(text(limited.control).size(), limited.digits) << limited.control;
    }
}

TEST_F(DbaTest, AFailedWriteIsReadBackAndTold) {
    readProfile({"4", "0", "0", "0", "0"});
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite().size(), 19U);
    ASSERT_TRUE(host.replyWrite(608, {.status = 0, .errorText = "wrongValue"}));
    takeRead();
    EXPECT_EQ(desk.takeBox().icon, platform::PromptIcon::warning);
}

TEST_F(DbaTest, WritesEverythingBetweenTwoRowStates) {
    readProfile({"1", "0", "0", "900000", "64"});
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(),
              (Texts{"rowStatus@1.2.5=4", "upFir@1.2.5=0", "upCir@1.2.5=1000", "upPir@1.2.5=2000",
                     "upBust@1.2.5=64", "upPriority@1.2.5=1", "upDelay@1.2.5=10",
                     "upJitter@1.2.5=20", "upPolice@1.2.5=0", "downFir@1.2.5=500",
                     "downCir@1.2.5=1000", "downPir@1.2.5=2000", "downBust@1.2.5=64",
                     "downPriority@1.2.5=2", "downDelay@1.2.5=30", "downJitter@1.2.5=40",
                     "downPolice@1.2.5=3", "shapeAction@1.2.5=1", "rowStatus@1.2.5=5"}));
    EXPECT_FALSE(enabled("configBtn"));
    expectWrittenAndRead();
}

TEST_F(DbaTest, WithoutShapingTextTheActionIsLeftOut) {
    readProfile({"1", "0", "0", "900000", "64"});
    control<QComboBox>("shapeActionComb").setCurrentIndex(-1);
    test::click(*page().configBtn);
    const Texts without = takeWrite();
    EXPECT_EQ(without.size(), 18U);
    EXPECT_EQ(without.back(), "rowStatus@1.2.5=5");
    control<QComboBox>("shapeActionComb").setCurrentIndex(2);
    page().configBtn->setEnabled(true);
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite().size(), 19U);
}

TEST_F(DbaTest, ShowingItAgainReadsAgain) {
    page().upGroup->setEnabled(false);
    page().updatePage();
    EXPECT_EQ(takeRead(), ".1.2.5");
    EXPECT_TRUE(page().upGroup->isEnabled());
}

} // namespace
} // namespace onudesk
