// SPDX-License-Identifier: MIT
//
// Fax and modem, parameters and identity of the voice module.
#include "pages/voip/onu_voip.h"
#include "pages/voip/onu_voip_fax_modem.h"
#include "pages/voip/onu_voip_iad.h"

#include "voice_test.h"

namespace onudesk {
namespace {

using test::Box;
using test::Texts;

class FaxModemTest : public test::PageTest<TOnuVoipFaxModem, 827> {
protected:
    Texts shownTexts() { return {text("enableComb"), text("modeComb")}; }
};

TEST_F(FaxModemTest, UnknownClearsAndOtherCodesKeep) {
    struct Reply {
        Texts values;
        Texts shown;
    };
    const std::string on = messageText(11007);
    const std::string off = messageText(11008);
    const Reply replies[] = {
        {{"1", "1", "1"}, {on, "auto"}},
        {{"2", "7", "1"}, {on, "auto"}},
        {{"255", "1"}, {on, "auto"}}, // too short
        {{"255", "0", "1"}, {"", "negotiation"}},
        {{"3", "", "1"}, {"", "negotiation"}},
        {{"0", "255", "1"}, {off, ""}},
    };
    EXPECT_EQ(control<QComboBox>("enableComb").count(), 2);
    for (const Reply& each : replies) {
        read(each.values, "maintable");
        EXPECT_EQ(shownTexts(), each.shown) << each.values[0] << " " << each.values[1];
    }
}

TEST_F(FaxModemTest, ConfigFollowsTheFlagOfTheLastReply) {
    EXPECT_FALSE(enabled("configBtn"));
    read({}, "any", 1);
    EXPECT_TRUE(enabled("configBtn"));
    read({"1", "1", "1"}, "maintable", 0);
    EXPECT_FALSE(enabled("configBtn"));
    read({"1", "1", "1"}, "maintable");
    failRead();
    EXPECT_FALSE(enabled("configBtn"));
    EXPECT_FALSE(enabled("refreshBtn"));
    page().refreshBtnClick();
    EXPECT_EQ(takeRead(), ".1.2.5");
    EXPECT_EQ(text("modeComb"), "auto") << "nothing is emptied";
}

TEST_F(FaxModemTest, WritesBothCodesEvenWithoutSelection) {
    read({"0", "0", "1"}, "maintable");
    selectByText(control<QComboBox>("enableComb"), messageText(11007));
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), (Texts{"voiceT38Enable@1.2.5=1", "voiceFaxModemControl@1.2.5=0",
                                  "faxModemRowStatus@1.2.5=4"}));
    EXPECT_FALSE(enabled("configBtn"));
    expectWrittenAndRead();
    read({"255", "255", "1"}, "maintable");
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), (Texts{"voiceT38Enable@1.2.5=", "voiceFaxModemControl@1.2.5=",
                                  "faxModemRowStatus@1.2.5=4"}));
}

class VoipTest : public test::VoiceTest<TOnuVoip, 823> {
protected:
    const Texts sample_{"0",      "10.0.0.5", "255.0.0.0", "10.0.0.1", "2", "me",
                        "secret", "1",        "100",       "0",        "7", "1"};
    const Texts names_{"modeComb",    "ipEdit",    "maskEdit",     "getwayEdit",
                       "poeModeComb", "nameEdit",  "passwordEdit", "flagComb",
                       "cvlanEdit",   "svlanEdit", "priorityEdit"};

    Texts shownTexts() { return VoiceTest::shownTexts(names_); }
    void chooseMode(const char* mode) { choose(*page().modeComb, mode); }
    void tick(const char* box) { control<QCheckBox>(box).setChecked(true); }
};

TEST_F(VoipTest, ShowsWhatCameAndKeepsWhatItDoesNotKnow) {
    EXPECT_FALSE(enabled("deleteBtn"));
    read(sample_, "maintable");
    const Texts shown{"static IP", "10.0.0.5", "255.0.0.0", "10.0.0.1", "PAP", "me",
                      "secret",    "tag",      "100",       "0",        "7"};
    EXPECT_EQ(shownTexts(), shown);
    EXPECT_TRUE(enabled("deleteBtn"));
    EXPECT_FALSE(control<QCheckBox>("flagCheckb").isChecked());
    page().refreshBtnClick();
    EXPECT_EQ(takeRead(), ".1.2.5");
    EXPECT_FALSE(enabled("deleteBtn"));
    read(Texts(11, "1"), "maintable", 0);
    EXPECT_EQ(shownTexts(), shown) << "eleven values are too few";
    EXPECT_FALSE(enabled("configBtn") || enabled("deleteBtn"));
    read({"7", "", "", "", "3", "", "", "9", "", "", "", ""}, "maintable");
    EXPECT_EQ(shownTexts(), (Texts{"static IP", "", "", "", "PAP", "", "", "tag", "", "", ""}));
    failRead();
    EXPECT_FALSE(enabled("configBtn") || enabled("deleteBtn"));
}

TEST_F(VoipTest, TheModeSaysWhatCanBeEdited) {
    struct Mode {
        const char* code;
        bool address;
        bool account;
    };
    for (const Mode& mode : {Mode{"2", false, true},
                             {"7", false, true},
                             {"0", true, false},
                             {"", true, false},
                             {"1", false, false}}) {
        Texts values = sample_;
        values[0] = mode.code;
        read(values, "maintable");
        for (const char* name : {"ipEdit", "maskEdit", "getwayEdit"}) {
            EXPECT_EQ(enabled(name), mode.address) << mode.code;
        }
        for (const char* name : {"poeModeComb", "nameEdit", "passwordEdit"}) {
            EXPECT_EQ(enabled(name), mode.account) << mode.code;
        }
    }
    chooseMode("PPPoE");
    EXPECT_TRUE(enabled("nameEdit"));
    EXPECT_FALSE(enabled("ipEdit"));
}

TEST_F(VoipTest, WritesTheModesFieldsAndWhatIsTicked) {
    read(sample_, "maintable");
    EXPECT_EQ(
        written(),
        (Texts{"voipGlobalParamMode@1.2.5=0", "voipGlobalParamIpAddr@1.2.5=10.0.0.5",
               "voipGlobalParamIpMask@1.2.5=255.0.0.0", "voipGlobalParamDefaultGW@1.2.5=10.0.0.1",
               "voipGlobalParamRowStatus@1.2.5=4"}));
    EXPECT_TRUE(enabled("deleteBtn"));
    expectWrittenAndRead();
    setText("ipEdit", "not an address");
    chooseMode("PPPoE");
    EXPECT_EQ(written(),
              (Texts{"voipGlobalParamMode@1.2.5=2", "voipGlobalParamPPPoEmode@1.2.5=2",
                     "voipGlobalParamPPPoEname@1.2.5=me", "voipGlobalParamPPPoEpwd@1.2.5=secret",
                     "voipGlobalParamRowStatus@1.2.5=4"}));
    chooseMode("DHCP");
    for (const char* box : {"flagCheckb", "cvlanCheckb", "svlanCheckb", "priorityCheckb"}) {
        tick(box);
    }
    setText("svlanEdit", "");
    EXPECT_EQ(written(),
              (Texts{"voipGlobalParamMode@1.2.5=1", "voipGlobalParamTaggedFlag@1.2.5=1",
                     "voipGlobalParamVoiceCvlan@1.2.5=100", "voipGlobalParamVoiceSvlan@1.2.5=",
                     "voipGlobalParamVoicePriority@1.2.5=7", "voipGlobalParamRowStatus@1.2.5=4"}));
}

TEST_F(VoipTest, ChecksInOrderWhatWouldBeWritten) {
    read(sample_, "maintable");
    for (const char* box : {"cvlanCheckb", "svlanCheckb", "priorityCheckb"}) {
        tick(box);
    }
    expectChecks({{"ipEdit", {"", "1.2.3", "1234.5.6.7"}, {11069}, "1.2.3.4"},
                  {"maskEdit", {"x.0.0.0.0"}, {11069}, "0.0.0.0"},
                  {"getwayEdit", {""}, {11069}, "255.255.255.255"},
                  {"cvlanEdit", {"", "0", "4095"}, {11068, {"1", "4094"}}, "1"},
                  {"svlanEdit", {"4095"}, {11068, {"0", "4094"}}, ""},
                  {"priorityEdit", {"", "0", "9"}, {11068, {"1", "8"}}, "1"}});
    expectTaken({{"cvlanEdit", {"1", "4094"}},
                 {"svlanEdit", {"", "0", "4094"}},
                 {"priorityEdit", {"1", "8"}}});
}

TEST_F(VoipTest, NamesEveryCode) {
    expectShown(sample_, 0, "modeComb", {{"2", "PPPoE"}, {"1", "DHCP"}, {"0", "static IP"}});
    expectShown(sample_, 4, "poeModeComb", {{"0", "AUTO"}, {"1", "CHAP"}, {"2", "PAP"}});
    expectShown(sample_, 7, "flagComb",
                {{"0", "trasparent"}, {"1", "tag"}, {"2", "vlan-stacking"}});
}

TEST_F(VoipTest, WritesEmptyCodesOfWhatIsNotChosen) {
    tick("flagCheckb");
    for (const char* edit : {"ipEdit", "maskEdit", "getwayEdit"}) {
        setText(edit, "1.2.3.4");
    }
    const Texts bindings = written();
    EXPECT_EQ(bindings.at(0), "voipGlobalParamMode@1.2.5=");
    EXPECT_EQ(bindings.at(4), "voipGlobalParamPPPoEmode@1.2.5=");
    EXPECT_EQ(bindings.at(7), "voipGlobalParamTaggedFlag@1.2.5=");
}

TEST_F(VoipTest, DeleteWritesTheRowStatusUnasked) {
    read(sample_, "maintable");
    setText("ipEdit", "");
    expectDelete("voipGlobalParamRowStatus@1.2.5=6");
}

TEST_F(VoipTest, LimitsTyping) {
    test::type(control<QLineEdit>("cvlanEdit"), QStringLiteral("1x2"));
    EXPECT_EQ(text("cvlanEdit"), "12");
    read(sample_, "maintable");
    chooseMode("PPPoE");
    setText("nameEdit", "");
    test::type(control<QLineEdit>("nameEdit"), QString(40, u'n'));
    EXPECT_EQ(text("nameEdit"), std::string(32, 'n'));
}

class IadTest : public test::VoiceTest<TOnuVoipIAD, 822> {
protected:
    Texts shownTexts() {
        return VoiceTest::shownTexts({"macEdit", "typeEdit", "softEdt", "timeEdit", "portEdit"});
    }
};

TEST_F(IadTest, ShowsMacAndProtocolAsReadersKnowThem) {
    EXPECT_TRUE(enabled("refreshBtn"));
    EXPECT_FALSE(page().Timer1->isActive());
    for (const char* name : {"macEdit", "typeEdit", "softEdt", "timeEdit", "portEdit"}) {
        EXPECT_TRUE(control<QLineEdit>(name).isReadOnly()) << name;
    }
    read({"0011AABBCCDD", "0", "V1", "today", "2"}, "maintable", 0);
    EXPECT_EQ(shownTexts(), (Texts{"00:11:AA:BB:CC:DD", "H.248", "V1", "today", "2"}));
    read({"", "1", "", "", ""}, "maintable");
    EXPECT_EQ(shownTexts(), (Texts{"", "SIP", "", "", ""}));
    read({"ABC", "3", "V2", "", "9"}, "maintable");
    EXPECT_EQ(shownTexts(), (Texts{"ABC", "SIP", "V2", "", "9"}));
    read({"ff", "255", "V3", "now"}, "maintable");
    EXPECT_EQ(text("softEdt"), "V2") << "four values are too few";
    page().refreshBtnClick();
    EXPECT_EQ(takeRead(), ".1.2.5");
    EXPECT_EQ(shownTexts(), Texts(5));
    EXPECT_FALSE(enabled("refreshBtn"));
    failRead();
    read({"ABCD", "3", "", "", ""}, "maintable");
    EXPECT_EQ(shownTexts(), (Texts{"AB:CD", "", "", "", ""}));
    read({"", "255", "", "", ""}, "maintable");
    EXPECT_EQ(text("typeEdit"), messageText(3185));
}

} // namespace
} // namespace onudesk
