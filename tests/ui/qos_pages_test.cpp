// SPDX-License-Identifier: MIT
//
// Classification, queue scheduling, the lists of COS values, and rates.
#include "pages/qos/onu_cls.h"
#include "pages/qos/onu_cos_queue_scheduler.h"
#include "pages/qos/onu_langress.h"
#include "pages/qos/onu_queue_scheduler.h"
#include "pages/qos/onu_rate.h"
#include "pages/qos/onu_repeat_cos_queue.h"

#include "page_test.h"

#include <QRadioButton>

namespace onudesk {
namespace {

using test::Box;
using test::Check;
using test::Texts;

class ClsTest : public test::PageTest<TOnuCls, 613> {
protected:
    const Texts matches_ = {"DestIp", "DestMac", "DestPort",   "Dot1qPriority",
                            "Dscp",   "EthType", "IpProtocol", "Ipv6Precedence",
                            "SrcIp",  "SrcMac",  "SrcPort",    "Vlan"};

    // The values of a slot, whose rule may be one for any traffic.
    static Texts slot(const std::string& precedence, const std::string& any = "0") {
        return {precedence, "6", "5", "0.0.0.0",  "000000000000", "0", "0", "46",
                "2048",     "0", "0", "10.0.0.9", "00259C0A1B2C", "0", "0", any,
                "0",        "4"};
    }
    static Texts emptySlot() {
        return {"0", "0", "0", "0.0.0.0", "000000000000", "0", "0", "0",
                "0", "0", "0", "0.0.0.0", "000000000000", "0", "0", "0",
                "0", "4"};
    }
    // Slot 1 has a rule by fields, slot 2 is empty.
    void readSlots() {
        readRow("1", slot("1"), "maingroup", 0);
        readRow("2", emptySlot(), "maingroup", 1);
    }
    void chooseRead(const char* port) {
        choose(*page().portComb, port);
        takeRead();
        readSlots();
    }
    void onRow(int row, const std::function<void(TOnuClsItem&)>& work) {
        inDialog<TOnuClsItem>(row, work);
    }
    static QCheckBox& box(TOnuClsItem& dialog, const std::string& name) {
        return in<QCheckBox>(dialog, name + "ChBox");
    }
    static void tick(TOnuClsItem& dialog, const std::string& name) {
        test::click(box(dialog, name));
    }
    // The names of the fields that can be ticked.
    Texts free(TOnuClsItem& dialog) const {
        Texts names;
        for (const std::string& name : matches_) {
            const bool enabled = box(dialog, name).isEnabled();
            EXPECT_EQ(in(dialog, name + "Edit").isEnabled(), enabled);
            if (enabled) {
                names.push_back(name);
            }
        }
        return names;
    }
};

TEST_F(ClsTest, ListsTheSlotsOfAPort) {
    Texts short17 = slot("1");
    short17.pop_back();
    readRow("1", short17, "maingroup");
    readRow("1", slot("1"), "rowstat");
    EXPECT_EQ(page().mainTable->rowCount(), 0);
    EXPECT_EQ(text("portComb"), "");
    readSlots();
    EXPECT_EQ(page().mainTable->cells(0),
              (Texts{"1", "1", "6", "5", "0.0.0.0", "00:00:00:00:00:00", "0", "0", "46", "0800",
                     "0", "0", "10.0.0.9", "00:25:9C:0A:1B:2C", "0", "0", "0"}));
    EXPECT_EQ(page().mainTable->cell(1, 9), "0000");
    EXPECT_TRUE(page().mainTable->isColumnHidden(16));
    EXPECT_EQ(page().portComb->count(), 5);
    EXPECT_EQ(text("portComb"), "1");
    EXPECT_EQ(host.pending(), 0U);
    EXPECT_FALSE(session.PortPending) << "the first read is for no port";
}

TEST_F(ClsTest, TheFlagSetsConfigOnlyAndDeleteIsAlwaysThere) {
    EXPECT_EQ(usable(), "deleteBtn");
    readRow("1", slot("1"), "maingroup", 0);
    EXPECT_EQ(usable(), "deleteBtn");
    readRow("2", slot("2"), "maingroup", 1);
    EXPECT_EQ(usable(), "cfgBtn deleteBtn");
    test::elapse(page());
    test::click(*page().refreshBtn);
    EXPECT_EQ(takeRead(), ".1.2.5.1");
    EXPECT_EQ(usable(), "deleteBtn");
    failRead();
    EXPECT_EQ(usable(), "cfgBtn deleteBtn");
}

TEST_F(ClsTest, OnlyEmptySlotsOfOnePortCanBeFilled) {
    readSlots();
    expectRefused("cfgBtn", "mainTable", {11204});
    page().mainTable->selectRow(0);
    expectRefused("cfgBtn", "mainTable", {11686});
    chooseRead("2");
    page().mainTable->selectRow(0);
    expectRefused("cfgBtn", "mainTable", {11686});
    onRow(1, [](TOnuClsItem& dialog) {
        EXPECT_EQ(textIn(dialog, "portEdit") + textIn(dialog, "clsEdit"), "22");
    });
    takeRead();
    chooseRead("all");
    onRow(0, [](TOnuClsItem& dialog) {
        EXPECT_EQ(bytesOf(dialog.TitlePanel->TitleLabel->text()), "Onu Cls");
        const std::pair<const char*, const char*> states[] = {
            {"portEdit", "-all"},    {"clsEdit", "-1"},
            {"indexEdit", "-1"},     {"QuemappedEdit", "6"},
            {"EthPriorityEdt", "5"}, {"DscpEdit", "46"},
            {"EthTypeEdit", "0800"}, {"SrcMacEdit", "00:25:9C:0A:1B:2C"},
            {"VlanEdit", "0"}};
        for (const auto& [name, state] : states) {
            EXPECT_EQ(stateIn(dialog, name), state) << name;
        }
        for (const QCheckBox* each : dialog.findChildren<QCheckBox*>()) {
            EXPECT_FALSE(each->isChecked()) << bytesOf(each->objectName());
        }
    });
    EXPECT_EQ(takeRead(), ".1.2.5.1") << "the port read for all";
    EXPECT_EQ(page().mainTable->rowCount(), 0);
}

TEST_F(ClsTest, OneRuleOfAPortMatchesAnyTraffic) {
    for (const bool listed : {true, false, true}) {
        readRow("1", slot("1", listed ? "1" : "0"), "maingroup");
        readRow("2", emptySlot(), "maingroup");
        onRow(1,
              [&](TOnuClsItem& dialog) { EXPECT_EQ(dialog.PhyPortChBox->isEnabled(), !listed); });
        takeRead(); // the refresh starts afresh
    }
}

TEST_F(ClsTest, AtMostThreeFieldsCanBeTicked) {
    readSlots();
    onRow(1, [&](TOnuClsItem& dialog) {
        const std::pair<const char*, Texts> steps[] = {
            {"Vlan", matches_},
            {"SrcMac", matches_},
            {"DestIp", {"DestIp", "SrcMac", "Vlan"}},
            {"Dscp", {"DestIp", "SrcMac", "Vlan"}}, // not ticked
            {"Vlan", matches_},
            {"Dscp", {"DestIp", "Dscp", "SrcMac"}},
            {"PhyPort", {}},
            {"PhyPort", matches_},
        };
        EXPECT_EQ(free(dialog), matches_);
        for (const auto& [name, expected] : steps) {
            tick(dialog, name);
            EXPECT_EQ(free(dialog), expected) << name;
        }
        EXPECT_TRUE(box(dialog, "Dscp").isChecked());
        EXPECT_FALSE(box(dialog, "Vlan").isChecked());
    });
}

// One case after the other in one dialog: what is put right stays right.
TEST_F(ClsTest, OkChecksQueueAndPriorityThenTheFieldsInOrder) {
    readSlots();
    const Box range7{11068, {"0", "7"}};
    onRow(1, [&](TOnuClsItem& dialog) {
        setTextIn(dialog, "EthPriorityEdt", "");
        expectChecks(dialog, {{"QuemappedEdit", {""}, {}, "8"},
                              // Before the queue is out of range.
                              {"EthPriorityEdt", {""}, {}, "8"}});
        expectChecks(dialog, {{"QuemappedEdit", {"8"}, range7, "7"},
                              {"EthPriorityEdt", {"8"}, range7, "0"}});
        test::click(*dialog.okBtn);
        expectBox({3021});
    });
    takeRead();
    const auto upTo = [](const char* most) { return Box{11068, {"0", most}}; };
    const Box noMac{3029, {}, 113};
    const Box badMac{3036, {}, 113};
    const Box badVlan{11068, {"1", "4094"}};
    // The fields of a rule, three at most.
    const std::vector<std::vector<Check>> rules = {
        {{"DestIpEdit", {"", "10.0.0.x"}, {11069}, "10.0.0.1"},
         {"DestMacEdit", {"0g:00:00:00:00:01"}, badMac, "0 :00:00:00:00:01"},
         {"DestPortEdit", {"65536"}, upTo("65535"), "65535"}},
        {{"DestMacEdit", {""}, noMac, "0 :00:00:00:00:01"},
         {"Dot1qPriorityEdit", {"8"}, upTo("7"), "7"},
         {"DscpEdit", {"64"}, upTo("63"), "63"}},
        {{"EthTypeEdit", {"GGGG"}, upTo("65535"), "FFFF"},
         {"IpProtocolEdit", {"256"}, upTo("255"), "255"},
         {"Ipv6PrecedenceEdit", {"64"}, upTo("63"), "63"}},
        {{"SrcIpEdit", {"1.2.3"}, {11069}, "255.255.255.255"},
         {"SrcMacEdit", {"00:00:00:00:00:00"}, noMac, "FF:ff:FF:ff:FF:ff"},
         {"SrcPortEdit", {"65536"}, upTo("65535"), "1"}},
        {{"DestPortEdit", {""}, {}, "1"},
         {"Dot1qPriorityEdit", {""}, {}, "1"},
         {"DscpEdit", {""}, {}, "1"}},
        {{"EthTypeEdit", {""}, {}, "1"},
         {"IpProtocolEdit", {""}, {}, "1"},
         {"Ipv6PrecedenceEdit", {""}, {}, "1"}},
        {{"SrcPortEdit", {""}, {}, "1"}, {"VlanEdit", {"", "0", "4095"}, badVlan, "4094"}},
        {{"VlanEdit", {"0"}, badVlan, "1"}},
    };
    for (const std::vector<Check>& rule : rules) {
        readSlots();
        onRow(1, [&](TOnuClsItem& dialog) {
            for (const Check& check : rule) {
                const std::string edit = check.control;
                tick(dialog, edit.substr(0, edit.size() - 4));
            }
            expectChecks(dialog, rule);
            test::click(*dialog.okBtn);
        });
        EXPECT_EQ(takeWrite().size(), 4 + rule.size()) << rule[0].control;
        takeRead();
    }
}

TEST_F(ClsTest, UntickedFieldsAreNeitherCheckedNorWritten) {
    readSlots();
    onRow(1, [](TOnuClsItem& dialog) {
        setTextIn(dialog, "VlanEdit", "9999");
        setTextIn(dialog, "DestMacEdit", "zz:00:00:00:00:00");
        tick(dialog, "Dscp");
        setTextIn(dialog, "DscpEdit", "0063");
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(), (Texts{"clsPrecedenceIndex@1.2.5.1.2=2", "clsQuemapped@1.2.5.1.2=0",
                                  "clsEthPriority@1.2.5.1.2=0", "clsDscp@1.2.5.1.2=0063",
                                  "clsRowStatus@1.2.5.1.2=4"}));
}

TEST_F(ClsTest, RulesAreWrittenInTheOrderOfTheirColumns) {
    readSlots();
    chooseRead("3");
    onRow(1, [](TOnuClsItem& dialog) {
        for (const char* name : {"SrcPort", "EthType", "DestMac"}) {
            tick(dialog, name);
        }
        setTextIn(dialog, "SrcPortEdit", "80");
        setTextIn(dialog, "EthTypeEdit", "88a8");
        setTextIn(dialog, "DestMacEdit", "01:00:5E:0f:  :1 ");
        setTextIn(dialog, "QuemappedEdit", "7");
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(),
              (Texts{"clsPrecedenceIndex@1.2.5.3.2=2", "clsQuemapped@1.2.5.3.2=7",
                     "clsEthPriority@1.2.5.3.2=0", "clsDestMac@1.2.5.3.2=#01005E0F0010",
                     "clsEthType@1.2.5.3.2=34984", "clsSrcPort@1.2.5.3.2=80",
                     "clsRowStatus@1.2.5.3.2=4"}));
    EXPECT_EQ(takeRead(), ".1.2.5.3");
    EXPECT_EQ(host.routedWindow(CP_KIND_WRITE, 613), page().replyHandle());
    expectWrittenAndRead(".1.2.5.3");
    readSlots();
    EXPECT_EQ(page().mainTable->selectedRow(), 1) << "the slot just filled";
}

TEST_F(ClsTest, ARuleForAnyTrafficHasNoFieldsAndNoDuplicate) {
    readSlots();
    chooseRead("all");
    onRow(0, [](TOnuClsItem& dialog) {
        tick(dialog, "Dscp"); // stays ticked, and is the listed rule's together with two others
        tick(dialog, "EthType");
        tick(dialog, "SrcIp");
        setTextIn(dialog, "DscpEdit", "99");
        test::click(*dialog.PhyPortChBox);
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(), (Texts{"clsPrecedenceIndex@1.2.5.1.1=1", "clsQuemapped@1.2.5.1.1=6",
                                  "clsEthPriority@1.2.5.1.1=5", "clsPhyPort@1.2.5.1.1=1",
                                  "clsAllPort@1.2.5.1.1=1", "clsRowStatus@1.2.5.1.1=4"}));
}

TEST_F(ClsTest, ARuleThatIsListedAlreadyIsRefused) {
    struct Case {
        std::vector<std::pair<std::size_t, const char*>>
            listed; // values that are not those of none
        std::vector<std::pair<std::string, const char*>> chosen;
        bool refused;
    };
    const Case cases[] = {
        {{{14, "100"}}, {{"Vlan", "100"}}, true},
        {{{14, "100"}}, {{"Vlan", "0100"}}, false}, // as typed
        {{{14, "100"}}, {{"Vlan", "100"}, {"Dscp", "1"}}, false},
        {{{14, "100"}, {7, "1"}}, {{"Vlan", "100"}, {"Dscp", "1"}}, true},
        {{{14, "100"}, {15, "1"}}, {{"Vlan", "100"}}, false}, // matches any traffic
        {{{8, "34984"}}, {{"EthType", "88a8"}}, true},
        {{{8, "2048"}}, {{"EthType", "800"}}, false},
        {{{4, "00259C0A1B2C"}}, {{"DestMac", "00:25:9c:0a:1b:2c"}}, true},
        {{{4, "00259c0a1b2c"}}, {{"DestMac", "00:25:9c:0a:1b:2c"}}, false}, // as listed
        {{{12, "0000000000F0"}}, {{"SrcMac", "  :  :  :  :  :f "}}, true},
        {{{12, "0000000000F0"}}, {{"DestMac", "  :  :  :  :  :f "}}, false},
        {{{6, "1"}}, {{"Dscp", "0"}}, true}, // the empty slot beside it
    };
    for (const Case& each : cases) {
        Texts values = emptySlot();
        values[0] = "1";
        for (const auto& [at, value] : each.listed) {
            values[at] = value;
        }
        readRow("1", values, "maingroup");
        readRow("2", emptySlot(), "maingroup");
        onRow(1, [&](TOnuClsItem& dialog) {
            for (const auto& [name, value] : each.chosen) {
                tick(dialog, name);
                setTextIn(dialog, name + "Edit", value);
            }
            test::click(*dialog.okBtn);
            EXPECT_EQ(dialog.isVisible(), each.refused);
        });
        expectBox(each.refused ? Box{11157} : Box{});
        EXPECT_EQ(host.pending(), each.refused ? 1U : 2U) << each.chosen[0].second;
        while (host.pending() > 0) {
            host.take();
        }
    }
}

TEST_F(ClsTest, DeleteNamesTheRuleByItsPrecedence) {
    readRow("1", emptySlot(), "maingroup");
    readRow("2", slot("5"), "maingroup");
    expectRefused("deleteBtn", "mainTable", {11204});
    page().mainTable->selectRow(0);
    expectRefused("deleteBtn", "mainTable", {3034});
    for (const auto& [port, suffix] : {std::pair{"4", "1.2.5.4"}, {"all", "1.2.5.1"}}) {
        chooseRead(port);
        readRow("2", slot("5"), "maingroup");
        page().mainTable->selectRow(1);
        test::click(*page().deleteBtn);
        const std::string instance = std::string(suffix) + ".1";
        EXPECT_EQ(takeWrite(), (Texts{"clsPrecedenceIndex@" + instance + "=5",
                                      "clsRowStatus@" + instance + "=6"}));
        EXPECT_EQ(usable(), "deleteBtn");
        expectWrittenAndRead(std::string(".") + suffix);
        readSlots();
        EXPECT_EQ(page().mainTable->selectedRow(), 1);
    }
}

class QueueTest : public test::PageTest<TOnuQueueScheduler, 650> {
protected:
    Texts weights() {
        return {text("queue0Edit"), text("queue1Edit"), text("queue2Edit"), text("queue3Edit")};
    }
    void expectWeightsEnabled(bool expected, const std::string& why) {
        for (const char* edit : {"queue0Edit", "queue1Edit", "queue2Edit", "queue3Edit"}) {
            EXPECT_EQ(enabled(edit), expected) << edit << " " << why;
        }
    }
    void choose(const char* list, int messageId) { setText(list, messageText(messageId)); }
};

TEST_F(QueueTest, SplitsTheWeightsAndKeepsWhatIsNotReported) {
    const std::pair<Texts, Texts> cases[] = {
        {{"2", "8,4,2,1", "1"}, {"8", "4", "2", "1"}},
        {{"2", "15,7", "1"}, {"15", "7", "2", "1"}},
        {{"2", "", "1"}, {"15", "7", "2", "1"}},
        {{"2", "1,,3,4,5", "1"}, {"1", "", "3", "4"}},
        {{"2", "9,9,9,9"}, {"1", "", "3", "4"}}, // too short a reply
        {{"2", "123456,5", "0"}, {"123456", "5", "3", "4"}},
    };
    for (const auto& [values, expected] : cases) {
        read(values, "maintable");
        EXPECT_EQ(weights(), expected) << values[1];
    }
    EXPECT_EQ(text("enalbeComb"), messageText(11008));
    read({"2", "1", "7"}, "maintable");
    EXPECT_EQ(text("enalbeComb"), "") << "an unknown code";
}

TEST_F(QueueTest, TheModeDecidesWhetherWeightsCanBeSet) {
    expectWeightsEnabled(false, "before the first reply");
    struct Case {
        const char* mode;
        int messageId; // of the text; 0 for none
        bool enables;
    };
    const Case cases[] = {
        {"3", 0, false},    {"2", 3114, true}, {"9", 0, true},
        {"1", 3113, false}, {"2", 3114, true}, {"4", 3115, false},
    };
    for (const Case& each : cases) {
        read({each.mode, "8,4,2,1", "0"}, "maintable", 0);
        EXPECT_EQ(text("modeComb"), each.messageId == 0 ? "" : messageText(each.messageId));
        expectWeightsEnabled(each.enables, each.mode);
        EXPECT_TRUE(enabled("configBtn"));
    }
    choose("modeComb", 3114);
    expectWeightsEnabled(true, "chosen");
    choose("modeComb", 3113);
    expectWeightsEnabled(false, "chosen");
    page().queueEdits[0]->setEnabled(true);
    choose("enalbeComb", 11007);
    expectWeightsEnabled(false, "both lists apply the mode");
}

TEST_F(QueueTest, ChecksEnabledWeightsInOrder) {
    const Box range{11068, {"1", "15"}};
    read({"2", "8,4,2,1", "0"}, "maintable");
    setText("queue3Edit", "16");
    expectChecks({{"queue1Edit", {"0", "16"}, range, "15"}, {"queue1Edit", {""}, {}, "15"}});
    expectRefused("configBtn", "queue3Edit", range);
    choose("modeComb", 3113);
    expectConfigWrites({"onuQueueMode@1.2.5=1"}); // locked weights are not checked
    page().configBtn->setEnabled(true);
    choose("modeComb", 3115);
    expectConfigWrites({"onuQueueMode@1.2.5=4"});
    test::type(control<QLineEdit>("queue1Edit"), "x");
    EXPECT_EQ(text("queue1Edit"), "15");
}

TEST_F(QueueTest, WritesModeThenWeightsThenTheTickedSwitch) {
    read({"2", "8,4,2,1", "0"}, "maintable");
    control<QCheckBox>("remapCheckB").setChecked(true);
    choose("enalbeComb", 11007);
    setText("queue0Edit", "1");
    expectConfigWrites(
        {"onuQueueMode@1.2.5=2", "onuQueueWeight@1.2.5=1,4,2,1", "onuQueueCosRemapStats@1.2.5=1"});
    EXPECT_EQ(usable(), "");
    expectWrittenAndRead();
    failRead();
    control<QCheckBox>("remapCheckB").setChecked(false);
    expectConfigWrites({"onuQueueMode@1.2.5=2", "onuQueueWeight@1.2.5=1,4,2,1"});
}

class CosTest : public test::PageTest<TOnuCOSQueueScheduler, 651> {};

TEST_F(CosTest, CountsFromZeroAndWritesToTheRow) {
    const auto readRows = [this] {
        readRow("1", {"3"}, "maintable", 0);
        readRow("8", {"0"}, "maintable", 0);
    };
    readRows();
    EXPECT_TRUE(enabled("cfgBtn"));
    readRow("2", {}, "maintable");
    expectRows({{"0", "3"}, {"7", "0"}});
    expectRefused("cfgBtn", "mainTable", {11204});
    expectRowEdited<TOnuCOSQueueSchedulerItem>(0,
                                               {messageText(65103),
                                                {{"cosEdit", "-0"}, {"queueComb", "3"}},
                                                {{"queueComb", "2"}},
                                                {"onuQueueClass@1.2.5.1=2"}},
                                               readRows);
    inDialog<TOnuCOSQueueSchedulerItem>(0, [](TOnuCOSQueueSchedulerItem& dialog) {
        EXPECT_EQ(entriesOf(in<QComboBox>(dialog, "queueComb")), (Texts{"0", "1", "2", "3"}));
    });
}

TEST_F(CosTest, RowsWithoutANumberHaveNoCos) {
    readRow("0", {"1"}, "maintable");
    readRow("4294967296", {"1"}, "maintable");
    expectRows({{"-1", "1"}, {"", "1"}});
}

class RemapTest : public test::PageTest<TOnuRepeatCOSQueue, 652> {
protected:
    void readRows(const char* remapEnabled) {
        readRow("6", {"6"}, "maintable", 0);
        readRow("7", {"0"}, "maintable", 0);
        read({remapEnabled}, "group1");
    }
};

TEST_F(RemapTest, IsLockedWhileTheOnuDoesNotRemap) {
    readRow("6", {"6"}, "maintable");
    expectRefused("cfgBtn", "mainTable", {11204});
    page().mainTable->selectRow(0);
    expectRefused("cfgBtn", "mainTable", {3112}); // nothing was said about remapping yet
    readRows("1");
    read({"0"}, "group2");
    read({}, "group1");
    expectRows({{"5", "6"}, {"6", "0"}});
    inDialog<TOnuRepeatCOSQueueItem>(0);
    takeRead();
    readRows("0");
    page().mainTable->selectRow(1);
    expectRefused("cfgBtn", "mainTable", {3112});
    readRows("2");
    inDialog<TOnuRepeatCOSQueueItem>(1);
}

TEST_F(RemapTest, WritesTheNewCosToTheRowOfTheOld) {
    readRows("1");
    expectRowEdited<TOnuRepeatCOSQueueItem>(1,
                                            {messageText(65203),
                                             {{"oldcosEdit", "-6"}, {"newcosComb", "0"}},
                                             {{"newcosComb", "7"}},
                                             {"onuQueueNewCos@1.2.5.7=7"}},
                                            [this] { readRows("1"); });
    inDialog<TOnuRepeatCOSQueueItem>(1, [](TOnuRepeatCOSQueueItem& dialog) {
        EXPECT_EQ(in<QComboBox>(dialog, "newcosComb").count(), 8);
    });
}

class LangressTest : public test::PageTest<TOnuLangress, 607> {
protected:
    // Port 1 is limited in both directions, port 2 when sending, port 3 in an unknown way.
    void readPorts() {
        readRow("1", {"1", "64", "1523", "1522", "1", "1024000", "65"}, "maingroup", 0);
        readRow("2", {"0", "100", "2000", "0", "1", "200", "300"}, "maingroup", 0);
        readRow("3", {"7", "100", "2000", "0", "0", "200", "300"}, "maingroup", 1);
    }
    void inItem(int row, const std::function<void(TOnuLangressItem&)>& work) {
        readPorts();
        inDialog<TOnuLangressItem>(row, work);
    }
    static void choose(QComboBox& list, int messageId) {
        UiTest::choose(list, messageText(messageId));
    }
    // Which of the controls that depend on a direction are enabled, ingress before egress.
    static std::string enabledParts(const TOnuLangressItem& dialog) {
        std::string parts;
        for (const char* name : {"enEnableComb", "inCirEdit", "inCbsEdit", "inEbsEdt",
                                 "exEnableComb", "exCirEdit", "exPirEdit"}) {
            parts += in(dialog, name).isEnabled() ? '1' : '-';
        }
        return parts;
    }
    const Texts ingress_ = {"lanIngressRowStatus@1.2.5.1=4", "lanIngressEnable@1.2.5.1=1",
                            "lanIngressCir@1.2.5.1=64", "lanIngressCbs@1.2.5.1=1523",
                            "lanIngressEbs@1.2.5.1=1522"};
    const Texts egress_ = {"lanEgressRowStatus@1.2.5.1=4", "lanEgressEnable@1.2.5.1=1",
                           "lanEgressCir@1.2.5.1=1024000", "lanEgressPir@1.2.5.1=65"};
};

TEST_F(LangressTest, ListsRatesOfItsGroup) {
    readPorts();
    readRow("4", {"1", "1", "1", "1", "1", "1"}, "maingroup", 0);
    readRow("5", {"1", "1", "1", "1", "1", "1", "1"}, "rowstat", 0);
    const std::string on = messageText(11007);
    const std::string off = messageText(11008);
    expectRows({{"1", on, "64", "1523", "1522", on, "1024000", "65"},
                {"2", off, "100", "2000", "0", on, "200", "300"},
                {"3", "", "100", "2000", "0", off, "200", "300"}});
    EXPECT_EQ(usable(), "cfgBtn") << "whatever the flag says";
    failRead();
    EXPECT_EQ(usable(), "cfgBtn");
    refresh();
    EXPECT_EQ(usable(), "");
}

TEST_F(LangressTest, DirectionAndSwitchesDecideWhatCanBeEdited) {
    readPorts();
    expectRefused("cfgBtn", "mainTable", {11204});
    inItem(0, [this](TOnuLangressItem& dialog) {
        EXPECT_EQ(bytesOf(dialog.windowTitle()), messageText(60716));
        EXPECT_EQ(textIn(dialog, "IndexEdit"), "1");
        EXPECT_EQ(textIn(dialog, "exPirEdit"), "65");
        EXPECT_EQ(textIn(dialog, "choiceComb"), messageText(3118));
        EXPECT_EQ(enabledParts(dialog), "1111111");
        struct Step {
            QComboBox* list;
            int messageId;
            const char* enabled;
        };
        const Step steps[] = {
            {dialog.choiceComb, 3125, "1111---"},
            {dialog.enEnableComb, 11008, "1------"},
            {dialog.choiceComb, 3117, "----111"},
            {dialog.enEnableComb, 11007, "----111"}, // this direction is not chosen
            {dialog.exEnableComb, 11008, "----1--"},
            {dialog.choiceComb, 3118, "11111--"},
        };
        for (const Step& step : steps) {
            choose(*step.list, step.messageId);
            EXPECT_EQ(enabledParts(dialog), step.enabled) << step.messageId;
        }
    });
    takeRead();
    inItem(1, [](TOnuLangressItem& dialog) { EXPECT_EQ(enabledParts(dialog), "1---111"); });
    takeRead();
    inItem(2, [](TOnuLangressItem& dialog) {
        EXPECT_EQ(dialog.enEnableComb->currentIndex(), -1);
        EXPECT_EQ(enabledParts(dialog), "1---1--");
    });
}

TEST_F(LangressTest, ChecksTheRatesThatAreOnInOrder) {
    const Box rate{11068, {"64", "1024000"}};
    inItem(0, [&](TOnuLangressItem& dialog) {
        expectChecks(dialog,
                     {{"inCirEdit", {"63", "1024001"}, rate, "1024000"},
                      {"inCbsEdit", {"1522", "1000001"}, {11068, {"1523", "1000000"}}, "1000000"},
                      {"inEbsEdt", {"-1", "1523"}, {11068, {"0", "1522"}}, "1522"},
                      {"exCirEdit", {"63", "1024001"}, rate, "1024000"},
                      {"exPirEdit", {"63", "1024001"}, rate, "1024000"}});
        expectChecks(dialog, {{"inCirEdit", {""}, {}, "64"},
                              {"inCbsEdit", {""}, {}, "1523"},
                              {"inEbsEdt", {""}, {}, "0"},
                              {"exCirEdit", {""}, {}, "64"},
                              {"exPirEdit", {""}, {}, "64"}});
        setTextIn(dialog, "inCirEdit", "");
        choose(*dialog.choiceComb, 3117);
        test::click(*dialog.okBtn); // the direction that is not chosen is not checked
    });
    EXPECT_EQ(takeWrite().at(0), egress_.front());
}

TEST_F(LangressTest, EveryDirectionGoesOutAsARequestOfItsOwn) {
    const std::pair<int, std::vector<Texts>> cases[] = {
        {3125, {ingress_}}, {3117, {egress_}}, {3118, {ingress_, egress_}}};
    for (const auto& [choice, writes] : cases) {
        inItem(0, [&, chosen = choice](TOnuLangressItem& dialog) {
            choose(*dialog.choiceComb, chosen);
            test::click(*dialog.okBtn);
        });
        for (const Texts& expected : writes) {
            EXPECT_EQ(takeWrite(), expected);
        }
        EXPECT_EQ(takeRead(), ".1.2.5") << "the dialog closed";
        for (std::size_t reply = 0; reply < writes.size(); ++reply) {
            expectWrittenAndRead();
        }
        EXPECT_EQ(host.pending(), 0U);
    }
}

TEST_F(LangressTest, ADirectionThatIsOffIsWrittenWithoutRates) {
    inItem(1, [](TOnuLangressItem& dialog) {
        setTextIn(dialog, "inCirEdit", "1");
        choose(*dialog.exEnableComb, 11008);
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(), (Texts{"lanIngressRowStatus@1.2.5.2=4", "lanIngressEnable@1.2.5.2=0"}));
    EXPECT_EQ(takeWrite(), (Texts{"lanEgressRowStatus@1.2.5.2=4", "lanEgressEnable@1.2.5.2=0"}));
}

using RateTest = test::PageTest<TOnuRate, 664>;

TEST_F(RateTest, WritesTheChosenRateOnly) {
    const std::pair<std::string, std::string> rates[] = {
        {"downMulti", "downMulticastRate"},   {"upMulti", "upMulticastRate"},
        {"downBroad", "downBroadcastRate"},   {"upBroad", "upBroadcastRate"},
        {"downUcast", "downUnkownUcastRate"}, {"upUcast", "upUnkownUcastRate"},
    };
    EXPECT_TRUE(control<QRadioButton>("downMultiRaBtn").isChecked());
    int value = 300;
    for (const auto& [rate, object] : rates) {
        read({"300", "301", "302", "303", "304", "305"}, "maintable");
        control<QRadioButton>(rate + "RaBtn").setChecked(true);
        for (const auto& [other, unused] : rates) {
            if (other != rate) {
                setText(other + "Edit", "1"); // not checked
            }
        }
        expectConfigWrites({object + "@1.2.5=" + std::to_string(value)});
        expectWrittenAndRead();
        ++value;
    }
}

TEST_F(RateTest, ChecksTheChosenRate) {
    const Box range{11068, {"255", "1000000"}};
    EXPECT_EQ(label("noteLabel"), messageText(66407));
    read({"300", "301", "302", "303", "304"}, "maintable");
    EXPECT_EQ(text("downMultiEdit"), "") << "too short a reply";
    read({"254", "301", "302", "303", "304", "305"}, "maintable", 0);
    expectRefused("configBtn", "downMultiEdit", range);
    expectChecks({{"downMultiEdit", {"1000001"}, range, ""}, {"downMultiEdit", {""}, {}, ""}});
    test::type(control<QLineEdit>("downMultiEdit"), "1k00000000");
    EXPECT_EQ(text("downMultiEdit"), "1000000");
    for (const char* good : {"255", "1000000"}) {
        setText("downMultiEdit", good);
        page().configBtn->setEnabled(true);
        expectConfigWrites({std::string("downMulticastRate@1.2.5=") + good});
        expectWrittenAndRead();
    }
}

} // namespace
} // namespace onudesk
