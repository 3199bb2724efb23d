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
    EXPECT_EQ(usable(), "refreshBtn");
    EXPECT_FALSE(page().Timer1->isActive());
    EXPECT_TRUE(control<QLineEdit>("softEdt").isReadOnly());
    const Texts nine = {"v", "m", "i", "s", "h", "model", "chip", "ic", "fw"};
    Texts twelve = nine;
    twelve.insert(twelve.end(), {"x", "y", "z"});
    read(twelve, "anything");
    EXPECT_EQ(shownTexts(), nine);
    read(Texts(8, "x"), "maintable");
    failRead();
    EXPECT_EQ(shownTexts(), nine);
    page().updatePage();
    EXPECT_EQ(host.pending(), 0U) << "only Refresh reads again";
    test::click(*page().refreshBtn);
    EXPECT_EQ(takeRead(), ".1.2.5");
    EXPECT_EQ(shownTexts(), Texts(9));
    read(nine, "maintable");
    EXPECT_EQ(usable(), "");
    test::elapse(page());
    EXPECT_EQ(usable(), "refreshBtn");
}

class RebootTest : public test::PageTest<TOnuReboot, 622> {};

TEST_F(RebootTest, AsksAndWritesOneByte) {
    EXPECT_EQ(text("restartWayComb"), "Reset Onu");
    EXPECT_EQ(page().refreshBtn, nullptr);
    expectDeclined("configBtn", 11077, messageText(11054));
    expectConfigWrites({"onuReset@1.2.5=1"});
    desk.takeBox();
    EXPECT_TRUE(enabled("configBtn"));
    ASSERT_TRUE(host.replyWrite(622, {.status = 0, .errorText = "time-out"}));
    EXPECT_EQ(desk.takeBox().icon, platform::PromptIcon::warning);
    EXPECT_EQ(host.pending(), 0U) << "it never reads";
}

TEST_F(RebootTest, WithoutSelectionNothingIsAskedAndZeroIsWritten) {
    control<QComboBox>("restartWayComb").setCurrentIndex(-1);
    expectConfigWrites({"onuReset@1.2.5=0"});
}

TEST_F(RebootTest, TheFirstReadsAnswerIsGivenBack) {
    read({"1"}, "resetoid");
    EXPECT_TRUE(enabled("configBtn"));
    EXPECT_EQ(test::TestHost::outstandingReplies(), 0U);
}

class IpTest : public test::PageTest<TOnuIPConfig, 675> {
protected:
    Texts shownTexts() { return {text("ipEdt"), text("maskEdt"), text("getwayEdt")}; }
};

TEST_F(IpTest, ShowsWhatCameAndLeavesTheRestEmpty) {
    read({"1", "10.0.0.2", "255.0.0.0", "10.0.0.1"}, "group1", 0);
    EXPECT_EQ(shownTexts(), (Texts{"10.0.0.2", "255.0.0.0", "10.0.0.1"}));
    EXPECT_EQ(usable(), "");
    EXPECT_EQ(refresh(), ".1.2.5");
    EXPECT_EQ(shownTexts(), Texts(3));
    read({"2", "10.0.0.3"}, "group1");
    EXPECT_EQ(shownTexts(), (Texts{"10.0.0.3", "", ""}));
    EXPECT_EQ(usable(), "configBtn");
    failRead();
    EXPECT_EQ(usable(), "");
}

TEST_F(IpTest, ChecksAddressMaskGatewayThenWritesWithFixedStatus) {
    read({"9", "", "", ""}, "group1");
    const Texts bad = {"", "1.2.3", "1.2.3.4444", "1.2.3.x", "255.255.255.2555"};
    expectChecks({{"ipEdt", bad, {11069}, "1.1.1.1"},
                  {"maskEdt", bad, {11069}, "255.255.255.255"},
                  {"getwayEdt", bad, {11069}, "255.255.255.255"}});
    expectConfigWrites({"onuIPAddress@1.2.5=1.1.1.1", "onuIPNetMask@1.2.5=255.255.255.255",
                        "onuIPGateway@1.2.5=255.255.255.255", "onuIPStatus@1.2.5=2",
                        "onuIPRowStatus@1.2.5=4"});
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
    test::type(edit, "x");
    EXPECT_EQ(text("cpuEdit"), "x");
    failRead();
    test::type(edit, "y7");
    EXPECT_EQ(text("cpuEdit"), "x7");
}

TEST_F(CpuTest, ShowsItsGroupOnlyAndRefreshKeepsConfig) {
    read({"500"}, "group1");
    read({"600"}, "group2");
    read({}, "group1");
    EXPECT_EQ(text("cpuEdit"), "500");
    refresh();
    EXPECT_EQ(usable(), "configBtn");
    EXPECT_EQ(text("cpuEdit"), "500");
    failRead();
    EXPECT_EQ(usable(), "");
}

TEST_F(CpuTest, RangeIsCheckedAndBlanksOnlyTakeTheFocus) {
    for (const char* good : {"0", "10000"}) {
        read({""}, "group1");
        expectChecks({{"cpuEdit", {"", "   "}, {}, ""},
                      {"cpuEdit", {"10001"}, {11068, {"0", "10000"}}, good}});
        expectConfigWrites({std::string("onuCpuCarRate@1.2.5=") + good});
        expectWrittenAndRead();
    }
}

} // namespace
} // namespace onudesk
