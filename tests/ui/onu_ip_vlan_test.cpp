// SPDX-License-Identifier: MIT
//
// Management VLAN and VLAN mode.
#include "pages/vlan/onu_ctc_mode.h"
#include "pages/vlan/onu_ip_vlan.h"

#include "page_test.h"

namespace onudesk {
namespace {

using test::Box;
using test::Texts;

class IpVlanTest : public test::PageTest<TOnuIPVlan, 679> {
protected:
    Texts shownTexts() { return {text("cvlanEdt"), text("svlanEdt"), text("priorityEdt")}; }
};

TEST_F(IpVlanTest, ShowsWhatCameAndRefreshEmpties) {
    EXPECT_FALSE(enabled("configBtn"));
    read({"100", "0", "7", "1"}, "maintable");
    EXPECT_EQ(shownTexts(), (Texts{"100", "0", "7"}));
    EXPECT_TRUE(enabled("configBtn"));
    EXPECT_FALSE(enabled("refreshBtn"));
    page().refreshBtnClick();
    EXPECT_EQ(takeRead(), ".1.2.5");
    EXPECT_EQ(shownTexts(), Texts(3));
    read({"200"}, "anything", 0);
    EXPECT_EQ(shownTexts(), (Texts{"200", "", ""}));
    EXPECT_FALSE(enabled("configBtn"));
    read({}, "maintable");
    EXPECT_EQ(text("cvlanEdt"), "200");
    EXPECT_TRUE(enabled("configBtn"));
    failRead();
    EXPECT_FALSE(enabled("configBtn"));
}

TEST_F(IpVlanTest, ChecksInOrderThenWritesAllFour) {
    struct Check {
        const char* edit;
        Texts bad;
        Box refusal;
        const char* low;
        const char* high;
    };
    const Check checks[] = {
        {"cvlanEdt", {"", "0", "4095"}, {11068, {"1", "4094"}}, "1", "4094"},
        {"svlanEdt", {"4095"}, {11068, {"0", "4094"}}, "0", "4094"},
        {"priorityEdt", {"", "0", "9"}, {11068, {"1", "8"}}, "1", "8"},
    };
    read({"", "", ""}, "maintable");
    for (const Check& each : checks) {
        for (const std::string& bad : each.bad) {
            setText(each.edit, bad);
            expectRefused("configBtn", each.edit, each.refusal);
        }
        setText(each.edit, each.high);
    }
    setText("svlanEdt", "");
    expectRefused("configBtn", "svlanEdt", {}); // only takes the focus
    for (const bool low : {true, false}) {
        for (const Check& each : checks) {
            setText(each.edit, low ? each.low : each.high);
        }
        page().configBtn->setEnabled(true);
        test::click(*page().configBtn);
        EXPECT_EQ(takeWrite(),
                  low ? (Texts{"onuManageVlanID@1.2.5=1", "onuManageVlanID2@1.2.5=0",
                               "onuManagePriority@1.2.5=1", "onuManageVlanRowStatus@1.2.5=4"})
                      : (Texts{"onuManageVlanID@1.2.5=4094", "onuManageVlanID2@1.2.5=4094",
                               "onuManagePriority@1.2.5=8", "onuManageVlanRowStatus@1.2.5=4"}));
        EXPECT_FALSE(enabled("configBtn"));
        expectWrittenAndRead();
    }
}

TEST_F(IpVlanTest, TakesFourDigitsOrOne) {
    for (const char* name : {"cvlanEdt", "svlanEdt", "priorityEdt"}) {
        test::type(control<QLineEdit>(name), QStringLiteral("x56789"));
    }
    EXPECT_EQ(shownTexts(), (Texts{"5678", "5678", "5"}));
}

using ModeTest = test::PageTest<TOnuCTCMode, 767>;

TEST_F(ModeTest, SelectsTheModeAndKeepsItOnUnknownCodes) {
    EXPECT_EQ(text("modeComb"), "");
    EXPECT_FALSE(enabled("configBtn"));
    read({"2"}, "group1");
    EXPECT_EQ(text("modeComb"), "802.1Q");
    read({"3"}, "group1", 0);
    EXPECT_EQ(text("modeComb"), "802.1Q");
    EXPECT_FALSE(enabled("configBtn"));
    page().refreshBtnClick();
    EXPECT_EQ(takeRead(), ".1.2.5");
    read({}, "group1");
    EXPECT_EQ(text("modeComb"), "802.1Q");
    EXPECT_TRUE(enabled("configBtn"));
    failRead();
    EXPECT_FALSE(enabled("configBtn"));
    read({"1"}, "group1");
    EXPECT_EQ(text("modeComb"), "CTC");
}

TEST_F(ModeTest, ConfigWritesTheCodeAndReadsAgain) {
    read({"1"}, "group1");
    selectByText(control<QComboBox>("modeComb"), "802.1Q");
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), Texts{"onuStatusVlanCfgMode@1.2.5=2"});
    EXPECT_FALSE(enabled("configBtn"));
    EXPECT_FALSE(enabled("refreshBtn"));
    expectWrittenAndRead();
}

} // namespace
} // namespace onudesk
