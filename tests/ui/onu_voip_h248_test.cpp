// SPDX-License-Identifier: MIT
//
// The voice module under H.248.
#include "pages/voip/onu_voip_h248.h"
#include "pages/voip/onu_voip_h248_rtp.h"

#include "voice_test.h"

#include <QPlainTextEdit>

namespace onudesk {
namespace {

using test::Box;
using test::Texts;

template <typename Page, std::int32_t Item>
class H248Test : public test::VoiceTest<Page, Item> {
protected:
    // Delete and Config with their buttons as they are.
    void expectGuarded() {
        for (const char* button : {"configBtn", "deleteBtn"}) {
            test::click(this->template control<QPushButton>(button));
            this->expectBox({3298, {"H.248"}});
            EXPECT_EQ(this->host.pending(), 0U);
            EXPECT_TRUE(this->enabled(button));
        }
    }
    void expectEmptyOnlyTakesFocus(std::initializer_list<const char*> edits) {
        for (const char* edit : edits) {
            this->setText(edit, "");
            this->expectRefused("configBtn", edit, {});
            this->setText(edit, "1");
        }
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
    Texts shownTexts() { return H248Test::shownTexts(names_); }
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
    const Box number{11068, {"0", "65535"}};
    const Box port{11068, {"1", "65535"}};
    expectChecks({{"mgEdit", {"65536"}, number, "0"},
                  {"mgcIpEdit", {"1.2.3"}, {11069}, "1.2.3.4"},
                  {"mgcPortEdit", {"0", "65536"}, port, "1"},
                  {"backIpEdit", {"a.b.c.d"}, {11069}, "1.2.3.4"},
                  {"backPortEdit", {"0", "65536"}, port, "1"},
                  {"cycleEdit", {"65536"}, number, "0"},
                  {"countEdit", {"256"}, {11068, {"0", "255"}}, "0"}});
    expectEmptyOnlyTakesFocus({"countEdit", "cycleEdit", "backPortEdit", "mgcPortEdit", "mgEdit"});
    expectTaken({{"mgEdit", {"0", "65535"}},
                 {"mgcPortEdit", {"1", "65535"}},
                 {"backPortEdit", {"1", "65535"}},
                 {"cycleEdit", {"0", "65535"}},
                 {"countEdit", {"0", "255"}}});
}

TEST_F(ParametersTest, NamesEveryCode) {
    const Texts values = reply("1", "1", "0");
    const std::string unsupported = messageText(3185);
    expectShown(values, 5, "activeEdit",
                {{"0", "backup"}, {"1", "primary"}, {"255", unsupported}, {"2", unsupported}});
    expectShown(values, 6, "regComb",
                {{"2", "Device"}, {"0", "IP"}, {"1", "Domain"}, {"3", "Domain"}});
    expectShown(values, 8, "modeComb", {{"0", messageText(11008)}, {"1", messageText(11007)}});
    expectShown(values, 12, "statusEdit",
                {{"0", "registering"},
                 {"1", "registered"},
                 {"2", "IAD fault"},
                 {"3", "logout"},
                 {"4", "rebooting"},
                 {"255", unsupported}});
}

TEST_F(ParametersTest, LimitsTyping) {
    for (const char* edit : {"mgEdit", "mgcPortEdit", "backPortEdit"}) {
        test::type(control<QLineEdit>(edit), QStringLiteral("a123456"));
        EXPECT_EQ(text(edit), "12345") << edit;
    }
    test::type(control<QPlainTextEdit>("midMemo"), QString(70, u'm'));
    EXPECT_EQ(text("midMemo"), std::string(64, 'm'));
    EXPECT_TRUE(control<QLineEdit>("activeEdit").isReadOnly());
    EXPECT_TRUE(control<QLineEdit>("statusEdit").isReadOnly());
}

class RtpTest : public H248Test<TOnuVoipH248Rtp, 825> {
protected:
    Texts shownTexts() {
        return H248Test::shownTexts(
            {"tidEdit", "prefixEdit", "beginEdit", "enableComb", "lenEdit", "nameEdit"});
    }
};

TEST_F(RtpTest, SipGuardsBeforeTheSelectionIsAskedFor) {
    read({"", "", "", "", "", "", "", "1"}, "maintable");
    EXPECT_EQ(text("enableComb"), "");
    expectGuarded();
}

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
    const Box byte{11068, {"0", "255"}};
    const Box prefix{3271, {}, 11054, platform::PromptIcon::none};
    expectChecks({{"tidEdit", {"256"}, byte, "0"},
                  {"prefixEdit", {"ab1", "g", " a", "é"}, prefix, ""},
                  {"beginEdit", {"4294967296"}, {11068, {"0", "4294967295"}}, "0"},
                  {"lenEdit", {"256"}, byte, "0"}});
    expectEmptyOnlyTakesFocus({"lenEdit", "beginEdit", "tidEdit"});
    expectTaken({{"tidEdit", {"0", "255"}},
                 {"prefixEdit", {"ABcf", "", "abcdefABCDEFabcd"}},
                 {"beginEdit", {"0", "4294967295"}},
                 {"lenEdit", {"0", "255"}}});
}

TEST_F(RtpTest, LimitsTyping) {
    const std::pair<const char*, std::string> limits[] = {
        {"tidEdit", "123"}, {"beginEdit", "1234567890"}, {"lenEdit", "12345"}};
    for (const auto& [edit, shown] : limits) {
        test::type(control<QLineEdit>(edit), QStringLiteral("x1234567890123"));
        EXPECT_EQ(text(edit), shown) << edit;
    }
    test::type(control<QLineEdit>("prefixEdit"), QString(20, u'A'));
    EXPECT_EQ(text("prefixEdit"), std::string(16, 'A'));
    EXPECT_TRUE(control<QLineEdit>("nameEdit").isReadOnly());
}

} // namespace
} // namespace onudesk
