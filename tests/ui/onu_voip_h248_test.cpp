// SPDX-License-Identifier: MIT
//
// The voice module under H.248.
#include "pages/voip/onu_voip_h248.h"
#include "pages/voip/onu_voip_h248_rtp.h"

#include "page_test.h"

#include <QPlainTextEdit>

namespace onudesk {
namespace {

using test::Box;
using test::Texts;

struct Check {
    const char* edit;
    Texts bad;
    Box refusal;
    Texts good;
};

template <typename Page, std::int32_t Item>
class H248Test : public test::PageTest<Page, Item> {
protected:
    // Bad texts are refused one field after the other, good ones are written.
    void expectChecks(std::initializer_list<Check> checks) {
        for (const Check& each : checks) {
            this->setText(each.edit, each.bad.front());
        }
        for (const Check& each : checks) {
            for (const std::string& bad : each.bad) {
                this->setText(each.edit, bad);
                this->expectRefused("configBtn", each.edit, bad.empty() ? Box{} : each.refusal);
            }
            this->setText(each.edit, each.good.front());
        }
        for (const Check& each : checks) {
            for (const std::string& good : each.good) {
                this->setText(each.edit, good);
                EXPECT_FALSE(written().empty()) << each.edit << " " << good;
            }
        }
    }
    Texts written() {
        this->page().configBtn->setEnabled(true);
        test::click(*this->page().configBtn);
        return this->takeWrite();
    }
    void choose(QComboBox& combo, const std::string& text) {
        selectByText(combo, text);
        Q_EMIT combo.activated(combo.currentIndex());
    }
    // Delete and Config with their buttons as they are.
    void expectGuarded() {
        for (const char* button : {"configBtn", "deleteBtn"}) {
            test::click(this->template control<QPushButton>(button));
            this->expectBox({3298, {"H.248"}});
            EXPECT_EQ(this->host.pending(), 0U);
            EXPECT_TRUE(this->enabled(button));
        }
    }
    void expectDelete(const std::string& binding) {
        test::click(*this->page().deleteBtn);
        EXPECT_EQ(this->takeWrite(), Texts{binding});
        EXPECT_FALSE(this->enabled("configBtn") || this->enabled("refreshBtn"));
        EXPECT_TRUE(this->enabled("deleteBtn"));
        this->expectWrittenAndRead();
    }
};

class ParametersTest : public H248Test<TOnuVoipH248, 824> {
protected:
    const Texts names_{"mgEdit",       "mgcIpEdit",  "mgcPortEdit", "backIpEdit",
                       "backPortEdit", "activeEdit", "regComb",     "midMemo",
                       "modeComb",     "cycleEdit",  "countEdit",   "statusEdit"};

    static Texts reply(const std::string& registration, const std::string& state,
                       const std::string& protocol) {
        return {"2944", "10.0.0.1", "2945", "10.0.0.2", "2946", "1",   registration,
                "gw5",  "1",        "60",   "3",        "1",    state, protocol};
    }
    Texts shownTexts() {
        Texts texts;
        for (const std::string& name : names_) {
            texts.push_back(text(name.c_str()));
        }
        return texts;
    }
    void tickAll() {
        for (const char* box :
             {"backCheckb", "regCheckb", "modeCheckb", "cycleCheckb", "countCheckb"}) {
            control<QCheckBox>(box).setChecked(true);
        }
    }
};

TEST_F(ParametersTest, ShowsRepliesUnlessTheModuleRunsSip) {
    read(reply("1", "4", "255"), "maintable");
    Texts shown{"2944", "10.0.0.1",         "2945", "10.0.0.2", "2946",     "primary", "Domain",
                "gw5",  messageText(11007), "60",   "3",        "rebooting"};
    EXPECT_EQ(shownTexts(), shown);
    read(Texts(13, "0"), "maintable"); // too short, and no word on the protocol
    read(Texts{"1", "", "1", "", "1", "0", "0", "", "0", "0", "0", "1", "0", "1"}, "maintable", 0);
    EXPECT_EQ(shownTexts(), shown);
    EXPECT_FALSE(enabled("configBtn") || enabled("deleteBtn"));
    read(reply("9", "255", "0"), "maintable");
    shown.back() = messageText(3185);
    EXPECT_EQ(shownTexts(), shown);
    read(reply("9", "9", "0"), "maintable");
    EXPECT_EQ(shownTexts(), shown);
    failRead();
    EXPECT_FALSE(enabled("configBtn") || enabled("deleteBtn"));
}

TEST_F(ParametersTest, SipGuardsUntilAnotherReplySaysOtherwise) {
    read(reply("1", "1", "1"), "maintable");
    setText("mgEdit", "70000");
    expectGuarded();
    read(Texts(13, "0"), "maintable");
    expectGuarded();
    failRead();
    read(reply("1", "1", "255"), "maintable");
    expectDelete("H248ParamRowStatus@1.2.5=6");
    read(reply("1", "1", "2"), "maintable");
    expectGuarded();
}

TEST_F(ParametersTest, WritesWithoutAnyReplyBefore) {
    setText("mgEdit", "0");
    setText("mgcIpEdit", "1.1.1.1");
    setText("mgcPortEdit", "1");
    EXPECT_EQ(written(), (Texts{"H248ParamMGPortNo@1.2.5=0", "H248ParamMGCIp@1.2.5=1.1.1.1",
                                "H248ParamMgcPortNo@1.2.5=1", "H248ParamRowStatus@1.2.5=4"}));
}

TEST_F(ParametersTest, WritesWhatIsTickedAndTheMidOfADomain) {
    read(reply("0", "1", "0"), "maintable");
    EXPECT_FALSE(enabled("midMemo"));
    tickAll();
    Texts all{"H248ParamMGPortNo@1.2.5=2944",        "H248ParamMGCIp@1.2.5=10.0.0.1",
              "H248ParamMgcPortNo@1.2.5=2945",       "H248ParamBackupMgcIp@1.2.5=10.0.0.2",
              "H248ParamBackupMgcPortNo@1.2.5=2946", "H248ParamRegMode@1.2.5=0",
              "H248ParamHeartbeatMode@1.2.5=1",      "H248ParamHeartbeatCycle@1.2.5=60",
              "H248ParamHeartbeatCount@1.2.5=3",     "H248ParamRowStatus@1.2.5=4"};
    EXPECT_EQ(written(), all);
    choose(*page().regComb, "Domain");
    all[5] = "H248ParamRegMode@1.2.5=1";
    all.insert(all.begin() + 6, "H248ParamMID@1.2.5=gw5");
    EXPECT_EQ(written(), all);
    choose(*page().regComb, "Device");
    EXPECT_FALSE(enabled("midMemo"));
    read(reply("1", "1", "0"), "maintable");
    EXPECT_TRUE(enabled("midMemo"));
    control<QCheckBox>("regCheckb").setChecked(false);
    EXPECT_EQ(written().size(), 9U);
}

TEST_F(ParametersTest, ChecksInOrder) {
    read(reply("1", "1", "0"), "maintable");
    tickAll();
    setText("mgcIpEdit", ""); // the one empty text that is told
    expectRefused("configBtn", "mgcIpEdit", {11069});
    const Box port{11068, {"1", "65535"}};
    expectChecks({{"mgEdit", {"", "65536"}, {11068, {"0", "65535"}}, {"0", "65535"}},
                  {"mgcIpEdit", {"1.2.3"}, {11069}, {"1.2.3.4"}},
                  {"mgcPortEdit", {"", "0", "65536"}, port, {"1", "65535"}},
                  {"backIpEdit", {"a.b.c.d"}, {11069}, {"1.2.3.4"}},
                  {"backPortEdit", {"", "0", "65536"}, port, {"1", "65535"}},
                  {"cycleEdit", {"", "65536"}, {11068, {"0", "65535"}}, {"0", "65535"}},
                  {"countEdit", {"", "256"}, {11068, {"0", "255"}}, {"0", "255"}}});
}

TEST_F(ParametersTest, LimitsTyping) {
    test::type(control<QLineEdit>("mgcPortEdit"), QStringLiteral("a123456"));
    EXPECT_EQ(text("mgcPortEdit"), "12345");
    test::type(control<QPlainTextEdit>("midMemo"), QString(70, u'm'));
    EXPECT_EQ(text("midMemo"), std::string(64, 'm'));
}

class RtpTest : public H248Test<TOnuVoipH248Rtp, 825> {
protected:
    Texts shownTexts() {
        return {text("tidEdit"),    text("prefixEdit"), text("beginEdit"),
                text("enableComb"), text("lenEdit"),    text("nameEdit")};
    }
};

TEST_F(RtpTest, AlignmentCodesRunAgainstTheirTexts) {
    read({"8", "A", "100", "0", "6", "A000100", "1", "0"}, "maintable");
    EXPECT_EQ(shownTexts(), (Texts{"8", "A", "100", messageText(11007), "6", "A000100"}));
    EXPECT_TRUE(enabled("lenEdit"));
    read({"9", "", "0", "1", "7", "", "1", "255"}, "maintable");
    EXPECT_EQ(shownTexts(), (Texts{"9", "", "0", messageText(11008), "7", ""}));
    EXPECT_FALSE(enabled("lenEdit"));
    read({"8", "A", "100", "0", "6", "A000100", "1"}, "maintable"); // too short
    read({"8", "A", "100", "0", "6", "A000100", "1", "1"}, "maintable");
    EXPECT_EQ(text("tidEdit"), "9");
    expectGuarded();
    read({"8", "A", "100", "2", "6", "A000100", "1", "0"}, "maintable");
    EXPECT_EQ(text("enableComb"), messageText(11008));
    expectDelete("H248RTPRowStatus@1.2.5=6");
}

TEST_F(RtpTest, WritesTheLengthOnlyWhereItCounts) {
    read({"8", "A", "100", "0", "6", "A000100", "1", "0"}, "maintable");
    EXPECT_EQ(written(),
              (Texts{"NumOfRTP@1.2.5=8", "RTPPrefix@1.2.5=A", "RTPDigitBegin@1.2.5=100",
                     "RTPMode@1.2.5=0", "RTPDigitLen@1.2.5=6", "H248RTPRowStatus@1.2.5=4"}));
    setText("lenEdit", "999");
    setText("prefixEdit", "");
    choose(*page().enableComb, messageText(11008));
    EXPECT_EQ(written(), (Texts{"NumOfRTP@1.2.5=8", "RTPPrefix@1.2.5=", "RTPDigitBegin@1.2.5=100",
                                "RTPMode@1.2.5=1", "H248RTPRowStatus@1.2.5=4"}));
}

TEST_F(RtpTest, ChecksInOrderBehindTheSelection) {
    setText("tidEdit", "256");
    page().configBtn->setEnabled(true);
    test::click(*page().configBtn); // nothing is chosen yet
    expectBox({});
    EXPECT_EQ(host.pending(), 0U);
    choose(*page().enableComb, messageText(11007));
    const Box prefix{3271, {}, 11054, platform::PromptIcon::none};
    expectChecks(
        {{"tidEdit", {"", "256"}, {11068, {"0", "255"}}, {"0", "255"}},
         {"prefixEdit", {"ab1", "g", " a", "é"}, prefix, {"ABcf", "", "abcdefABCDEFabcd"}},
         {"beginEdit", {"", "4294967296"}, {11068, {"0", "4294967295"}}, {"0", "4294967295"}},
         {"lenEdit", {"", "256"}, {11068, {"0", "255"}}, {"0", "255"}}});
}

} // namespace
} // namespace onudesk
