// SPDX-License-Identifier: MIT
//
// QinQ mode and the roles of the ports.
#include "pages/qinq/onu_port_qinq.h"
#include "pages/qinq/onu_swich_qinq.h"

#include "page_test.h"

namespace onudesk {
namespace {

using test::Box;
using test::Texts;

using QinQModeTest = test::PageTest<TOnuSwichQinQ, 645>;

TEST_F(QinQModeTest, ARadioButtonEnablesItsOwnField) {
    EXPECT_FALSE(enabled("configBtn") || enabled("refreshBtn"));
    read({"2", "34984"}, "anything");
    for (int times = 0; times < 2; ++times) {
        EXPECT_TRUE(page().modeRaBtn->isChecked());
        EXPECT_TRUE(enabled("modeComb") && !enabled("outerTpidEdt"));
        test::click(*page().vlanRaBtn);
        EXPECT_FALSE(page().modeRaBtn->isChecked());
        EXPECT_TRUE(!enabled("modeComb") && enabled("outerTpidEdt"));
        read({"1", "1501"}, "maintable");
        EXPECT_EQ(text("modeComb") + text("outerTpidEdt"), "static-QinQ1501");
        EXPECT_TRUE(page().vlanRaBtn->isChecked()) << "a reply leaves the choice";
        test::click(*page().modeRaBtn);
    }
}

TEST_F(QinQModeTest, ShowsTwoValuesOrNothing) {
    read({"0", "33024", "x"}, "maintable", 0);
    EXPECT_TRUE(enabled("configBtn")) << "whatever the flag";
    EXPECT_EQ(text("modeComb"), messageText(11008));
    read({"2"}, "maintable");
    failRead();
    EXPECT_EQ(text("modeComb") + text("outerTpidEdt"), messageText(11008) + "33024");
    read({"3", "5"}, "maintable");
    EXPECT_EQ(text("modeComb") + text("outerTpidEdt"), "5");
}

TEST_F(QinQModeTest, WritesWhatIsChosen) {
    read({"0", "33024"}, "maintable");
    setText("outerTpidEdt", "1"); // not chosen, so not checked
    selectByText(*page().modeComb, "flexible-QinQ");
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), Texts{"onuGlobalQinQMode@1.2.5=2"});
    EXPECT_FALSE(enabled("configBtn") || enabled("refreshBtn"));
    expectWrittenAndRead();
    const Box range{11068, {"1501", "65535"}};
    const Box off{3045, {}, 11054, platform::PromptIcon::information};
    struct Case {
        const char* mode;
        const char* tpid;
        Box refusal;
    };
    const Case cases[] = {{"0", "33024", off},   {"0", "1500", off}, {"1", "1500", range},
                          {"2", "65536", range}, {"2", "", range},   {"1", "1501", {}},
                          {"2", "65535", {}},    {"7", "33024", {}}};
    for (const Case& each : cases) {
        read({each.mode, "33024"}, "maintable");
        test::click(*page().vlanRaBtn);
        setText("outerTpidEdt", each.tpid);
        if (each.refusal.textId != 0) {
            expectRefused("configBtn", "outerTpidEdt", each.refusal);
        } else {
            test::click(*page().configBtn);
            EXPECT_EQ(takeWrite(), Texts{std::string("onuGlobalQinQOuterTpid@1.2.5=") + each.tpid});
        }
    }
}

TEST_F(QinQModeTest, TheModeThatIsShownDecidesWhetherTheTpidCanBeWritten) {
    read({"2", "34984"}, "maintable");
    selectByText(*page().modeComb, messageText(11008)); // not written yet
    test::click(*page().vlanRaBtn);
    expectRefused("configBtn", "outerTpidEdt",
                  {3045, {}, 11054, platform::PromptIcon::information});
    test::type(*page().outerTpidEdt, QStringLiteral("a123456"));
    EXPECT_EQ(text("outerTpidEdt"), "34984") << "five digits are there";
}

class PortRoleTest : public test::PageTest<TOnuPortQinQ, 646> {
protected:
    void readPorts(const Texts& state) {
        read(state, "switchqinqstate", 0);
        readRow("1", {"2"}, "maintable", 0);
        readRow("2", {"1"}, "maintable", 0);
        readRow("3", {"9"}, "maintable");
    }
};

TEST_F(PortRoleTest, ListsPortsWithTheirRoles) {
    readPorts({"1"});
    readRow("4", {}, "maintable", 0);
    ASSERT_EQ(page().mainTable->rowCount(), 3);
    EXPECT_TRUE(enabled("configBtn")) << "whatever the flag";
    EXPECT_EQ(page().mainTable->cells(0), (Texts{"1", "customer"}));
    EXPECT_EQ(page().mainTable->cells(1), (Texts{"2", "uplink"}));
    EXPECT_EQ(page().mainTable->cells(2), (Texts{"3", ""}));
    test::elapse(page());
    test::click(*page().refreshBtn);
    EXPECT_EQ(takeRead(), ".1.2.5");
    EXPECT_EQ(page().mainTable->rowCount(), 0);
}

TEST_F(PortRoleTest, RolesCanBeEditedWhileQinQIsOn) {
    struct Case {
        Texts state;
        bool opens;
    };
    // None yet; then what the last reply with a value says.
    const Case cases[] = {{{}, false}, {{"1"}, true}, {{"0"}, false},
                          {{}, false}, {{"2"}, true}, {{}, true}};
    for (const Case& each : cases) {
        page().mainTable->clearRows();
        page().mainTable->rememberRow(-1);
        readPorts(each.state);
        expectRefused("configBtn", "mainTable", {11204}); // comes first
        page().mainTable->selectRow(0);
        if (each.opens) {
            inDialog<TOnuPortQinQItem>([](TOnuPortQinQItem&) {});
            takeRead();
        } else {
            expectRefused("configBtn", "mainTable", {11062});
        }
    }
}

TEST_F(PortRoleTest, OkWritesTheRoleOfThePort) {
    readPorts({"2"});
    page().mainTable->selectRow(1);
    inDialog<TOnuPortQinQItem>([](TOnuPortQinQItem& dialog) {
        EXPECT_EQ(bytesOf(dialog.TitlePanel->TitleLabel->text()), "Onu Port QinQ");
        EXPECT_EQ(stateOf(*dialog.findChild<QLineEdit*>(QStringLiteral("portNoEdt"))).text, "2");
        auto* role = dialog.findChild<QComboBox*>(QStringLiteral("qinqModeComb"));
        EXPECT_EQ(role->currentText(), QStringLiteral("uplink"));
        selectByText(*role, "customer");
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(), Texts{"lanQinQPortMode@1.2.5.2=2"});
    EXPECT_EQ(takeRead(), ".1.2.5");
    expectWrittenAndRead();
    readPorts({"2"});
    EXPECT_EQ(page().mainTable->selectedRow(), 1);
}

} // namespace
} // namespace onudesk
