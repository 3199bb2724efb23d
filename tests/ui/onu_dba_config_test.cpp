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
    EXPECT_EQ(usable(), "");
    EXPECT_TRUE(page().Timer1->isActive());
    EXPECT_FALSE(enabled("downFirEdt"));
    EXPECT_EQ(text("upPoliceComb"), "CIR_MARK_NO_DROP");
    EXPECT_EQ(entriesOf(control<QComboBox>("downPoliceComb")),
              (Texts{"CIR_MARK_NO_DROP", "CIR_MARK_PIR_DROP", "DISABLE", "NO_MARK_CIR_DROP",
                     "NO_MARK_PIR_DROP", "PIR_MARK_NO_DROP"}));
    EXPECT_FALSE(text("shapeActionComb").empty());
    EXPECT_EQ(control<QComboBox>("shapeActionComb").currentIndex(), 0);
    const auto* panel = page().findChild<QWidget*>(QStringLiteral("Panel1"));
    EXPECT_EQ(panel->x(), (page().width() - panel->width()) / 2);
    EXPECT_EQ(panel->y(), (page().height() - panel->height()) / 2);
}

TEST_F(DbaTest, FillsByPosition) {
    readProfile({"4", "0", "0", "0", "0"});
    const std::pair<const char*, std::string> texts[] = {{"upCirEdt", "1000"},
                                                         {"upJitterEdt", "20"},
                                                         {"upPoliceComb", "DISABLE"},
                                                         {"downFirEdt", "500"},
                                                         {"downJitterEdt", "40"},
                                                         {"downPoliceComb", "CIR_MARK_PIR_DROP"},
                                                         {"shapeActionComb", messageText(3119)}};
    for (const auto& [control, value] : texts) {
        EXPECT_EQ(text(control), value) << control;
    }
    EXPECT_EQ(usable(), "configBtn");
}

TEST_F(DbaTest, LimitsFollowTheProfile) {
    struct Case {
        Texts profileAndBounds;
        bool firEnabled;
        Texts limits; // of FIR, CIR and PIR
    };
    // In this order: what a profile leaves unchanged is that of the one before.
    const Case cases[] = {
        {{"9", "1", "2", "3", "4"}, true, {"0-0", "0-0", "0-0"}},
        {{"1", "7", "8", "900000", "64"}, false, {"0-0", "0-661375", "64-900000"}},
        {{"2", "300000", "600000", "900000", "512"}, true, {"0-300000", "0-500004", "512-900000"}},
        {{"2", "500005", "500003", "1", "many"}, true, {"0-500004", "0-500003", "0-1"}},
        {{"3", "1", "2", "3", "4"}, false, {"0-500004", "0-955000", "0-1000000"}},
        {{"0", "1", "2", "3", "4"}, false, {"0-500004", "0-955000", "0-1000000"}},
        {{"4 ", "1", "2", "3", "4"}, true, {"0-955000", "0-955000", "0-1000000"}},
    };
    for (const Case& each : cases) {
        readProfile(each.profileAndBounds);
        EXPECT_EQ(enabled("upFirEdt"), each.firEnabled) << each.profileAndBounds[0];
        EXPECT_EQ(labels(), (Texts{"upFir(" + each.limits[0] + " :kbps)",
                                   "upCir(" + each.limits[1] + " :kbps)",
                                   "upPir(" + each.limits[2] + " :kbps)"}))
            << each.profileAndBounds[0];
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
    const auto between = [](const char* least, const char* most) {
        return Box{11068, {least, most}};
    };
    readProfile({"2", "300000", "600000", "900000", "512"});
    expectChecks({
        {"upFirEdt", {""}, {}, "300000"},
        {"upFirEdt", {"300001"}, between("0", "300000"), "300000"},
        {"upCirEdt", {""}, {}, "500004"},
        {"upCirEdt", {"500005"}, between("0", "500004"), "500004"},
        {"upPirEdt", {"511", "900001"}, between("512", "900000"), "900000"},
        {"upBustEdt", {""}, {}, "640"},
        {"upBustEdt", {"31"}, between("32", "640"), "32"},
        {"upBustEdt", {"641"}, between("32", "640"), "640"},
        {"upPriorityEdt", {"33"}, between("1", "32"), "32"},
        {"upDelayEdt", {"1000001"}, between("1", "1000000"), "1000000"},
        {"upJitterEdt", {"0"}, between("1", "1000000"), "1"},
        {"downCirEdt", {"1000001"}, between("0", "1000000"), "1000000"},
        {"downPirEdt", {"9999999"}, between("0", "1000000"), "1000000"},
        {"downBustEdt", {"31"}, between("32", "640"), "32"},
        {"downPriorityEdt", {""}, {}, "1"},
        {"downDelayEdt", {"0"}, between("1", "1000000"), "1"},
        {"downJitterEdt", {""}, {}, "1000000"},
    });
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
    EXPECT_EQ(takeWrite().at(9), "downFir@1.2.5= 980000");
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
    const std::pair<const char*, std::size_t> limits[] = {
        {"upFirEdt", 6},   {"upCirEdt", 6},      {"upPirEdt", 7},
        {"upBustEdt", 3},  {"upPriorityEdt", 2}, {"upDelayEdt", 9},
        {"downCirEdt", 7}, {"downPirEdt", 7},    {"downPriorityEdt", 2}};
    readProfile({"4", "0", "0", "0", "0"});
    for (const auto& [name, digits] : limits) {
        setText(name, "");
        test::type(control<QLineEdit>(name), "1x23456789");
        EXPECT_EQ(text(name).size(), digits) << name;
    }
}

TEST_F(DbaTest, WritesEverythingBetweenTwoRowStates) {
    readProfile({"1", "0", "0", "900000", "64"});
    expectConfigWrites(
        {"rowStatus@1.2.5=4", "upFir@1.2.5=0", "upCir@1.2.5=1000", "upPir@1.2.5=2000",
         "upBust@1.2.5=64", "upPriority@1.2.5=1", "upDelay@1.2.5=10", "upJitter@1.2.5=20",
         "upPolice@1.2.5=0", "downFir@1.2.5=500", "downCir@1.2.5=1000", "downPir@1.2.5=2000",
         "downBust@1.2.5=64", "downPriority@1.2.5=2", "downDelay@1.2.5=30", "downJitter@1.2.5=40",
         "downPolice@1.2.5=3", "shapeAction@1.2.5=1", "rowStatus@1.2.5=5"});
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
