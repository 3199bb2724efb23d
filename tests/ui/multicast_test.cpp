// SPDX-License-Identifier: MIT
//
// Multicast mode, controllable multicast, IGMP limits and report tagging.
#include "pages/multicast/onu_control_multi.h"
#include "pages/multicast/onu_multi_igmp.h"
#include "pages/multicast/onu_multi_report.h"
#include "pages/multicast/onu_multicast_base.h"

#include "page_test.h"

namespace onudesk {
namespace {

using platform::PromptIcon;
using test::Box;
using test::Texts;

class MulticastBaseTest : public test::PageTest<TOnuMulticastBase, 624> {
protected:
    Texts shownTexts() { return {text("modeComb"), text("fastleaveComb")}; }
};

TEST_F(MulticastBaseTest, ShowsTheCodesOfItsGroupAndWritesBoth) {
    EXPECT_EQ(usable(), "");
    read({"0", "2"}, "maintable", 0);
    EXPECT_EQ(usable(), "configBtn") << "whatever the flag";
    read({"1"}, "maintable");
    read({"1", "1"}, "group1");
    EXPECT_EQ(shownTexts(), (Texts{"IGMP", "On"}));
    read({"1", "1"}, "maintable");
    EXPECT_EQ(shownTexts(), (Texts{"Controllable", "Off"}));
    setText("fastleaveComb", "On");
    expectConfigWrites({"onuMultiMode@1.2.5=1", "onuMultiFastLeave@1.2.5=2"});
    expectWrittenAndRead();
    read({"2", "0"}, "maintable");
    EXPECT_EQ(shownTexts(), Texts(2)) << "unknown codes select nothing";
}

class ControlMultiTest : public test::PageTest<TOnuControlMulti, 621> {
protected:
    void readSlot(const std::string& index, const std::string& mac, const std::string& vlan,
                  const std::string& type, const std::string& flag = "1",
                  const std::string& column = "1.3.6.1.4.1.27315.1.9.6.3.1.1") {
        page();
        ASSERT_TRUE(host.replyRead(621, {.values = Texts{index, mac, vlan, type, "4", flag, "1"},
                                         .oids = Texts{column + ".1.2.5.3." + index},
                                         .status = 0,
                                         .resultText = "maintable"}));
    }
    // Slot 1 is filled, slot 2 empty.
    void readSlots(const std::string& flag = "1") {
        readSlot("1", "01005e010203", "100", "1", flag);
        readSlot("2", "000000000000", "0", "0", flag);
    }
    void chooseRead(const char* port) {
        choosePort(port);
        readSlots();
    }
    static Texts state(const TOnuControlMultiItem& dialog) {
        Texts texts;
        for (const char* name : {"portEdit", "indexEdit", "macMaskEdit", "vlanEdit", "typeComb"}) {
            texts.push_back(stateIn(dialog, name));
        }
        return texts;
    }
    const Box locked_{3039, {}, 113};
};

TEST_F(ControlMultiTest, ListsTheSlotsOfAPort) {
    readRow("1", {"1", "01005e010203", "100", "1", "4", "1"}, "maintable");
    readRow("1", Texts(7, "1"), "group1");
    EXPECT_EQ(page().portComb->count(), 0);
    readSlot("1", "01005e010203", "100", "1");
    readSlot("2", std::string("\x01\x00\x5E\x7F\xFF\x00", 6), "4094", "0");
    readSlot("3", "01005", "0", "7", "1", "1.3.6.1.4.1.27315.1.9.6.3.1.2");
    expectRows({{"1", "01:00:5e:01:02:03", "100", "Preview", "1.2.5.3.1"},
                {"2", "01:00:5e:7f:ff:00", "4094", "Permit", "1.2.5.3.2"},
                {"3", "01005", "0", "", ""}}); // of another column
    EXPECT_TRUE(page().mainTable->isColumnHidden(4));
    EXPECT_EQ(page().portComb->count(), 4) << "no port stands for all";
    const auto* object = lookup(page().catalogue(), "maintable", "multiMacIndex");
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->oidstr, "1.3.6.1.4.1.27315.1.9.6.3.1.1") << "the column the page knows";
}

TEST_F(ControlMultiTest, EveryReplyGivesConfigAndDeleteBack) {
    EXPECT_EQ(usable(), "");
    readSlots(); // flag 0
    EXPECT_EQ(usable(), "cfgBtn deleteBtn");
    EXPECT_EQ(refresh(), ".1.2.5.1");
    EXPECT_EQ(usable(), "");
    expectRows({});
    EXPECT_EQ(text("portComb"), "1");
    failRead();
    EXPECT_EQ(usable(), "cfgBtn deleteBtn");
    choosePort("3");
}

TEST_F(ControlMultiTest, ConfigNeedsAControllablePortThenARow) {
    readSlot("1", "01005e010203", "100", "1", "1");
    expectRefused("cfgBtn", "mainTable", {11204});
    readSlot("2", "01005e010204", "100", "1", "0"); // the last row counts
    expectRefused("cfgBtn", "mainTable", locked_);
    page().mainTable->selectRow(0);
    expectRefused("cfgBtn", "mainTable", locked_);
    Q_EMIT page().mainTable->onDoubleClick();
    expectBox(locked_);
    refresh();
    test::click(*page().configBtn); // disabled
    expectBox({});
    readSlots("2");
    expectRefused("cfgBtn", "mainTable", locked_);
    readSlots("1");
    inDialog<TOnuControlMultiItem>(0);
}

TEST_F(ControlMultiTest, FilledSlotsKeepTheirAddress) {
    readSlots();
    chooseRead("3");
    inDialog<TOnuControlMultiItem>(0, [&](TOnuControlMultiItem& dialog) {
        EXPECT_EQ(bytesOf(dialog.TitlePanel->TitleLabel->text()), "Onu Control Multi");
        EXPECT_EQ(state(dialog), (Texts{"-3", "-1", "-01:00:5e:01:02:03", "100", "Preview"}));
        setTextIn(dialog, "vlanEdit", "4094");
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(), (Texts{"multiMacIndex@1.2.5.3.1=1", "multiMac@1.2.5.3.1=#01005E010203",
                                  "multiVlan@1.2.5.3.1=4094", "multiType@1.2.5.3.1=1",
                                  "multiRowStatus@1.2.5.3.1=4"}));
    EXPECT_EQ(takeRead(), ".1.2.5.3") << "closing the dialog reads again";
    expectWrittenAndRead(".1.2.5.3");
    readSlots();
    EXPECT_EQ(page().mainTable->selectedRow(), 0);
    inDialog<TOnuControlMultiItem>(1, [&](TOnuControlMultiItem& dialog) {
        EXPECT_EQ(state(dialog), (Texts{"-3", "-2", "01:00:5E:  :  :  ", "0", "Permit"}));
    });
    EXPECT_EQ(takeRead(), ".1.2.5.3");
    expectRows({});
}

TEST_F(ControlMultiTest, OkChecksTheAddressThenTheVlan) {
    readSlot("1", "000000000000", "100", "1"); // what the ONU holds is checked, too
    inDialog<TOnuControlMultiItem>(0, [&](TOnuControlMultiItem& dialog) {
        setTextIn(dialog, "vlanEdit", "0");
        test::click(*dialog.okBtn);
        EXPECT_TRUE(dialog.isVisible());
    });
    expectBox({3029, {}, 113});
    takeRead();
    readSlots();
    inDialog<TOnuControlMultiItem>(1, [&](TOnuControlMultiItem& dialog) {
        expectChecks(dialog, {{"macMaskEdit", {"01:00:5g:01:02:03"}, {3036, {}, 113}, ""},
                              {"macMaskEdit", {"00:00:00:00:00:00"}, {3029, {}, 113}, ""},
                              {"macMaskEdit",
                               {"01:00:5F:01:02:03", "00:00:5E:01:02:03"},
                               {3041, {}, 113},
                               "01:00:5e:01:02:03"},
                              {"vlanEdit", {"", "0", "4095"}, {11068, {"1", "4094"}}, "1"}});
        setTextIn(dialog, "macMaskEdit", "01:00:5E:a:  :  ");
        setTextIn(dialog, "typeComb", "Preview");
        test::click(*dialog.okBtn);
        EXPECT_EQ(dialog.result(), QDialog::Accepted);
    });
    EXPECT_EQ(takeWrite().at(1), "multiMac@1.2.5.1.2=#01005EA00000") << "blanks are zeros";
}

TEST_F(ControlMultiTest, DeleteAsksAndWritesToTheRowsInstance) {
    readSlots();
    expectRefused("deleteBtn", "mainTable", {11204});
    page().mainTable->selectRow(0);
    expectDeclined("deleteBtn", 11057, messageText(11058));
    desk.whileOpen = [this] { page().mainTable->clearRows(); };
    test::click(*page().deleteBtn);
    desk.whileOpen = nullptr;
    desk.takeBox();
    EXPECT_EQ(takeWrite(), (Texts{"multiMacIndex@1.2.5.3.1=1", "multiMac@1.2.5.3.1=#01005E010203",
                                  "multiVlan@1.2.5.3.1=100", "multiType@1.2.5.3.1=1",
                                  "multiRowStatus@1.2.5.3.1=6"}))
        << "of the row as it was, whatever port is chosen";
    EXPECT_FALSE(enabled("cfgBtn") || enabled("refreshBtn"));
    desk.answer = platform::PromptAnswer::ok;
    expectWrittenAndRead(".1.2.5.1");
    readSlot("1", "01005e010203", "100", "1", "0", "1.3.6.1.2.1");
    EXPECT_EQ(page().mainTable->selectedRow(), 0);
    expectRefused("deleteBtn", "mainTable", {11204}); // no instance
}

class MultiReportTest : public test::PageTest<TOnuMultiReport, 625> {};

TEST_F(MultiReportTest, WritesTheTagOfTheRowsPort) {
    const auto readPorts = [this] {
        readRow("1", {"0"}, "maintable", 0);
        readRow("2", {"1"}, "maintable", 0);
        readRow("3", {"2"}, "maintable", 0);
    };
    readRow("1", {}, "maintable");
    readRow("1", {"1"}, "group1");
    read({"1"}, "maintable"); // no port
    expectRows({});
    readPorts();
    expectRows({{"1", "unTag"}, {"2", "Tag"}, {"3", ""}});
    EXPECT_EQ(usable(), "cfgBtn");
    expectRefused("cfgBtn", "mainTable", {11204});
    expectRowEdited<TOnuMultiReportItem>(1,
                                         {"Onu Multi Report",
                                          {{"tagComb", "Tag"}},
                                          {{"tagComb", "unTag"}},
                                          {"lanMultiTag@1.2.5.2=0"}},
                                         readPorts);
}

class MultiIgmpTest : public test::PageTest<TOnuMultiIGMP, 626> {
protected:
    // Port 1 has room for ten groups and seven VLANs; the list of port 2 is not one.
    void readPorts() {
        readRow("1", {"10", "8,9,11-15", "1"}, "maintable", 0);
        readRow("2", {"2", "x", "1"}, "maintable", 0);
    }
    void onRow(int row, const std::function<void(TOnuMultiIGMPItem&)>& work) {
        readPorts();
        inDialog<TOnuMultiIGMPItem>(row, work);
    }
    // Presses a button while the memo has that text; what refuses leaves the focus there.
    void expectListRefused(TOnuMultiIGMPItem& dialog, QPushButton& button, const std::string& list,
                           const Box& box) {
        setControlText(*dialog.vlanlistMemo, list);
        button.setFocus();
        test::click(button);
        expectBox(box);
        EXPECT_EQ(dialog.focusWidget(), dialog.vlanlistMemo) << list;
        EXPECT_TRUE(dialog.isVisible()) << list;
        EXPECT_EQ(host.pending(), 0U) << list;
    }
};

TEST_F(MultiIgmpTest, ListsPortsAndOpensNoneWhileLocked) {
    readRow("1", {"10"}, "maintable");
    read({"10", "8"}, "maintable"); // no port
    expectRows({});
    readPorts();
    expectRows({{"1", "10", "8,9,11-15"}, {"2", "2", "x"}});
    EXPECT_EQ(usable(), "cfgBtn");
    expectRefused("cfgBtn", "mainTable", {11204});
    const Box locked = {3040, {}, 113};
    read({"1"}, "group1");
    expectRefused("cfgBtn", "mainTable", locked);
    page().mainTable->selectRow(0);
    for (const char* lock : {"2", "-1"}) {
        read({lock}, "group1");
        expectRefused("cfgBtn", "mainTable", locked);
    }
    read({}, "group1");
    read({"0"}, "group2");
    refresh();
    readPorts();
    expectRefused("cfgBtn", "mainTable", locked); // until the ONU says otherwise
    read({"0"}, "group1");
    inDialog<TOnuMultiIGMPItem>(0);
}

TEST_F(MultiIgmpTest, TheRadioButtonsChooseWhatIsEdited) {
    onRow(0, [&](TOnuMultiIGMPItem& dialog) {
        EXPECT_EQ(bytesOf(dialog.TitlePanel->TitleLabel->text()), "Onu MultiI GMP");
        EXPECT_EQ(textIn(dialog, "portEdit"), "1");
        EXPECT_EQ(textIn(dialog, "maxGroupEdit"), "10");
        EXPECT_EQ(textIn(dialog, "vlanlistMemo"), "8,9,11-15");
        auto& maximum = in<QRadioButton>(dialog, "maxGroupRabtn");
        EXPECT_TRUE(maximum.isChecked());
        for (const bool byList : {false, true, false}) {
            test::click(byList ? *dialog.vlanlistRabtn : maximum);
            EXPECT_EQ(dialog.maxGroupEdit->isEnabled(), !byList);
            EXPECT_EQ(dialog.vlanlistMemo->isEnabled(), byList);
            EXPECT_EQ(dialog.deleteBtn->isEnabled(), byList);
        }
    });
}

TEST_F(MultiIgmpTest, OkWritesTheMaximum) {
    onRow(1, [&](TOnuMultiIGMPItem& dialog) {
        expectChecks(dialog, {{"maxGroupEdit", {"", "0", "256"}, {11068, {"1", "255"}}, "255"}});
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(), Texts{"lanMultiMaxGrp@1.2.5.2=255"});
    takeRead();
    expectWrittenAndRead();
    readPorts();
    EXPECT_EQ(page().mainTable->selectedRow(), 1);
}

TEST_F(MultiIgmpTest, ListsAreCheckedBeforeTheyAreAddedOrDeleted) {
    onRow(0, [&](TOnuMultiIGMPItem& dialog) {
        test::click(*dialog.vlanlistRabtn);
        for (QPushButton* button : {dialog.okBtn, dialog.deleteBtn}) {
            expectListRefused(dialog, *button, "", {});
            for (const char* bad : {" ", ",", "0", "4095", "1-x", "15-11"}) {
                expectListRefused(dialog, *button, bad, {3044});
            }
            expectListRefused(dialog, *button, "1-9", {3042});
        }
        setControlText(*dialog.maxGroupEdit, "n/a"); // does not matter to Delete
        setControlText(*dialog.vlanlistMemo, "8, 11-13 ,8,15-14");
        test::click(*dialog.deleteBtn);
        EXPECT_EQ(dialog.result(), QDialog::Accepted);
    });
    EXPECT_EQ(takeWrite(),
              (Texts{"lanMultiVlanList@1.2.5.1=8,11,12,13", "lanMultiRowStatus@1.2.5.1=6"}));
    takeRead();
    expectWrittenAndRead();
}

TEST_F(MultiIgmpTest, AddedVlansMustFitTheMaximum) {
    struct Case {
        int row;
        const char* list;
        const char* maximum; // refused with it; null: written
        const char* entered; // maximum, unless null
    };
    const Case cases[] = {
        {0, "8,9,11-15", nullptr, nullptr}, // listed already
        {0, "8, 1-3,15-11", nullptr, nullptr},
        {0, "1-4", "10", nullptr},
        {0, "8,1-4", "10", nullptr},
        {0, "1", "7", "7"}, // the maximum is the one in the dialog
        {1, "5,6", nullptr, nullptr},
        {1, "1-3", "2", nullptr},
    };
    for (const Case& each : cases) {
        onRow(each.row, [&](TOnuMultiIGMPItem& dialog) {
            if (each.entered != nullptr) {
                setControlText(*dialog.maxGroupEdit, each.entered);
            }
            test::click(*dialog.vlanlistRabtn);
            if (each.maximum != nullptr) {
                expectListRefused(dialog, *dialog.okBtn, each.list,
                                  {3043, {}, 11054, PromptIcon::warning, each.maximum});
                return;
            }
            setControlText(*dialog.vlanlistMemo, each.list);
            test::click(*dialog.okBtn);
        });
        if (each.maximum == nullptr) {
            const std::string at = "@1.2.5." + std::to_string(each.row + 1) + "=";
            EXPECT_EQ(takeWrite(),
                      (Texts{"lanMultiVlanList" + at + each.list, "lanMultiRowStatus" + at + "4"}));
        }
        EXPECT_EQ(takeRead(), ".1.2.5");
        EXPECT_EQ(host.pending(), 0U) << each.list;
    }
}

} // namespace
} // namespace onudesk
