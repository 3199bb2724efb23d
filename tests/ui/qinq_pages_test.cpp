// SPDX-License-Identifier: MIT
//
// QinQ mode, the roles of the ports, the two lists of VLAN ranges, and the set of VLANs that their
// rows use.
#include "pages/qinq/onu_port_qinq.h"
#include "pages/qinq/onu_svlan_insert.h"
#include "pages/qinq/onu_svlan_pass_through.h"
#include "pages/qinq/onu_swich_qinq.h"

#include "page_test.h"

namespace onudesk {
namespace {

using platform::PromptIcon;
using test::Box;
using test::Texts;

class QinQModeTest : public test::PageTest<TOnuSwichQinQ, 645> {
protected:
    std::string shownTexts() { return text("modeComb") + " " + text("outerTpidEdt"); }
    const std::string off_ = messageText(11008);
    const Box isOff_{3045, {}, 11054, PromptIcon::information};
};

TEST_F(QinQModeTest, ARadioButtonEnablesItsOwnField) {
    EXPECT_EQ(usable(), "");
    read({"2", "34984"}, "anything");
    for (int times = 0; times < 2; ++times) {
        EXPECT_TRUE(page().modeRaBtn->isChecked());
        EXPECT_TRUE(enabled("modeComb") && !enabled("outerTpidEdt"));
        test::click(*page().vlanRaBtn);
        EXPECT_FALSE(page().modeRaBtn->isChecked());
        EXPECT_TRUE(!enabled("modeComb") && enabled("outerTpidEdt"));
        read({"1", "1501"}, "maintable");
        EXPECT_EQ(shownTexts(), "static-QinQ 1501");
        EXPECT_TRUE(page().vlanRaBtn->isChecked()) << "a reply leaves the choice";
        test::click(*page().modeRaBtn);
    }
}

TEST_F(QinQModeTest, ShowsTwoValuesOrNothing) {
    read({"0", "33024", "x"}, "maintable", 0);
    EXPECT_EQ(usable(), "configBtn") << "whatever the flag";
    read({"2"}, "maintable");
    failRead();
    EXPECT_EQ(shownTexts(), off_ + " 33024");
    read({"3", "5"}, "maintable");
    EXPECT_EQ(shownTexts(), " 5");
}

TEST_F(QinQModeTest, WritesWhatIsChosen) {
    read({"0", "33024"}, "maintable");
    setText("outerTpidEdt", "1"); // not chosen, so not checked
    setText("modeComb", "flexible-QinQ");
    expectConfigWrites({"onuGlobalQinQMode@1.2.5=2"});
    EXPECT_EQ(usable(), "");
    expectWrittenAndRead();
    const Box range{11068, {"1501", "65535"}};
    struct Case {
        const char* mode;
        const char* tpid;
        Box refusal;
    };
    const Case cases[] = {{"0", "33024", isOff_}, {"0", "1500", isOff_}, {"1", "1500", range},
                          {"2", "65536", range},  {"2", "", range},      {"1", "1501", {}},
                          {"2", "65535", {}},     {"7", "33024", {}}};
    for (const Case& each : cases) {
        read({each.mode, "33024"}, "maintable");
        test::click(*page().vlanRaBtn);
        setText("outerTpidEdt", each.tpid);
        if (each.refusal.textId != 0) {
            expectRefused("configBtn", "outerTpidEdt", each.refusal);
        } else {
            expectConfigWrites({std::string("onuGlobalQinQOuterTpid@1.2.5=") + each.tpid});
        }
    }
}

TEST_F(QinQModeTest, TheModeThatIsShownDecidesWhetherTheTpidCanBeWritten) {
    read({"2", "34984"}, "maintable");
    setText("modeComb", off_); // not written yet
    test::click(*page().vlanRaBtn);
    expectRefused("configBtn", "outerTpidEdt", isOff_);
    test::type(*page().outerTpidEdt, "a123456");
    EXPECT_EQ(text("outerTpidEdt"), "34984") << "five digits are there";
}

class PortRoleTest : public test::PageTest<TOnuPortQinQ, 646> {
protected:
    void readPorts(const Texts& state) {
        read(state, "switchqinqstate", 0);
        readRow("1", {"2"}, "maintable", 0);
        readRow("2", {"1"}, "maintable", 0);
        readRow("3", {"9"}, "maintable", 0);
    }
};

TEST_F(PortRoleTest, ListsPortsWithTheirRoles) {
    readPorts({"1"});
    readRow("4", {}, "maintable", 0);
    expectRows({{"1", "customer"}, {"2", "uplink"}, {"3", ""}});
    EXPECT_EQ(usable(), "configBtn") << "whatever the flag";
    EXPECT_EQ(refresh(), ".1.2.5");
    expectRows({});
}

TEST_F(PortRoleTest, RolesCanBeEditedWhileQinQIsOn) {
    // None yet; then what the last reply with a value says.
    const std::pair<Texts, bool> cases[] = {{{}, false}, {{"1"}, true}, {{"0"}, false},
                                            {{}, false}, {{"2"}, true}, {{}, true}};
    for (const auto& [state, opens] : cases) {
        page().mainTable->clearRows();
        page().mainTable->rememberRow(-1);
        readPorts(state);
        expectRefused("configBtn", "mainTable", {11204}); // comes first
        if (opens) {
            inDialog<TOnuPortQinQItem>(0);
            takeRead();
        } else {
            page().mainTable->selectRow(0);
            expectRefused("configBtn", "mainTable", {11062});
        }
    }
}

TEST_F(PortRoleTest, OkWritesTheRoleOfThePort) {
    readPorts({"2"});
    expectRowEdited<TOnuPortQinQItem>(1,
                                      {"Onu Port QinQ",
                                       {{"portNoEdt", "-2"}, {"qinqModeComb", "uplink"}},
                                       {{"qinqModeComb", "customer"}},
                                       {"lanQinQPortMode@1.2.5.2=2"}},
                                      [this] { readPorts({"2"}); });
}

TEST(VlanSets, HoldBothEndsOfWhatAreVlans) {
    const std::pair<const char*, const char*> ranges[] = {{"10", "12"},
                                                          {"300", "300"},
                                                          {"50", "40"},
                                                          {"", "60"},
                                                          {"70", ""},
                                                          {"x", "80"},
                                                          {"4090", "9223372036854775807"},
                                                          {"-9223372036854775808", "1"}};
    VlanSet set;
    for (const auto& [first, last] : ranges) {
        set.add(first, last);
    }
    for (const char* used : {"0", "1", "10", "11", "12", "0012", "300", "4090", "4095"}) {
        EXPECT_TRUE(set.contains(used)) << used;
    }
    for (const char* free : {"2", "9", "13", "40", "45", "50", "60", "70", "80", "299", "301",
                             "4089", "4096", "65536", "-1", "", "x"}) {
        EXPECT_FALSE(set.contains(free)) << free;
    }
    set.clear();
    EXPECT_FALSE(set.contains("10"));
}

// What a port's rows say besides their ranges.
struct Flags {
    std::string full = "0";
    std::string blocked = "0";
    std::string mode{};
};

class InsertTest : public test::PageTest<TOnuSVlanInsert, 647> {
protected:
    static Texts insert(const Texts& range, const Flags& flags = {},
                        const Texts& other = {"0", "0"}) {
        return {flags.full, range[0], range[1], "1000", flags.blocked,
                "1",        other[0], other[1], "3",    flags.mode.empty() ? "2" : flags.mode};
    }
    void rowOf(const std::string& index, const Texts& values) {
        readRow(index, values, "maintable", 0);
    }
    void add(const std::function<void(TOnuSVlanInsertItem&)>& work) {
        inDialog<TOnuSVlanInsertItem>(work);
    }
    static void enter(TOnuSVlanInsertItem& dialog, const char* start, const char* end,
                      const char* outer) {
        setTextIn(dialog, "startvlanEdt", start);
        setTextIn(dialog, "endvlanEdt", end);
        setTextIn(dialog, "outervlanEdt", outer);
    }
};

class PassTest : public test::PageTest<TOnuSVlanPassThrough, 648> {
protected:
    void rowOf(const std::string& index, const Flags& flags = {}, const Texts& other = {"0", "0"}) {
        readRow(index,
                {flags.full, "100", "199", other[0], other[1],
                 flags.mode.empty() ? "0" : flags.mode, flags.blocked, "1", "3"},
                "maintable", 0);
    }
};

const Box kNotFlexible{3047, {}, 11054, PromptIcon::information};
const Box kOff{3048, {}, 11054, PromptIcon::information};
const Box kFull{11224, {}, 11054, PromptIcon::warning, "150!"};
const Box kBlocked{3049};

TEST_F(InsertTest, ListsTheRangesOfAPort) {
    Texts nine = insert({"100", "199"});
    nine.pop_back();
    rowOf("1", nine);
    readRow("1", insert({"100", "199"}), "othertable");
    ASSERT_TRUE(host.replyRead(647, {.values = insert({"1", "4094"}),
                                     .oids = Texts{"no point"},
                                     .status = 1,
                                     .resultText = "maintable"}));
    EXPECT_EQ(page().mainTable->rowCount() + page().portComb->count(), 0)
        << "a name without a point is none of a row";
    rowOf("4", insert({"100", "199"}));
    expectRows({{"4", "100", "199", "1000"}});
    EXPECT_EQ(page().portComb->count(), 3) << "no \"all\"";
    EXPECT_FALSE(session.PortPending) << "the first read is for no port";
    EXPECT_EQ(usable(), "cfgBtn deleteBtn") << "whatever the flag";
    choosePort("3");
    EXPECT_EQ(usable(), "");
    expectRows({});
    failRead();
    EXPECT_EQ(usable(), "cfgBtn deleteBtn");
}

// The last row decides, whatever reads fail behind it.
TEST_F(InsertTest, ModeFullAndBlockedRefuseInThisOrder) {
    failRead();
    expectRefused("cfgBtn", "mainTable", kNotFlexible);
    const std::pair<Flags, Box> cases[] = {
        {{"1", "1", "1"}, kNotFlexible},  {{"1", "1", "0"}, kNotFlexible},
        {{"0", "0", "12"}, kNotFlexible}, {{"1", "1", "2"}, kFull},
        {{"7", "0", "2"}, kFull},         {{"0", "1", "2"}, kBlocked},
        {{"0", "255", "2"}, kBlocked}};
    for (const auto& [flags, refusal] : cases) {
        rowOf("1", insert({"1", "2"}));
        rowOf("2", insert({"3", "4"}, flags));
        expectRefused("cfgBtn", "mainTable", refusal);
    }
    choosePort("2");
    failRead();
    expectRefused("cfgBtn", "mainTable", kBlocked);
    rowOf("1", insert({"1", "2"}));
    add([](TOnuSVlanInsertItem& dialog) {
        EXPECT_EQ(bytesOf(dialog.TitlePanel->TitleLabel->text()), "Onu SVlan Insert");
        EXPECT_EQ(textIn(dialog, "portnoEdt"), "2");
    });
    EXPECT_EQ(takeRead(), ".1.2.5.2");
    EXPECT_EQ(host.pending(), 0U);
}

TEST_F(PassTest, StateFullAndBlockedRefuseInThisOrder) {
    readRow("1", Texts(8, "1"), "maintable");
    expectRows({});
    const std::pair<Flags, Box> cases[] = {{{"1", "1", "1"}, kNotFlexible},
                                           {{"1", "1", "2"}, kOff},
                                           {{"1", "1", "0"}, kFull},
                                           {{"1", "0", "3"}, kFull},
                                           {{"0", "1", "0"}, kBlocked}};
    for (const auto& [flags, refusal] : cases) {
        rowOf("2", flags);
        expectRefused("cfgBtn", "mainTable", refusal);
    }
    expectRows({{"2", "100", "199"}});
    EXPECT_EQ(page().portComb->count(), 3);
    refresh();
    rowOf("1", {"0", "0", "3"});
    QTimer::singleShot(0, &page(),
                       [this] { page().findChild<TOnuSVlanPassThroughItem*>()->reject(); });
    test::doubleClickRow(*page().mainTable, 0);
    EXPECT_EQ(takeRead(), ".1.2.5.1") << "the dialog has closed";
}

TEST_F(InsertTest, OkChecksOneEndAfterTheOtherThenTheOuterVlanThenTheirOrder) {
    rowOf("1", insert({"100", "199"}));
    rowOf("2", insert({"300", "300"}, {}, {"20", "29"}));
    const Box range{11068, {"1", "4094"}};
    const Box used{3046};
    add([&](TOnuSVlanInsertItem& dialog) {
        struct Case {
            const char* start;
            const char* end;
            const char* outer;
            const char* focus;
            Box refusal;
        };
        const Case cases[] = {
            {"", "", "", "startvlanEdt", range},
            {"4095", "100", "0", "startvlanEdt", range},
            {"100", "0", "0", "startvlanEdt", used},
            {"29", "4095", "0", "startvlanEdt", used},
            {"99", "0", "0", "endvlanEdt", range},
            {"99", "300", "0", "endvlanEdt", used},
            {"99", "20", "0", "endvlanEdt", used}, // out of order, too
            {"99", "90", "4095", "outervlanEdt", range},
            {"99", "90", "", "outervlanEdt", range},
            {"99", "90", "100", "endvlanEdt", {11222}},
            {"4094", "1", "100", "endvlanEdt", {11222}},
        };
        for (const Case& each : cases) {
            enter(dialog, each.start, each.end, each.outer);
            expectNotOk(dialog, each.focus, each.refusal);
        }
        enter(dialog, "19", "4094", "100"); // with others between the ends
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(),
              (Texts{"QinQInsertCvlanStart@1.2.5.1.1=19", "QinQInsertCvlanEnd@1.2.5.1.1=4094",
                     "QinQInsertSvlan@1.2.5.1.1=100", "QinQInsertRowStatus@1.2.5.1.1=4"}));
}

TEST_F(InsertTest, TheRowThatWasAddedIsSelectedAndRemembered) {
    rowOf("1", insert({"100", "199"}));
    choosePort("2");
    rowOf("1", insert({"1", "1"}));
    add([](TOnuSVlanInsertItem& dialog) {
        enter(dialog, "0050", "50", "4094");
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite().at(0), "QinQInsertCvlanStart@1.2.5.2.1=0050");
    EXPECT_EQ(host.routedWindow(CP_KIND_WRITE, 647), page().replyHandle());
    EXPECT_EQ(takeRead(), ".1.2.5.2") << "the dialog has closed";
    expectWrittenAndRead(".1.2.5.2");
    rowOf("1", insert({"1", "1"}));
    rowOf("2", insert({"50", "50"}));
    EXPECT_EQ(page().mainTable->selectedRow(), 1);
    choosePort("3");
    rowOf("1", insert({"50", "50"}));
    EXPECT_EQ(page().mainTable->selectedRow(), -1) << "it was another row";
    rowOf("2", insert({"60", "60"}));
    EXPECT_EQ(page().mainTable->selectedRow(), 1) << "the place is what is remembered";
}

TEST_F(InsertTest, TheUsedVlansAreThoseOfTheLastRead) {
    rowOf("1", insert({"100", "199"}, {}, {"7", "9"}));
    choosePort("2");
    rowOf("1", insert({"4000", "70000000000"}));
    add([this](TOnuSVlanInsertItem& dialog) {
        for (const char* used : {"4000", "4094"}) {
            setTextIn(dialog, "startvlanEdt", used);
            expectNotOk(dialog, "startvlanEdt", {3046});
        }
        enter(dialog, "8", "150", "150");
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite().size(), 4U);
}

TEST_F(InsertTest, DeleteNamesTheRowWithoutAQuestion) {
    rowOf("7", insert({"100", "199"}));
    expectRefused("deleteBtn", "mainTable", {11204});
    page().mainTable->selectRow(0);
    rowOf("7", insert({"100", "150"}, {"1", "1", "0"})); // flags do not matter
    test::click(*page().deleteBtn);
    EXPECT_EQ(takeWrite(),
              (Texts{"QinQInsertCvlanStart@1.2.5.1.7=100", "QinQInsertCvlanEnd@1.2.5.1.7=150",
                     "QinQInsertSvlan@1.2.5.1.7=1000", "QinQInsertRowStatus@1.2.5.1.7=6"}));
    EXPECT_EQ(usable(), "");
    expectWrittenAndRead(".1.2.5.1");
    rowOf("8", insert({"200", "200"}));
    EXPECT_EQ(page().mainTable->selectedRow(), 0) << "the place is remembered";
}

TEST_F(PassTest, RangesHaveNoOuterVlan) {
    rowOf("3", {}, {"1", "10"});
    inDialog<TOnuSVlanPassThroughItem>([this](TOnuSVlanPassThroughItem& dialog) {
        EXPECT_EQ(bytesOf(dialog.TitlePanel->TitleLabel->text()), "Onu SVlan PassThrough");
        EXPECT_EQ(dialog.findChildren<QLineEdit*>().size(), 3);
        setTextIn(dialog, "startvlanEdt", "10");
        expectNotOk(dialog, "startvlanEdt", {3046});
        setTextIn(dialog, "startvlanEdt", "");
        test::type(in(dialog, "startvlanEdt"), "a20009");
        EXPECT_EQ(textIn(dialog, "startvlanEdt"), "2000") << "four digits";
        setTextIn(dialog, "endvlanEdt", "1999");
        expectNotOk(dialog, "endvlanEdt", {11222});
        setTextIn(dialog, "endvlanEdt", "2000");
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(),
              (Texts{"QinQPassVlanStart@1.2.5.1.1=2000", "QinQPassVlanEnd@1.2.5.1.1=2000",
                     "QinQPassRowStatus@1.2.5.1.1=4"}));
    EXPECT_EQ(takeRead(), ".1.2.5.1");
    rowOf("3");
    page().mainTable->selectRow(0);
    test::click(*page().deleteBtn);
    EXPECT_EQ(takeWrite(),
              (Texts{"QinQPassVlanStart@1.2.5.1.3=100", "QinQPassVlanEnd@1.2.5.1.3=199",
                     "QinQPassRowStatus@1.2.5.1.3=6"}));
}

} // namespace
} // namespace onudesk
