// SPDX-License-Identifier: MIT
//
// The two lists of VLAN ranges, and the set of VLANs that their rows use.
#include "pages/qinq/onu_svlan_insert.h"
#include "pages/qinq/onu_svlan_pass_through.h"

#include "page_test.h"

namespace onudesk {
namespace {

using test::Box;
using test::Texts;

TEST(VlanSets, HoldBothEndsOfWhatAreVlans) {
    VlanSet set;
    struct Range {
        const char* first;
        const char* last;
    };
    for (const Range& range : {Range{"10", "12"},
                               {"300", "300"},
                               {"50", "40"},
                               {"", "60"},
                               {"70", ""},
                               {"x", "80"},
                               {"4090", "9223372036854775807"},
                               {"-9223372036854775808", "1"}}) {
        set.add(range.first, range.last);
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

// What is the same on both pages is tested on each.
template <typename Page, typename Item, std::int32_t ItemType>
class RangesTest : public test::PageTest<Page, ItemType> {
protected:
    // A port's rows as the ONU reports them.
    struct Flags {
        std::string full = "0";
        std::string blocked = "0";
        std::string mode{};
        std::string ports = "3";
    };

    using test::PageTest<Page, ItemType>::page;
    void rowOf(const std::string& index, const Texts& values) {
        this->readRow(index, values, "maintable", 0);
    }
    void setEdit(Item& dialog, const char* name, const std::string& value) {
        setControlText(*dialog.template findChild<QLineEdit*>(QString::fromLatin1(name)), value);
    }
    // Presses OK: what it would refuse shows the box and leaves the focus on the edit.
    void expectNotOk(Item& dialog, const char* edit, const Box& box) {
        test::click(*dialog.okBtn);
        this->expectBox(box);
        EXPECT_EQ(bytesOf(dialog.focusWidget()->objectName()), edit);
        EXPECT_EQ(this->host.pending(), 0U);
    }
    void choosePort(const char* port) {
        selectByText(*page().portComb, port);
        Q_EMIT page().portComb->activated(page().portComb->currentIndex());
        EXPECT_EQ(this->takeRead(), std::string(".1.2.5.") + port);
    }
};

class InsertTest : public RangesTest<TOnuSVlanInsert, TOnuSVlanInsertItem, 647> {
protected:
    static Texts insert(const Texts& range, const Flags& flags = {},
                        const Texts& other = {"0", "0"}) {
        return {flags.full, range[0], range[1], "1000",      flags.blocked,
                "1",        other[0], other[1], flags.ports, flags.mode.empty() ? "2" : flags.mode};
    }
    void add(const std::function<void(TOnuSVlanInsertItem&)>& work) {
        inDialog<TOnuSVlanInsertItem>(work);
    }
};

class PassTest : public RangesTest<TOnuSVlanPassThrough, TOnuSVlanPassThroughItem, 648> {
protected:
    static Texts pass(const Texts& range, const Flags& flags = {},
                      const Texts& other = {"0", "0"}) {
        return {flags.full,    range[0], range[1],
                other[0],      other[1], flags.mode.empty() ? "0" : flags.mode,
                flags.blocked, "1",      flags.ports};
    }
};

const Box kNotFlexible{3047, {}, 11054, platform::PromptIcon::information};
const Box kOff{3048, {}, 11054, platform::PromptIcon::information};
const Box kFull{11224, {}, 11054, platform::PromptIcon::warning, "150!"};
const Box kBlocked{3049};

TEST_F(InsertTest, ListsTheRangesOfAPort) {
    Texts nine = insert({"100", "199"});
    nine.pop_back();
    rowOf("1", nine);
    EXPECT_EQ(page().mainTable->rowCount() + page().portComb->count(), 0);
    readRow("1", insert({"100", "199"}), "othertable");
    ASSERT_TRUE(host.replyRead(647, {.values = insert({"1", "4094"}),
                                     .oids = Texts{"no point"},
                                     .status = 1,
                                     .resultText = "maintable"}));
    EXPECT_EQ(page().mainTable->rowCount() + page().portComb->count(), 0)
        << "a name without a point is none of a row";
    rowOf("4", insert({"100", "199"}));
    EXPECT_EQ(page().mainTable->cells(0), (Texts{"4", "100", "199", "1000"}));
    EXPECT_EQ(page().portComb->count(), 3) << "no \"all\"";
    EXPECT_FALSE(session.PortPending) << "the first read is for no port";
    EXPECT_TRUE(enabled("cfgBtn") && enabled("deleteBtn")) << "whatever the flag";
    choosePort("3");
    EXPECT_FALSE(enabled("cfgBtn") || enabled("deleteBtn") || enabled("refreshBtn"));
    EXPECT_EQ(page().mainTable->rowCount(), 0);
    failRead();
    EXPECT_TRUE(enabled("cfgBtn") && enabled("deleteBtn"));
}

TEST_F(PassTest, ListsTheRangesOfAPort) {
    Texts eight = pass({"100", "199"});
    eight.pop_back();
    rowOf("1", eight);
    EXPECT_EQ(page().mainTable->rowCount(), 0);
    rowOf("2", pass({"100", "199"}));
    EXPECT_EQ(page().mainTable->cells(0), (Texts{"2", "100", "199"}));
    EXPECT_EQ(page().portComb->count(), 3);
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
    add([this](TOnuSVlanInsertItem& dialog) {
        EXPECT_EQ(bytesOf(dialog.TitlePanel->TitleLabel->text()), "Onu SVlan Insert");
        EXPECT_EQ(stateOf(*dialog.findChild<QLineEdit*>(QStringLiteral("portnoEdt"))).text, "2");
        test::click(*dialog.cancelBtn);
    });
    EXPECT_EQ(takeRead(), ".1.2.5.2");
    EXPECT_EQ(host.pending(), 0U);
}

TEST_F(PassTest, StateFullAndBlockedRefuseInThisOrder) {
    const std::pair<Flags, Box> cases[] = {{{"1", "1", "1"}, kNotFlexible},
                                           {{"1", "1", "2"}, kOff},
                                           {{"1", "1", "0"}, kFull},
                                           {{"1", "0", "3"}, kFull},
                                           {{"0", "1", "0"}, kBlocked}};
    for (const auto& [flags, refusal] : cases) {
        rowOf("1", pass({"3", "4"}, flags));
        expectRefused("cfgBtn", "mainTable", refusal);
    }
    test::elapse(page());
    test::click(*page().refreshBtn);
    takeRead();
    readRow("1", pass({"3", "4"}, {"0", "0", "3"}), "maintable");
    QTimer::singleShot(0, &page(),
                       [this] { page().findChild<TOnuSVlanPassThroughItem*>()->reject(); });
    test::doubleClickAt(*page().mainTable->viewport(),
                        page().mainTable->visualItemRect(page().mainTable->item(0, 0)).center());
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
            setEdit(dialog, "startvlanEdt", each.start);
            setEdit(dialog, "endvlanEdt", each.end);
            setEdit(dialog, "outervlanEdt", each.outer);
            expectNotOk(dialog, each.focus, each.refusal);
        }
        setEdit(dialog, "startvlanEdt", "19"); // with others between the ends
        setEdit(dialog, "endvlanEdt", "4094");
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
    add([this](TOnuSVlanInsertItem& dialog) {
        setEdit(dialog, "startvlanEdt", "0050");
        setEdit(dialog, "endvlanEdt", "50");
        setEdit(dialog, "outervlanEdt", "4094");
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite().front(), "QinQInsertCvlanStart@1.2.5.2.1=0050");
    EXPECT_EQ(host.routedWindow(CP_KIND_WRITE, 647), page().replyHandle());
    EXPECT_EQ(takeRead(), ".1.2.5.2") << "the dialog has closed";
    expectWrittenAndRead(".1.2.5.2");
    const auto readBoth = [this] {
        rowOf("1", insert({"1", "1"}));
        rowOf("2", insert({"50", "50"}));
    };
    readBoth();
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
            setEdit(dialog, "startvlanEdt", used);
            expectNotOk(dialog, "startvlanEdt", {3046});
        }
        setEdit(dialog, "startvlanEdt", "8");
        setEdit(dialog, "endvlanEdt", "150");
        setEdit(dialog, "outervlanEdt", "150");
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
    EXPECT_FALSE(enabled("cfgBtn") || enabled("deleteBtn") || enabled("refreshBtn"));
    expectWrittenAndRead(".1.2.5.1");
    rowOf("8", insert({"200", "200"}));
    EXPECT_EQ(page().mainTable->selectedRow(), 0) << "the place is remembered";
}

TEST_F(PassTest, RangesHaveNoOuterVlan) {
    rowOf("3", pass({"100", "199"}, {}, {"1", "10"}));
    inDialog<TOnuSVlanPassThroughItem>([this](TOnuSVlanPassThroughItem& dialog) {
        EXPECT_EQ(bytesOf(dialog.TitlePanel->TitleLabel->text()), "Onu SVlan PassThrough");
        EXPECT_EQ(dialog.findChildren<QLineEdit*>().size(), 3);
        setEdit(dialog, "startvlanEdt", "10");
        expectNotOk(dialog, "startvlanEdt", {3046});
        setEdit(dialog, "startvlanEdt", "");
        auto* start = dialog.findChild<QLineEdit*>(QStringLiteral("startvlanEdt"));
        test::type(*start, QStringLiteral("a20009"));
        EXPECT_EQ(stateOf(*start).text, "2000") << "four digits";
        setEdit(dialog, "endvlanEdt", "1999");
        expectNotOk(dialog, "endvlanEdt", {11222});
        setEdit(dialog, "endvlanEdt", "2000");
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(),
              (Texts{"QinQPassVlanStart@1.2.5.1.1=2000", "QinQPassVlanEnd@1.2.5.1.1=2000",
                     "QinQPassRowStatus@1.2.5.1.1=4"}));
    EXPECT_EQ(takeRead(), ".1.2.5.1");
    rowOf("3", pass({"100", "199"}));
    page().mainTable->selectRow(0);
    test::click(*page().deleteBtn);
    EXPECT_EQ(takeWrite(),
              (Texts{"QinQPassVlanStart@1.2.5.1.3=100", "QinQPassVlanEnd@1.2.5.1.3=199",
                     "QinQPassRowStatus@1.2.5.1.3=6"}));
}

} // namespace
} // namespace onudesk
