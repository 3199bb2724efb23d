// SPDX-License-Identifier: MIT
//
// Alarm switch, diagnosis and thresholds of the optical module.
#include "pages/optical/onu_alarm.h"
#include "pages/optical/onu_diagnosis.h"
#include "pages/optical/onu_threshold.h"

#include "page_test.h"

namespace onudesk {
namespace {

using test::Box;
using test::Texts;

class AlarmTest : public test::PageTest<TOnuAlarm, 665> {};

TEST_F(AlarmTest, KnownCodesChooseAndEverythingElseKeepsTheChoice) {
    EXPECT_FALSE(enabled("configBtn") || enabled("refreshBtn"));
    read({"2"}, "maintable");
    EXPECT_EQ(text("enableComb"), messageText(11007));
    read({"1", "2"}, "any");
    EXPECT_EQ(text("enableComb"), messageText(11008));
    EXPECT_TRUE(enabled("configBtn"));
    for (const Texts& values : {Texts{"0"}, Texts{"3"}, Texts{""}, Texts{}}) {
        read(values, "maintable", 0);
        EXPECT_EQ(text("enableComb"), messageText(11008));
        EXPECT_FALSE(enabled("configBtn")) << "the flag of any reply counts";
    }
    read({}, "maintable");
    EXPECT_TRUE(enabled("configBtn"));
    failRead();
    EXPECT_FALSE(enabled("configBtn"));
}

TEST_F(AlarmTest, WritesTheCodeAndNothingWithoutChoice) {
    read({}, "maintable");
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), Texts{"onuOpmAlarmSwitch@1.2.5="});
    read({"1"}, "maintable");
    selectByText(control<QComboBox>("enableComb"), messageText(11007));
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), Texts{"onuOpmAlarmSwitch@1.2.5=2"});
    EXPECT_FALSE(enabled("configBtn") || enabled("refreshBtn"));
    expectWrittenAndRead();
}

class DiagnosisTest : public test::PageTest<TOnuDiagnosis, 666> {
protected:
    Texts shown() {
        return {text("tempEdit"), text("powerEdit"), text("electricEdit"), text("outputEdt"),
                text("inputEdt")};
    }
    const Texts readings{"41.3", "3.28", "22", "2.10", "-17.8"};
    const Texts none = Texts(5);
};

TEST_F(DiagnosisTest, ShowsReadingsAsTheyComeUnlessThereAreNone) {
    struct Case {
        const char* availability;
        int notice;
    };
    EXPECT_TRUE(enabled("refreshBtn"));
    EXPECT_FALSE(page().Timer1->isActive());
    EXPECT_EQ(page().configBtn, nullptr);
    EXPECT_TRUE(control<QLineEdit>("tempEdit").isReadOnly());
    for (const Case& known : {Case{"0", 0}, Case{"1", 11246}, Case{"", 0}, Case{"2", 11303},
                              Case{"01", 0}, Case{"3", 0}}) {
        Texts values = readings;
        values.emplace_back(known.availability);
        read(values, "maintable", 0);
        expectBox({known.notice});
        EXPECT_EQ(shown(), known.notice == 0 ? readings : none) << known.availability;
    }
}

TEST_F(DiagnosisTest, RefreshEmptiesAndShortOrFailedReadsShowNothing) {
    Texts values = readings;
    values.emplace_back("0");
    read(values, "maintable");
    read({"1", "2", "3", "4", "5"}, "maintable");
    failRead();
    EXPECT_EQ(shown(), readings);
    registerWriteRoute(session, 666, page().replyHandle());
    ASSERT_TRUE(host.replyWrite(666, {.status = 1}));
    EXPECT_EQ(host.pending(), 0U) << "the page wrote nothing: the reply is none of its business";
    EXPECT_EQ(shown(), readings);
    test::click(*page().refreshBtn);
    EXPECT_EQ(takeRead(), ".1.2.5");
    EXPECT_EQ(shown(), none);
    EXPECT_FALSE(enabled("refreshBtn"));
    read(values, "maintable");
    EXPECT_EQ(shown(), readings);
    test::elapse(page());
    EXPECT_TRUE(enabled("refreshBtn"));
}

class ThresholdTest : public test::PageTest<TOnuThreshold, 667> {
protected:
    // Twenty thresholds, the row's state and the module.
    static Texts reply(const std::string& state, const std::string& first = "75") {
        Texts values{first, "-10", "70", "-5", "3.60", "3.0",    "3.5", "3.1", "90", "2",   "80",
                     "4",   "1",   "1",  "1",  "1",    "0.0010", "1",   "1",   "1",  state, "PX20"};
        return values;
    }
    void readOnu(const std::string& state, const char* onu = "1.2.5",
                 const std::string& first = "75") {
        readRow(onu, reply(state, first), "maintable");
    }
    void tick(const char* box, bool on = true) { control<QCheckBox>(box).setChecked(on); }
    // Ticks one row and writes its High edit.
    void writeTemperature() {
        tick("tempHACheckBox");
        setText("tempHAEdit", "60");
        setText("tempLAEdit", "");
        test::click(*page().configBtn);
        EXPECT_EQ(takeWrite(), Texts{"TempHighAlarm@1.2.5=60"});
    }
    void answerWrite(std::uint32_t status = 1) {
        ASSERT_TRUE(host.replyWrite(667, {.status = status}));
        EXPECT_EQ(takeRead(), ".1.2.5");
        EXPECT_FALSE(enabled("configBtn") || enabled("refreshBtn"));
        EXPECT_TRUE(desk.takeBoxes().empty()) << "the write itself is not reported";
    }
    void expectState(int stateId) {
        expectBox({11002,
                   {},
                   11001,
                   platform::PromptIcon::warning,
                   messageText(11046) + "!\n" + messageText(stateId)});
    }
};

TEST_F(ThresholdTest, WritesWhatIsTypedInTickedRowsInTheirOrder) {
    readOnu("1");
    struct Case {
        const char* box;
        const char* high;
        const char* low;
        const char* object; // up to "High"
        const char* level;
    };
    const Case rows[] = {
        {"tempHACheckBox", "tempHAEdit", "tempLAEdit", "Temp", "Alarm"},
        {"tempHWCheckBox", "tempHWEdit", "tempLWEdit", "Temp", "Warning"},
        {"voltageHACheckBox", "voltageHAEdit", "voltageLAEdit", "Vcc", "Alarm"},
        {"voltageHWCheckBox", "voltageHWEdit", "voltageLWEdit", "Vcc", "Warning"},
        {"electricHACheckBox", "electricHAEdit", "electricLAEdit", "Bias", "Alarm"},
        {"electricHWCheckBox", "electricHWEdit", "electricLWEdit", "Bias", "Warning"},
        {"spHACheckBox", "spHAEdit", "spLAEdit", "TXPower", "Alarm"},
        {"spHWCheckBox", "spHWEdit", "spLWEdit", "TXPower", "Warning"},
        {"rpHACheckBox", "rpHAEdit", "rpLAEdit", "RXPower", "Alarm"},
        {"rpHWCheckBox", "rpHWEdit", "rpLWEdit", "RXPower", "Warning"},
    };
    Texts expected;
    int number = 0;
    for (const Case& row : rows) {
        tick(row.box);
        for (const bool high : {true, false}) {
            const std::string value = std::to_string(++number);
            setText(high ? row.high : row.low, value);
            expected.push_back(std::string(row.object) + (high ? "High" : "Low") + row.level +
                               "@1.2.5=" + value);
        }
    }
    tick("voltageHACheckBox", false);
    expected.erase(expected.begin() + 4, expected.begin() + 6);
    setText("tempHWEdit", "  ");
    expected.erase(expected.begin() + 2);
    setText("tempLWEdit", " 10 ");
    expected[2] = "TempLowWarning@1.2.5= 10 ";
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), expected);
    EXPECT_FALSE(enabled("configBtn") || enabled("refreshBtn"));
}

TEST_F(ThresholdTest, NothingToWriteLeavesRefreshToTheTimer) {
    readOnu("1");
    test::elapse(page());
    test::click(*page().configBtn);
    expectBox({11304});
    tick("tempHWCheckBox");
    tick("rpHWCheckBox");
    for (const char* edit : {"tempHWEdit", "tempLWEdit", "rpHWEdit", "rpLWEdit"}) {
        setText(edit, " ");
    }
    test::click(*page().configBtn);
    expectBox({11304});
    EXPECT_EQ(host.pending(), 0U);
    EXPECT_TRUE(enabled("configBtn"));
    EXPECT_FALSE(enabled("refreshBtn"));
    test::elapse(page());
    EXPECT_TRUE(enabled("refreshBtn"));
    setText("rpLWEdit", "-30");
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), Texts{"RXPowerLowWarning@1.2.5=-30"}) << "no row was asked for";
}

TEST_F(ThresholdTest, ConfigMarksTheOnuWhetherOrNotItSends) {
    EXPECT_FALSE(enabled("configBtn") || enabled("refreshBtn"));
    EXPECT_TRUE(page().Timer1->isActive());
    readOnu("1");
    test::click(*page().configBtn);
    expectBox({11304});
    readOnu("1");
    expectState(11293);
    readOnu("0");
    EXPECT_EQ(host.pending(), 0U) << "there was no write to repeat";
    host.goAway();
    tick("tempHACheckBox");
    test::click(*page().configBtn);
    readOnu("0");
    expectBox({11002, {}, 11001, platform::PromptIcon::warning, messageText(11045)});
}

TEST_F(ThresholdTest, RowsSayWhatTheyAreAboutAndTakeSoMuch) {
    struct Row {
        const char* control;
        const char* caption;
        std::size_t characters;
    };
    const Row rows[] = {
        {"temp", "Temp Alarm(-128~128: ℃)|Temp Warn(-128~128: ℃)", 4},
        {"voltage", "Voltage Alarm(0~6.55: V )|Voltage Warn(0~6.55: V )", 4},
        {"electric", "Electric Alarm(0~131: mA)|Electric Warn(0~131: mA)", 3},
        {"sp", "Send Power Alarm(-40~8.1647: dbm)|Send Power Warn(-40~8.1647: dbm)", 6},
        {"rp", "Receive Power Alarm(-40~8.1647: dbm)|Receive Power Warn(-40~8.1647: dbm)", 6},
    };
    for (const Row& row : rows) {
        const std::string name = row.control;
        EXPECT_EQ(bytesOf(control<QCheckBox>(name + "HACheckBox").text()) + "|" +
                      bytesOf(control<QCheckBox>(name + "HWCheckBox").text()),
                  row.caption);
        for (const char* edit : {"HAEdit", "LAEdit", "HWEdit", "LWEdit"}) {
            test::type(control<QLineEdit>(name + edit), QStringLiteral("12345678"));
            EXPECT_EQ(text(name + edit).size(), row.characters) << name << edit;
        }
    }
    const auto left = [this](const QWidget& widget) { return widget.mapTo(&page(), QPoint()).x(); };
    for (const auto& [title, edit] :
         {std::pair("High", "rpHWEdit"), std::pair("Low", "rpLWEdit")}) {
        for (const auto* label : page().findChildren<QLabel*>()) {
            EXPECT_EQ(bytesOf(label->text()) == title,
                      left(*label) == left(control<QLineEdit>(edit)))
                << bytesOf(label->text());
        }
    }
}

TEST_F(ThresholdTest, PowersAreShownInDbmAndTheRestAsItComes) {
    struct Case {
        const char* power;
        const char* shown;
    };
    for (const Case& known :
         {Case{"6.5535", "8.1647"}, Case{"2", "3.0102"}, Case{"0.5", "-3.010"}, Case{"1", "0"},
          Case{"0", "-40"}, Case{"0.0", "-40"}, Case{" 0.0001 ", "-40"}, Case{"+10", "10"},
          Case{"10mW", ""}, Case{"-1", ""}, Case{"", ""}, Case{"x", ""}, Case{"inf", ""}}) {
        Texts values = reply("1", " 75.0");
        values[12] = known.power;
        values[19] = known.power;
        readRow("1.2.5", values, "maintable");
        EXPECT_EQ(text("spHAEdit"), known.shown) << known.power;
        EXPECT_EQ(text("rpLWEdit"), known.shown) << known.power;
        EXPECT_EQ(text("rpHAEdit"), "-30");
        EXPECT_EQ(text("tempHAEdit"), " 75.0");
        EXPECT_EQ(text("voltageHAEdit"), "3.60");
        EXPECT_EQ(text("electricLWEdit"), "4");
    }
    EXPECT_FALSE(control<QCheckBox>("spHACheckBox").isChecked()) << "replies tick nothing";
}

TEST_F(ThresholdTest, AnExistingRowIsToldWithItsStateAndShown) {
    struct Case {
        const char* state;
        int textId;
    };
    readOnu("1");
    for (const Case& known : {Case{"1", 11293}, Case{"6", 11298}, Case{" 2x", 11294},
                              Case{"", 11292}, Case{"x", 11292}, Case{"00", 11292}}) {
        writeTemperature();
        answerWrite(0);
        readOnu(known.state, "1.2.5", "61");
        expectState(known.textId);
        EXPECT_EQ(text("tempHAEdit"), "61");
        EXPECT_TRUE(enabled("configBtn"));
        readOnu(known.state);
        EXPECT_TRUE(desk.takeBoxes().empty()) << "told once";
        EXPECT_EQ(text("tempHAEdit"), "75");
    }
}

TEST_F(ThresholdTest, AMissingRowIsMadeOnceAndTheValuesAreWrittenAgainByConfig) {
    readOnu("0");
    EXPECT_TRUE(desk.takeBoxes().empty());
    EXPECT_EQ(text("tempHAEdit"), "75");
    writeTemperature();
    answerWrite(0);
    desk.whileOpen = [this] {
        EXPECT_EQ(takeWrite(), Texts{"ThresholdRowStatus@1.2.5=4"}) << "before the box";
    };
    readOnu("0");
    desk.whileOpen = {};
    expectBox({11002, {}, 11001, platform::PromptIcon::warning, messageText(11045)});
    EXPECT_EQ(text("tempHAEdit"), "60") << "this reply is not shown";
    EXPECT_FALSE(enabled("configBtn") || enabled("refreshBtn"));
    answerWrite();
    readOnu("1");
    EXPECT_TRUE(desk.takeBoxes().empty());
    EXPECT_EQ(text("tempHAEdit"), "75");
    EXPECT_EQ(host.pending(), 0U);
    writeTemperature();
    answerWrite();
    readOnu("1");
    expectState(11293);
}

TEST_F(ThresholdTest, RepliesThatComeWhileABoxIsOpenAreToldNoMore) {
    readOnu("1");
    for (const char* state : {"0", "1"}) {
        writeTemperature();
        answerWrite(0);
        desk.whileOpen = [this] {
            desk.whileOpen = {};
            readOnu("1", "1.2.5", "62");
        };
        readOnu(state);
        EXPECT_EQ(desk.takeBoxes().size(), 1U) << state;
        while (host.take()) {
        }
        readOnu("1");
    }
}

TEST_F(ThresholdTest, ASecondConfigBeforeTheReplyMakesTheRowWhateverIsTicked) {
    readOnu("1");
    writeTemperature();
    page().configBtn->setEnabled(true);
    tick("tempHACheckBox", false);
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), Texts{"ThresholdRowStatus@1.2.5=4"});
    EXPECT_TRUE(desk.takeBoxes().empty());
}

TEST_F(ThresholdTest, RepliesOfOtherOnusAndGroupsEndTheWaitButNotTheNotice) {
    readOnu("1");
    writeTemperature();
    readOnu("0", "1.2.6", "50");
    EXPECT_TRUE(desk.takeBoxes().empty());
    EXPECT_EQ(text("tempHAEdit"), "50");
    readOnu("0", "1.2.5", "51");
    EXPECT_EQ(text("tempHAEdit"), "51") << "no row is made any more";
    EXPECT_EQ(host.pending(), 0U);
    readOnu("3");
    expectState(11295);
    writeTemperature();
    readRow("1.2.5", reply("0"), "other");
    EXPECT_EQ(text("tempHAEdit"), "60");
    readOnu("0", "1.2.5", "52");
    EXPECT_EQ(text("tempHAEdit"), "52");
    EXPECT_EQ(host.pending(), 0U);
    readOnu("2");
    expectState(11294);
}

TEST_F(ThresholdTest, RepliesThatCannotBeUsedKeepTheWait) {
    readOnu("1");
    writeTemperature();
    Texts few = reply("0");
    few.pop_back();
    readRow("1.2.5", few, "maintable", 0);
    EXPECT_FALSE(enabled("configBtn"));
    failRead();
    EXPECT_FALSE(enabled("configBtn"));
    read(reply("0"), "maintable");
    ASSERT_TRUE(host.replyRead(
        667, {.values = reply("0"), .oids = Texts{"5"}, .status = 1, .resultText = "maintable"}));
    EXPECT_EQ(text("tempHAEdit"), "60");
    EXPECT_TRUE(enabled("configBtn"));
    readOnu("0");
    EXPECT_EQ(takeWrite(), Texts{"ThresholdRowStatus@1.2.5=4"});
    expectBox({11002, {}, 11001, platform::PromptIcon::warning, messageText(11045)});
}

TEST_F(ThresholdTest, AnIndexWithoutDotIsTheNumberItself) {
    session.OnuIndexText = "5";
    readOnu("1", "5");
    tick("tempHACheckBox");
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), (Texts{"TempHighAlarm@5=75", "TempLowAlarm@5=-10"}));
    readOnu("4", "5");
    expectState(11296);
}

} // namespace
} // namespace onudesk
