// SPDX-License-Identifier: MIT
#include "pages/vlan/onu_port_vlan.h"

#include "page_test.h"
#include "pages/vlan/onu_pvid_item.h"
#include "pages/vlan/trunk_list.h"

namespace onudesk {
namespace {

using platform::PromptIcon;
using test::Box;
using test::Texts;
using namespace std::chrono_literals;

constexpr std::int32_t kItem = 612;

class PortVlanTest : public test::PageTest<TOnuPortVlan, kItem> {
protected:
    void readPorts() {
        read({"1", "0", "1", "0", ""}, "group1", 0);
        read({"2", "1", "100", "33024", "000A"}, "group1", 0);
        read({"3", "2", "200", "37120", ""}, "group1", 0);
        read({"4", "4", "1", "33024", "000A001400000015"}, "group1", 0);
        read({"1"}, "vlan mode");
    }
    void select(int row) { test::clickRow(*page().mainTable, row); }
    void selectMode(const char* mode) { choose(*page().modeComb, mode); }
    Texts cells(int row) { return page().mainTable->cells(row); }
};

TEST_F(PortVlanTest, ListsPortsWithModeTpidAndTrunkList) {
    readPorts();
    read({"5", "3", "1", "1", ""}, "group1", 0);
    read({"6", "3", "1", "1"}, "group1", 0); // too short
    read({"7", "1", "1", "1", ""}, "group2", 0);
    expectRows({{"1", "transparent", "1", "8100", ""},
                {"2", "tag", "100", "8100", ""}, // a list for trunk ports only
                {"3", "translation", "200", "9100", ""},
                {"4", "trunk", "1", "8100", "10,20,21"},
                {"5", "", "1", "0001", ""}});
    failRead();
    EXPECT_EQ(usable(), "");
    read({"1"}, "vlan mode");
    failRead();
    EXPECT_EQ(usable(), "cfgBtn refreshBtn");
    EXPECT_EQ(refresh(), ".1.2.5");
    EXPECT_EQ(usable(), "");
    expectRows({});
}

TEST_F(PortVlanTest, SomeModelsOfferTwoModesOnly) {
    const Texts all = {"tag", "translation", "transparent", "trunk"};
    const std::pair<const char*, Texts> cases[] = {
        {"epononu4470_menu.xml", {"tag", "transparent"}},
        {"epononu4590_menu.xml", {"tag", "transparent"}},
        {"EPONONU4470_menu.xml", all},
        {"epononu4470_menu.xml2", all},
        {"", all},
    };
    for (const auto& [menu, modes] : cases) {
        session.context.menuFileName = menu;
        const TOnuPortVlan model(session, kItem, nullptr);
        EXPECT_EQ(entriesOf(*model.modeComb), modes) << menu;
        EXPECT_EQ(model.modeComb->currentIndex(), -1);
    }
}

TEST_F(PortVlanTest, AClickOrKeyShowsTheRowAndAppliesItsMode) {
    readPorts();
    struct Case {
        int row;
        const char* vlan;
        bool trunk;
    };
    for (const Case& each :
         {Case{0, "-0", false}, Case{1, "100", false}, Case{3, "1", true}, Case{2, "200", false}}) {
        select(each.row);
        EXPECT_EQ(text("portEdt"), cells(each.row)[0]);
        EXPECT_EQ(text("modeComb"), cells(each.row)[1]);
        EXPECT_EQ(stateIn(page(), "vlanEdt"), each.vlan);
        EXPECT_FALSE(enabled("tpidEdit"));
        EXPECT_EQ(page().tpidEdit->isVisible(), !each.trunk);
        EXPECT_EQ(page().VlanListEdit->isVisible(), each.trunk);
        EXPECT_EQ(text("VlanListEdit"), each.trunk ? "10,20,21" : "");
        EXPECT_EQ(label("Label4"), each.trunk ? messageText(3318) : "TPID(HEX: 0-FFFF)");
    }
    select(-1);
    EXPECT_EQ(text("portEdt") + text("modeComb") + text("vlanEdt") + text("tpidEdit"), "");
    selectMode(""); // a text outside the map counts as transparent
    EXPECT_EQ(text("vlanEdt"), "0");
    select(0);
    test::key(*page().mainTable, Qt::Key_Down);
    EXPECT_EQ(text("portEdt") + " " + text("vlanEdt"), "2 100");
}

TEST_F(PortVlanTest, ConfigNeedsTheRightOnuModeThenARow) {
    readPorts();
    for (const Texts& mode : {Texts{"2"}, Texts{" 1"}, Texts{}}) {
        read(mode, "vlan mode");
        expectRefused("cfgBtn", "mainTable", {3136});
    }
    read({"1"}, "vlan mode");
    expectRefused("cfgBtn", "mainTable", {11204});
}

TEST_F(PortVlanTest, WritesWhatTheModeNeeds) {
    struct Case {
        int row;
        const char* mode;
        const char* vlan;
        const char* trunk;
        Texts written;
    };
    const Case cases[] = {
        {1,
         "transparent",
         "5",
         "",
         {"vlanMode@1.2.5.2=0", "vlanTpid@1.2.5.2=33024", "vlanRowStatus@1.2.5.2=4"}},
        {0,
         "tag",
         "4094",
         "",
         {"vlanMode@1.2.5.1=1", "vlanDefault@1.2.5.1=4094", "vlanTpid@1.2.5.1=33024",
          "vlanRowStatus@1.2.5.1=4"}},
        {2,
         "trunk",
         "7",
         "10,20-22",
         {"vlanMode@1.2.5.3=4", "vlanTrunkList@1.2.5.3=#000A0014001500160000000000000000",
          "vlanDefault@1.2.5.3=7", "vlanTpid@1.2.5.3=37120", "vlanRowStatus@1.2.5.3=4"}},
    };
    for (const Case& expected : cases) {
        refresh();
        readPorts();
        select(expected.row);
        selectMode(expected.mode);
        if (enabled("vlanEdt")) {
            setText("vlanEdt", expected.vlan);
        }
        setText("VlanListEdit", expected.trunk);
        expectConfigWrites(expected.written);
        EXPECT_FALSE(enabled("cfgBtn"));
        expectWrittenAndRead();
        readPorts();
        EXPECT_EQ(page().mainTable->selectedRow(), expected.row) << "selected again";
    }
}

TEST_F(PortVlanTest, RefusesVlansAndLists) {
    const auto plain = [](int textId) { return Box{textId, {}, 11054, PromptIcon::none}; };
    readPorts();
    select(3);
    expectChecks({{"vlanEdt", {"", "0", "4095"}, {11068, {"1", "4094"}}, "4094"},
                  {"VlanListEdit", {"1-9"}, plain(3317), ""},
                  {"VlanListEdit", {"0", "4095"}, plain(3316), ""},
                  {"VlanListEdit", {""}, {}, "1-"}});
    EXPECT_TRUE(enabled("cfgBtn"));
    test::click(*page().configBtn);
    expectBox({20029, {""}});
    setText("VlanListEdit", "5-3");
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite().at(1), "vlanTrunkList@1.2.5.4=#" + std::string(32, '0'));
}

TEST_F(PortVlanTest, TheFormFollowsARowThatIsSelectedAgain) {
    readPorts();
    select(1);
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite().size(), 4U);
    select(2); // while the answer is on its way
    setText("vlanEdt", "7");
    expectWrittenAndRead();
    readPorts();
    EXPECT_EQ(page().mainTable->selectedRow(), 1);
    EXPECT_EQ(text("portEdt"), "2");
    EXPECT_EQ(text("vlanEdt"), "100");
}

TEST_F(PortVlanTest, DoubleClickOpensTranslationsOnly) {
    readPorts();
    select(1);
    test::doubleClickRow(*page().mainTable, 1);
    EXPECT_EQ(host.pending(), 0U);
    select(2);
    QTimer::singleShot(0, &page(), [&] {
        auto* dialog = page().findChild<TOnuPvidItem*>();
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(textIn(*dialog, "portEdit"), "3");
        dialog->reject();
    });
    test::doubleClickRow(*page().mainTable, 2);
    EXPECT_EQ(takeRead(), ".1.2.5.3");
    EXPECT_EQ(takeRead(), ".1.2.5");
    EXPECT_EQ(host.routedWindow(CP_KIND_READ, kItem), page().replyHandle());
    expectRows({});
}

// The dialog on port 3, with two entries.
class PvidTest : public PortVlanTest {
protected:
    void onPort(const std::function<void(TOnuPvidItem&)>& work) {
        readPorts();
        select(2);
        inDialog<TOnuPvidItem>([&](TOnuPvidItem& dialog) {
            EXPECT_EQ(takeRead(), ".1.2.5.3");
            entry("1", {"1", "33024", "33024", "100", "200"});
            entry("2", {"2", "33024", "37120", "0", "300"});
            work(dialog);
        });
        EXPECT_EQ(takeRead(), ".1.2.5");
        EXPECT_EQ(host.pending(), 0U);
        EXPECT_EQ(host.routedWindow(CP_KIND_READ, kItem), page().replyHandle());
        EXPECT_EQ(host.routedWindow(CP_KIND_WRITE, kItem), 0U) << "not left to a closed window";
    }
    void entry(const std::string& index, Texts values, const char* group = "group2",
               std::uint32_t status = 1) {
        ASSERT_TRUE(
            host.replyRead(kItem, {.values = std::move(values),
                                   .oids = Texts{"1.3.6.1.4.1.27315.612.1.3.1.1.2.5.3." + index},
                                   .status = status,
                                   .resultText = group}));
    }
    static Texts edits(const TOnuPvidItem& dialog) {
        return {stateIn(dialog, "tpid1Edit"), stateIn(dialog, "tpid2Edit"),
                stateIn(dialog, "vlan1Edit"), stateIn(dialog, "vlan2Edit")};
    }
    static std::string requests(const TOnuPvidItem& dialog) {
        std::string names;
        for (const QPushButton* button : {dialog.addBtn, dialog.deleteBtn, dialog.refreshBtn}) {
            names += button->isEnabled() ? bytesOf(button->objectName()) : "-";
        }
        return names;
    }
};

TEST_F(PvidTest, OwnsTheReadRouteAndTakesEntriesOnly) {
    onPort([this](TOnuPvidItem& dialog) {
        EXPECT_NE(host.routedWindow(CP_KIND_READ, kItem), page().replyHandle());
        entry("9", {"9", "1", "1", "1", "1"}, "group1"); // a late reply to the page's read
        entry("9", {"9", "1", "1", "1"});
        EXPECT_EQ(page().mainTable->rowCount(), 4);
        EXPECT_EQ(dialog.mainTable->rowCount(), 2);
        EXPECT_EQ(dialog.mainTable->cells(1), (Texts{"2", "8100", "9100", "0", "300"}));
        EXPECT_EQ(bytesOf(dialog.TitlePanel->TitleLabel->text()), "Onu Pvid");
        EXPECT_EQ(stateOf(*dialog.modeComb).text, "translation");
        EXPECT_EQ(stateOf(*dialog.vlanEdt).text, "200");
        EXPECT_EQ(edits(dialog), (Texts{"-8100", "-8100", "", ""}));
        EXPECT_FALSE(dialog.portEdit->isEnabled());
        test::clickRow(*dialog.mainTable, 1);
        EXPECT_EQ(edits(dialog), (Texts{"-8100", "-9100", "0", "300"}));
    });
}

TEST_F(PvidTest, ModesEnableTheirEdits) {
    onPort([](TOnuPvidItem& dialog) {
        struct Case {
            const char* mode;
            bool vlan;
            bool translated;
        };
        const Case cases[] = {{"transparent", false, false},
                              {"trunk", false, false}, // changes nothing
                              {"tag", true, false},
                              {"translation", true, true},
                              {"trunk", true, true}};
        for (const Case& expected : cases) {
            choose(*dialog.modeComb, expected.mode);
            EXPECT_EQ(dialog.vlanEdt->isEnabled(), expected.vlan) << expected.mode;
            EXPECT_EQ(dialog.vlan1Edit->isEnabled(), expected.translated) << expected.mode;
            EXPECT_EQ(dialog.vlan2Edit->isEnabled(), expected.translated) << expected.mode;
        }
        EXPECT_EQ(stateOf(*dialog.vlanEdt).text, "0") << "set by transparent";
    });
}

TEST_F(PvidTest, RefreshWaitsForTheTimerOrTheFlag) {
    onPort([this](TOnuPvidItem& dialog) {
        test::click(*dialog.refreshBtn);
        EXPECT_EQ(takeRead(), ".1.2.5.3");
        EXPECT_EQ(dialog.mainTable->rowCount(), 0);
        EXPECT_EQ(requests(dialog), "---");
        entry("1", {"1", "1", "1", "1", "1"}, "group2", 0);
        EXPECT_EQ(requests(dialog), "---");
        entry("2", {}, "group2", 1);
        EXPECT_EQ(requests(dialog), "addBtndeleteBtnrefreshBtn");
        test::click(*dialog.refreshBtn);
        takeRead();
        test::elapse(dialog);
        EXPECT_EQ(requests(dialog), "--refreshBtn");
        dialog.refreshBtn->setEnabled(false);
        failRead();
        EXPECT_EQ(requests(dialog), "addBtndeleteBtn-");
    });
}

TEST_F(PvidTest, AddWritesTwiceAndOnlyTheSecondIsAnswered) {
    onPort([this](TOnuPvidItem& dialog) {
        test::clickRow(*dialog.mainTable, 1);
        setControlText(*dialog.vlan1Edit, "101");
        setControlText(*dialog.vlan2Edit, "200");
        desk.whilePaused = [&] {
            EXPECT_EQ(host.pending(), 1U);
            EXPECT_EQ(host.routedWindow(CP_KIND_WRITE, kItem), 0U) << "nobody hears of the first";
            for (const auto* button : dialog.findChildren<QPushButton*>()) {
                EXPECT_FALSE(button->isEnabled()) << bytesOf(button->objectName());
            }
            test::clickAt(*dialog.TitlePanel->ClosePanel, QPoint(2, 2));
            test::key(dialog, Qt::Key_Escape);
            EXPECT_TRUE(dialog.isVisible());
        };
        test::click(*dialog.addBtn);
        EXPECT_EQ(desk.pauses, std::vector<std::chrono::milliseconds>{500ms});
        const auto first = host.take();
        EXPECT_EQ(CodeParaReader(*first->record).integer(CP_FLAG_130), 0U);
        EXPECT_EQ(first->bindings.size(), 7U);
        EXPECT_EQ(first->bindings[2].value, "33024");
        const auto& values = first->bindings;
        EXPECT_EQ(values[3].oid, "1.3.6.1.4.1.27315.612.1.3.2.1.2.5.3.1");
        EXPECT_EQ(values[3].value + "," + values[4].value, "33024,37120");
        EXPECT_EQ(values[5].value + "," + values[6].value, "101,200");
        const auto second = host.take();
        EXPECT_FALSE(CodeParaReader(*second->record).has(CP_FLAG_130));
        EXPECT_EQ(second->bindings[0].value, "4");
        test::doubleClickRow(*dialog.mainTable, -1); // Add is disabled
        EXPECT_EQ(host.pending(), 0U);
        EXPECT_TRUE(dialog.cancelBtn->isEnabled());
        EXPECT_FALSE(dialog.addBtn->isEnabled());
        expectWrittenAndRead(".1.2.5.3");
        entry("1", {"1", "33024", "33024", "100", "200"});
        entry("2", {"2", "33024", "37120", "101", "200"});
        entry("3", {"3", "33024", "33024", "102", "200"});
        EXPECT_EQ(dialog.mainTable->selectedRow(), 1) << "the one just added";
    });
}

TEST_F(PvidTest, AddRefusesVlansOutOfRangeInOrder) {
    onPort([this](TOnuPvidItem& dialog) {
        for (QLineEdit* edit : {dialog.vlanEdt, dialog.vlan1Edit, dialog.vlan2Edit}) {
            setControlText(*edit, "4095");
        }
        for (QLineEdit* edit : {dialog.vlanEdt, dialog.vlan1Edit, dialog.vlan2Edit}) {
            test::click(*dialog.addBtn);
            expectBox({11068, {"1", "4094"}});
            EXPECT_EQ(dialog.focusWidget(), edit);
            setControlText(*edit, "4094");
        }
        EXPECT_EQ(host.pending(), 0U);
        setControlText(*dialog.vlan1Edit, "0");
        choose(*dialog.modeComb, "tag");
        test::click(*dialog.addBtn); // what is disabled is not checked
        EXPECT_EQ(takeWrite(), (Texts{"vlanMode@1.2.5.3=1", "vlanDefault@1.2.5.3=4094",
                                      "vlanTpid@1.2.5.3=33024"}));
        EXPECT_EQ(takeWrite(), Texts{"vlanRowStatus@1.2.5.3=4"});
    });
}

TEST_F(PvidTest, DeleteSendsTheRowsTextsToItsIndex) {
    onPort([this](TOnuPvidItem& dialog) {
        test::click(*dialog.deleteBtn); // no row
        EXPECT_EQ(host.pending(), 0U);
        test::clickRow(*dialog.mainTable, 1);
        test::click(*dialog.deleteBtn); // old VLAN 0
        expectBox({3034});
        entry("2", {"2", "33024", "37120", "5", "300"});
        test::clickRow(*dialog.mainTable, 1);
        test::click(*dialog.deleteBtn);
        EXPECT_EQ(takeWrite(),
                  (Texts{"vlanMode@1.2.5.3=2", "vlanDefault@1.2.5.3=200", "vlanTpid@1.2.5.3=8100",
                         "vlanTpid1@1.2.5.3.2=8100", "vlanTpid2@1.2.5.3.2=9100",
                         "vlanVlan1@1.2.5.3.2=5", "vlanVlan2@1.2.5.3.2=300"}));
        EXPECT_EQ(takeWrite(), Texts{"vlanRowStatus@1.2.5.3=6"});
        expectWrittenAndRead(".1.2.5.3");
        entry("1", {"1", "33024", "33024", "100", "200"});
        EXPECT_EQ(dialog.mainTable->selectedRow(), -1);
        entry("3", {"3", "33024", "33024", "100", "200"});
        EXPECT_EQ(desk.pauses.size(), 1U);
        EXPECT_EQ(dialog.mainTable->selectedRow(), 1) << "the place of the one deleted";
        EXPECT_EQ(edits(dialog), (Texts{"-8100", "-8100", "100", "200"})) << "its own texts";
    });
}

TEST_F(PvidTest, ClicksBesideTheEntriesKeepTheTexts) {
    onPort([this](TOnuPvidItem& dialog) {
        test::clickRow(*dialog.mainTable, -1);
        EXPECT_EQ(edits(dialog), (Texts{"-8100", "-8100", "", ""}));
        setControlText(*dialog.vlan1Edit, "1");
        setControlText(*dialog.vlan2Edit, "2");
        test::doubleClickRow(*dialog.mainTable, -1); // adds
        EXPECT_EQ(takeWrite().at(3), "vlanTpid1@1.2.5.3.1=33024");
        EXPECT_EQ(takeWrite().size(), 1U);
    });
}

TEST_F(PvidTest, TransparentEntriesOnlyWriteTheMode) {
    onPort([this](TOnuPvidItem& dialog) {
        choose(*dialog.modeComb, "transparent");
        test::click(*dialog.addBtn);
        EXPECT_EQ(takeWrite(), Texts{"vlanMode@1.2.5.3=0"});
        EXPECT_EQ(takeWrite(), Texts{"vlanRowStatus@1.2.5.3=4"});
    });
}

TEST_F(PvidTest, ALateAnswerToThePageLeavesTheRouteToTheDialog) {
    onPort([this](TOnuPvidItem& dialog) {
        registerWriteRoute(session, kItem, page().replyHandle());
        const std::uint32_t owner = host.routedWindow(CP_KIND_READ, kItem);
        ASSERT_TRUE(host.replyWrite(kItem, {.status = 1}));
        desk.takeBox();
        EXPECT_EQ(host.pending(), 0U);
        EXPECT_EQ(host.routedWindow(CP_KIND_READ, kItem), owner);
        EXPECT_NE(owner, page().replyHandle());
        unregisterWriteRoute(session, kItem);
        EXPECT_TRUE(dialog.isVisible());
    });
}

TEST_F(PvidTest, AFirstWriteThatCannotGoOutEndsTheClick) {
    readPorts();
    select(2);
    inDialog<TOnuPvidItem>([this](TOnuPvidItem& dialog) {
        setControlText(*dialog.vlan1Edit, "1");
        setControlText(*dialog.vlan2Edit, "2");
        host.goAway();
        test::click(*dialog.addBtn);
        EXPECT_TRUE(desk.pauses.empty()) << "no second write is to come";
        EXPECT_TRUE(dialog.addBtn->isEnabled());
    });
}

TEST(TrunkList, ParsesNumbersAndRanges) {
    const std::pair<const char*, std::set<int>> lists[] = {{"10,20-22", {10, 20, 21, 22}},
                                                           {"22,20-22,20", {20, 21, 22}},
                                                           {"5-3", {}},
                                                           {"5-3,7,", {7}},
                                                           {"4094", {4094}},
                                                           {"7x", {7}},
                                                           {"1-8", {1, 2, 3, 4, 5, 6, 7, 8}}};
    for (const auto& [text, vlans] : lists) {
        const TrunkList list = parseTrunkList(text);
        EXPECT_FALSE(list.failure) << text;
        EXPECT_EQ(list.vlans, vlans) << text;
    }
    const std::pair<int, std::vector<const char*>> failures[] = {
        {3317, {"1-9"}},
        {3316, {"0", "4095", "4090-4095", "1,,2", ",", "x", "1-2000000000", "0-3"}},
        {20029, {"1-", "-5", "1-2-3", "1-2x", "1-9999999999"}},
        {0, {""}}, // only the focus moves
    };
    for (const auto& [textId, texts] : failures) {
        for (const char* text : texts) {
            const TrunkList list = parseTrunkList(text);
            ASSERT_TRUE(list.failure) << text;
            EXPECT_EQ(list.failure->textId, textId) << text;
        }
    }
}

TEST(TrunkList, BytesAndDigits) {
    EXPECT_EQ(trunkBytes({}), std::string(16, '\0'));
    EXPECT_EQ(trunkBytes({4094}), std::string("\x0F\xFE", 2) + std::string(14, '\0'));
    EXPECT_EQ(trunkText("000A0014"), "10,20");
    EXPECT_EQ(trunkText("0000000a00140"), "10,20");
    EXPECT_EQ(trunkText(""), "");
}

} // namespace
} // namespace onudesk
