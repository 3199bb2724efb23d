// SPDX-License-Identifier: MIT
//
// The pages of line terminals.
#include "pages/lt/onu_lt_attribute.h"
#include "pages/lt/onu_lt_gain.h"
#include "pages/lt/onu_lt_infa_status.h"
#include "pages/lt/onu_lt_ip_config.h"
#include "pages/lt/onu_lt_pon_set.h"
#include "pages/lt/onu_lt_self_set.h"

#include "page_test.h"

#include <QPlainTextEdit>

namespace onudesk {
namespace {

using test::Box;
using test::Texts;

class LtIpTest : public test::PageTest<TOnuLTIPConfig, 812> {};

TEST_F(LtIpTest, ShowsWholeRepliesAndRefreshEmpties) {
    read({"10.0.0.2", "255.0.0.0", "10.0.0.1"}, "group1", 0);
    EXPECT_EQ(text("ipEdt"), "") << "without row status";
    EXPECT_FALSE(enabled("configBtn"));
    read({"10.0.0.2", "255.0.0.0", "10.0.0.1", "1"}, "group1");
    EXPECT_EQ(text("ipEdt") + text("maskEdt") + text("getwayEdt"), "10.0.0.2255.0.0.010.0.0.1");
    EXPECT_TRUE(enabled("configBtn"));
    page().refreshBtnClick();
    takeRead();
    EXPECT_EQ(text("ipEdt") + text("maskEdt") + text("getwayEdt"), "");
    page().configBtn->setEnabled(true);
    failRead();
    EXPECT_FALSE(enabled("configBtn"));
}

TEST_F(LtIpTest, ChecksAddressMaskGatewayThenWritesThemWithRowStatus) {
    read({"", "", "", ""}, "group1");
    for (const char* name : {"ipEdt", "maskEdt", "getwayEdt"}) {
        for (const char* bad : {"", "1.2.3", "1.2.3.4567"}) {
            setText(name, bad);
            expectRefused("configBtn", name, {11069});
        }
        setText(name, "1.2.3.4");
    }
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), (Texts{"vgonuipAddress@1.2.5=1.2.3.4", "vgonuipMask@1.2.5=1.2.3.4",
                                  "vgonuipgateway@1.2.5=1.2.3.4", "vgonuipRowStatus@1.2.5=4"}));
    EXPECT_FALSE(enabled("configBtn") || enabled("refreshBtn"));
    expectWrittenAndRead();
}

class LtPonTest : public test::PageTest<TOnuLTPonSet, 817> {};

TEST_F(LtPonTest, ZeroIsNoChoiceAndOtherNumbersSelectNothing) {
    struct Case {
        const char* value;
        const char* group;
        std::string port;
        bool choice;
    };
    for (const Case& known : {Case{"2", "group1", "2", true}, Case{"0", "group1", "2", false},
                              Case{"1", "maintable", "2", false}, Case{"1", "group1", "1", true},
                              Case{"3", "group1", "", true}, Case{"00", "group1", "", true}}) {
        read({known.value}, known.group);
        EXPECT_EQ(text("ponComb"), known.port) << known.value;
        EXPECT_EQ(enabled("ponComb"), known.choice) << known.value;
    }
    read({}, "group1", 0);
    EXPECT_FALSE(enabled("configBtn"));
    EXPECT_TRUE(enabled("ponComb"));
}

TEST_F(LtPonTest, ConfigWritesTheChosenPortOrDoesNothing) {
    read({"0"}, "group1");
    test::click(*page().configBtn);
    EXPECT_EQ(host.pending(), 0U);
    EXPECT_TRUE(enabled("configBtn"));
    read({"1"}, "group1");
    selectByText(*page().ponComb, "2");
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), Texts{"vgonuworkponset@1.2.5=2"});
    expectWrittenAndRead();
}

class GainTest : public test::PageTest<TOnuLTGain, 816> {};

TEST_F(GainTest, ListsLinesAndFollowsTheFlagWithBothButtons) {
    readRow("1", {"3", "4"}, "maintable");
    readRow("1", {"3", "4", "1"}, "group1");
    EXPECT_EQ(page().mainTable->rowCount(), 0);
    readRow("2", {"0", "36", "1"}, "maintable", 0);
    EXPECT_EQ(page().mainTable->cells(0), (Texts{"2", "0", "36"}));
    EXPECT_FALSE(enabled("configBtn") || enabled("refreshBtn"));
    readRow("3", {"5", "6", "1"}, "maintable");
    EXPECT_TRUE(enabled("configBtn") && enabled("refreshBtn"));
    expectRefused("configBtn", "mainTable", {11204});
}

TEST_F(GainTest, OkChecksReceiveThenSendAndWritesTheLine) {
    readRow("7", {"3", "4", "1"}, "maintable");
    readRow("9", {"30", "36", "1"}, "maintable");
    page().mainTable->selectRow(1);
    inDialog<TOnuLTGainItem>([this](TOnuLTGainItem& dialog) {
        auto edit = [&](const char* name) -> QLineEdit& {
            return *dialog.findChild<QLineEdit*>(QString::fromLatin1(name));
        };
        EXPECT_EQ(stateOf(edit("portnoEdt")).text + " " + stateOf(edit("recvEdit")).text + " " +
                      stateOf(edit("sendEdit")).text,
                  "9 30 36");
        for (const char* name : {"recvEdit", "sendEdit"}) {
            for (const char* bad : {"", "37"}) {
                setControlText(edit("sendEdit"), "99");
                setControlText(edit(name), bad);
                test::click(*dialog.okBtn);
                expectBox({11068, {"0", "36"}});
                EXPECT_EQ(dialog.focusWidget(), &edit(name)) << bad;
            }
            setControlText(edit(name), "36");
        }
        setControlText(edit("sendEdit"), "0");
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(), (Texts{"vgonuGainRec@1.2.5.9=36", "vgonuGainSend@1.2.5.9=0",
                                  "vgonuGainRowStatus@1.2.5.9=4"}));
    takeRead();
    expectWrittenAndRead();
    readRow("7", {"3", "4", "1"}, "maintable");
    readRow("9", {"36", "0", "1"}, "maintable");
    EXPECT_EQ(page().mainTable->selectedRow(), 1);
}

class LineTest : public test::PageTest<TOnuLTInfaStatus, 815> {};

TEST_F(LineTest, ListsLinesInWords) {
    readRow("1", {"2", "1"}, "maintable");
    EXPECT_EQ(page().mainTable->rowCount(), 0);
    readRow("1", {"1", "0", "Lobby"}, "maintable");
    readRow("2", {"3", "1", ""}, "maintable");
    readRow("3", {"4", "2", "x"}, "maintable", 0);
    EXPECT_EQ(page().mainTable->cells(0), (Texts{"1", "FXO", messageText(3168), "Lobby"}));
    EXPECT_EQ(page().mainTable->cells(1), (Texts{"2", "RD", messageText(3169), ""}));
    EXPECT_EQ(page().mainTable->cells(2), (Texts{"3", "", "", "x"}));
    EXPECT_FALSE(enabled("configBtn") || enabled("refreshBtn"));
}

TEST_F(LineTest, DescriptionsHaveFiftyCharactersAtMost) {
    readRow("4", {"2", "1", "Lobby"}, "maintable");
    expectRefused("configBtn", "mainTable", {11204});
    page().mainTable->selectRow(0);
    inDialog<TOnuLTInfaStatusItem>([](TOnuLTInfaStatusItem& dialog) {
        auto* memo = dialog.findChild<QPlainTextEdit*>(QStringLiteral("descMemo"));
        EXPECT_EQ(stateOf(*memo).text, "Lobby");
        memo->insertPlainText(QStringLiteral("é").repeated(45));
        EXPECT_EQ(memo->toPlainText().size(), 50);
        memo->insertPlainText(QStringLiteral("y"));
        EXPECT_EQ(memo->toPlainText(), QStringLiteral("é").repeated(45) + QStringLiteral("Lobby"));
        EXPECT_EQ(memo->textCursor().position(), 45) << "the cursor stays";
        memo->clear();
        memo->insertPlainText(QStringLiteral("Hall"));
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(), Texts{"vgonuvoipDesc@1.2.5.4=Hall"});
    takeRead();
    expectWrittenAndRead();
    const std::string longer(60, 'd');
    readRow("4", {"2", "1", longer}, "maintable");
    inDialog<TOnuLTInfaStatusItem>([&](TOnuLTInfaStatusItem& dialog) {
        auto* memo = dialog.findChild<QPlainTextEdit*>(QStringLiteral("descMemo"));
        EXPECT_EQ(stateOf(*memo).text, longer) << "what the ONU holds is shown whole";
        memo->insertPlainText(QStringLiteral("x"));
        EXPECT_EQ(stateOf(*memo).text, longer);
    });
}

class AttributeTest : public test::PageTest<TOnuLTAttribute, 811> {};

TEST_F(AttributeTest, ShowsModesInWordsAndTenthsOfVolts) {
    EXPECT_TRUE(enabled("refreshBtn"));
    EXPECT_EQ(page().configBtn, nullptr);
    struct Case {
        Texts values;
        std::string mode;
        std::string volts;
    };
    const std::string active = messageText(11177);
    for (const Case& known :
         {Case{{"1", "2", "220", "123"}, active, "12.3"},
          Case{{"9", "2", "220", "48"}, active, "4.8"}, Case{{"9", "2", "220"}, active, "4.8"},
          Case{{"2", "2", "220", "5", "x"}, messageText(3173), "0.5"},
          Case{{"2", "2", "220", "-5"}, messageText(3173), "-0.5"},
          Case{{"2", "2", "220", "-123"}, messageText(3173), "-12.3"},
          Case{{"2", "2", "220", ""}, messageText(3173), ""},
          Case{{"2", "2", "220", "150"}, messageText(3173), "15.0"}}) {
        read(known.values, "group1");
        EXPECT_EQ(text("modeComb"), known.mode);
        EXPECT_EQ(text("workEdit"), known.volts);
    }
    EXPECT_EQ(text("gateEdit") + " " + text("inEdit"), "2 220");
    EXPECT_EQ(label("workEditUnit"), "V");
}

class SelfSetTest : public test::PageTest<TOnuLTSelfSet, 813> {
protected:
    Texts shownTexts() {
        return {text("hourEdit"), text("minuteEdit"), text("secondsEdit"), text("gateEdit")};
    }
};

TEST_F(SelfSetTest, SplitsTheTimeAndPointsTheThreshold) {
    read({"3661", "5", "1"}, "group1");
    EXPECT_EQ(shownTexts(), (Texts{"1", "1", "1", "0.5"}));
    read({"86399", "150"}, "group1", 0);
    EXPECT_EQ(shownTexts(), (Texts{"1", "1", "1", "0.5"})) << "too short";
    EXPECT_FALSE(enabled("configBtn"));
    read({"86399", "150", "1"}, "group1");
    EXPECT_EQ(shownTexts(), (Texts{"23", "59", "59", "15.0"}));
    EXPECT_TRUE(enabled("configBtn"));
    failRead();
    EXPECT_FALSE(enabled("configBtn"));
    read({"", "", "1"}, "group1");
    EXPECT_EQ(shownTexts(), Texts(4)) << "the agent has neither";
}

TEST_F(SelfSetTest, ChecksInOrder) {
    read({"0", "0", "1"}, "group1");
    struct Case {
        const char* control;
        const char* bad;
        Box refusal;
        const char* good;
    };
    const Box volts{11068, {"0", "15"}};
    setText("minuteEdit", "60");
    setText("gateEdit", "99");
    for (const Case& known :
         {Case{"hourEdit", "24", {11068, {"0", "23"}}, "23"},
          Case{"hourEdit", "", {11068, {"0", "23"}}, "23"},
          Case{"minuteEdit", "60", {11068, {"0", "59"}}, "59"},
          Case{"secondsEdit", "60", {11068, {"0", "59"}}, "59"},
          Case{"gateEdit", "15.01", volts, "x"}, Case{"gateEdit", "-1", volts, "x"},
          Case{"gateEdit", "x", volts, "x"}, Case{"gateEdit", "1 2", volts, "x"},
          Case{"gateEdit", "nan", volts, "x"}, Case{"gateEdit", "", {}, "x"},
          Case{"gateEdit", "  ", {}, "x"}}) {
        setText(known.control, known.bad);
        expectRefused("configBtn", known.control, known.refusal);
        setText(known.control, known.good);
    }
}

TEST_F(SelfSetTest, WritesSecondsAndTenths) {
    struct Case {
        const char* typed;
        const char* written;
    };
    for (const Case& known : {Case{"12.34", "123"}, Case{"15", "150"}, Case{"8.2", "82"},
                              Case{"0", "0"}, Case{" 0.19 ", "1"}}) {
        read({"86399", "0", "1"}, "group1");
        setText("gateEdit", known.typed);
        test::click(*page().configBtn);
        EXPECT_EQ(takeWrite(), (Texts{"vgonustarttime@1.2.5=86399",
                                      std::string("vgonuvalarmgate@1.2.5=") + known.written,
                                      "valarmRowStatus@1.2.5=4"}));
        expectWrittenAndRead();
    }
}

} // namespace
} // namespace onudesk
