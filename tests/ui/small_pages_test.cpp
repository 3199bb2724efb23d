// SPDX-License-Identifier: MIT
//
// Version, restart, management address and CPU rate.
#include "pages/basic/onu_reboot.h"
#include "pages/basic/onu_version_info.h"
#include "pages/management/onu_cpu_car.h"
#include "pages/management/onu_ip_config.h"

#include "page_test.h"

namespace onudesk {
namespace {

using test::Box;
using test::Texts;

class VersionTest : public test::PageTest<TOnuVersionInfo, 605> {
protected:
    Texts shownTexts() {
        return {text("vendorEdit"),    text("vendorModelEdit"), text("vendorIdEdit"),
                text("softEdt"),       text("hardEdt"),         text("chipmodelEdt"),
                text("chipvendorEdt"), text("chipIcEdit"),      text("firmWareEdit")};
    }
};

TEST_F(VersionTest, FillsFromTheFirstNineValuesAndKeepsThem) {
    EXPECT_TRUE(enabled("refreshBtn"));
    EXPECT_FALSE(page().Timer1->isActive());
    EXPECT_TRUE(control<QLineEdit>("softEdt").isReadOnly());
    const Texts nine = {"v", "m", "i", "s", "h", "model", "chip", "ic", "fw"};
    Texts twelve = nine;
    twelve.insert(twelve.end(), {"x", "y", "z"});
    read(twelve, "anything");
    EXPECT_EQ(shownTexts(), nine);
    read({"1", "2", "3", "4", "5", "6", "7", "8"}, "maintable");
    failRead();
    EXPECT_EQ(shownTexts(), nine);
    page().updatePage();
    EXPECT_EQ(host.pending(), 0U) << "only Refresh reads again";
}

TEST_F(VersionTest, RefreshEmptiesAndWaitsForTheTimer) {
    read(Texts(9, "x"), "maintable");
    test::click(*page().refreshBtn);
    EXPECT_EQ(takeRead(), ".1.2.5");
    EXPECT_EQ(shownTexts(), Texts(9));
    read(Texts(9, "x"), "maintable");
    EXPECT_FALSE(enabled("refreshBtn"));
    test::elapse(page());
    EXPECT_TRUE(enabled("refreshBtn"));
    ASSERT_EQ(page().configBtn, nullptr);
}

class RebootTest : public test::PageTest<TOnuReboot, 622> {};

TEST_F(RebootTest, AsksAndWritesOneByte) {
    EXPECT_EQ(text("restartWayComb"), "Reset Onu");
    EXPECT_EQ(page().refreshBtn, nullptr);
    desk.answer = platform::PromptAnswer::no;
    test::click(*page().configBtn);
    const auto question = desk.takeBox();
    EXPECT_EQ(question.text, messageText(11077));
    EXPECT_EQ(question.caption, messageText(11054));
    EXPECT_EQ(question.buttons, platform::PromptButtons::yesNo);
    EXPECT_EQ(host.pending(), 0U);
    desk.answer = platform::PromptAnswer::yes;
    test::click(*page().configBtn);
    desk.takeBox();
    EXPECT_EQ(takeWrite(), Texts{"onuReset@1.2.5=1"});
    EXPECT_TRUE(enabled("configBtn"));
    ASSERT_TRUE(host.replyWrite(622, {.status = 0, .errorText = "time-out"}));
    EXPECT_EQ(desk.takeBox().icon, platform::PromptIcon::warning);
    EXPECT_EQ(host.pending(), 0U) << "it never reads";
}

TEST_F(RebootTest, WithoutSelectionNothingIsAskedAndZeroIsWritten) {
    control<QComboBox>("restartWayComb").setCurrentIndex(-1);
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), Texts{"onuReset@1.2.5=0"});
}

TEST_F(RebootTest, TheFirstReadsAnswerIsGivenBack) {
    read({"1"}, "resetoid");
    EXPECT_TRUE(enabled("configBtn"));
    EXPECT_EQ(test::TestHost::outstandingReplies(), 0U);
}

using IpTest = test::PageTest<TOnuIPConfig, 675>;

TEST_F(IpTest, ShowsWhatCameAndLeavesTheRestEmpty) {
    read({"1", "10.0.0.2", "255.0.0.0", "10.0.0.1"}, "group1", 0);
    EXPECT_FALSE(enabled("configBtn"));
    EXPECT_EQ(text("getwayEdt"), "10.0.0.1");
    page().refreshBtnClick();
    EXPECT_EQ(takeRead(), ".1.2.5");
    EXPECT_EQ(text("ipEdt") + text("maskEdt") + text("getwayEdt"), "");
    read({"2", "10.0.0.3"}, "group1");
    EXPECT_EQ(text("ipEdt"), "10.0.0.3");
    EXPECT_EQ(text("maskEdt"), "");
    EXPECT_TRUE(enabled("configBtn"));
    failRead();
    EXPECT_FALSE(enabled("configBtn"));
}

TEST_F(IpTest, ChecksAddressMaskGatewayThenWritesWithFixedStatus) {
    read({"9", "", "", ""}, "group1");
    const Box refusal{11069};
    for (const char* name : {"ipEdt", "maskEdt", "getwayEdt"}) {
        for (const char* bad : {"", "1.2.3", "1.2.3.4444", "1.2.3.x", "255.255.255.2555"}) {
            setText(name, bad);
            expectRefused("configBtn", name, refusal);
        }
        setText(name, "255.255.255.255");
    }
    setText("ipEdt", "1.1.1.1");
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(),
              (Texts{"onuIPAddress@1.2.5=1.1.1.1", "onuIPNetMask@1.2.5=255.255.255.255",
                     "onuIPGateway@1.2.5=255.255.255.255", "onuIPStatus@1.2.5=2",
                     "onuIPRowStatus@1.2.5=4"}));
    expectWrittenAndRead();
}

TEST_F(IpTest, BothItemsHaveObjectsOfTheirOwn) {
    TOnuIPConfig other(session, 500, nullptr);
    const auto* here = lookup(page().catalogue(), "group1", "onuIPAddress");
    const auto* there = lookup(other.catalogue(), "group1", "onuIPAddress");
    ASSERT_TRUE(here != nullptr && there != nullptr);
    EXPECT_NE(here->oidstr, there->oidstr);
    EXPECT_NE(page().replyHandle(), other.replyHandle());
}

using CpuTest = test::PageTest<TOnuCpuCar, 915>;

TEST_F(CpuTest, TakesDigitsOnlyFromTheFirstReplyOn) {
    auto& edit = control<QLineEdit>("cpuEdit");
    test::type(edit, QStringLiteral("x"));
    EXPECT_EQ(edit.text(), QStringLiteral("x"));
    failRead();
    test::type(edit, QStringLiteral("y7"));
    EXPECT_EQ(edit.text(), QStringLiteral("x7"));
}

TEST_F(CpuTest, ShowsItsGroupOnlyAndRefreshKeepsConfig) {
    read({"500"}, "group1");
    read({"600"}, "group2");
    read({}, "group1");
    EXPECT_EQ(text("cpuEdit"), "500");
    page().refreshBtnClick();
    takeRead();
    EXPECT_TRUE(enabled("configBtn"));
    EXPECT_FALSE(enabled("refreshBtn"));
    EXPECT_EQ(text("cpuEdit"), "500");
    failRead();
    EXPECT_FALSE(enabled("configBtn"));
}

TEST_F(CpuTest, RangeIsCheckedAndBlanksOnlyTakeTheFocus) {
    read({""}, "group1");
    for (const char* blank : {"", "   "}) {
        setText("cpuEdit", blank);
        expectRefused("configBtn", "cpuEdit", {});
    }
    setText("cpuEdit", "10001");
    expectRefused("configBtn", "cpuEdit", {11068, {"0", "10000"}});
    for (const char* good : {"0", "10000"}) {
        setText("cpuEdit", good);
        page().configBtn->setEnabled(true);
        test::click(*page().configBtn);
        EXPECT_EQ(takeWrite(), Texts{"onuCpuCarRate@1.2.5=" + std::string(good)});
        expectWrittenAndRead();
    }
}

} // namespace
} // namespace onudesk
