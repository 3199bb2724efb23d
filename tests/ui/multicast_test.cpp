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

using test::Box;
using test::Texts;

class MulticastBaseTest : public test::PageTest<TOnuMulticastBase, 624> {
protected:
    Texts shownTexts() { return {text("modeComb"), text("fastleaveComb")}; }
};

TEST_F(MulticastBaseTest, ShowsTheCodesOfItsGroup) {
    EXPECT_FALSE(enabled("configBtn") || enabled("refreshBtn"));
    read({"0", "2"}, "maintable", 0);
    EXPECT_EQ(shownTexts(), (Texts{"IGMP", "On"}));
    EXPECT_TRUE(enabled("configBtn")) << "whatever the flag";
    EXPECT_FALSE(enabled("refreshBtn"));
    read({"1"}, "maintable");
    read({"1", "1"}, "group1");
    EXPECT_EQ(shownTexts(), (Texts{"IGMP", "On"}));
    read({"1", "1"}, "maintable");
    EXPECT_EQ(shownTexts(), (Texts{"Controllable", "Off"}));
    read({"2", "0"}, "maintable");
    EXPECT_EQ(shownTexts(), Texts(2)) << "unknown codes select nothing";
}

TEST_F(MulticastBaseTest, WritesBothCodes) {
    read({"0", "1"}, "maintable");
    selectByText(control<QComboBox>("modeComb"), "Controllable");
    selectByText(control<QComboBox>("fastleaveComb"), "On");
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), (Texts{"onuMultiMode@1.2.5=1", "onuMultiFastLeave@1.2.5=2"}));
    expectWrittenAndRead();
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
    void choosePort(const char* port) {
        selectByText(*page().portComb, port);
        Q_EMIT page().portComb->activated(page().portComb->currentIndex());
        EXPECT_EQ(takeRead(), std::string(".1.2.5.") + port);
        readSlots();
    }
    void onRow(int row, const std::function<void(TOnuControlMultiItem&)>& work) {
        page().mainTable->selectRow(row);
        inDialog<TOnuControlMultiItem>(work);
    }
    static QWidget& in(TOnuControlMultiItem& dialog, const char* name) {
        return *dialog.findChild<QWidget*>(QString::fromLatin1(name));
    }
    // Text of every control, "-" before those that are disabled.
    static Texts state(TOnuControlMultiItem& dialog) {
        Texts texts;
        for (const char* name : {"portEdit", "indexEdit", "macMaskEdit", "vlanEdit", "typeComb"}) {
            const QWidget& control = in(dialog, name);
            texts.push_back((control.isEnabled() ? "" : "-") + stateOf(control).text);
        }
        return texts;
    }
};

TEST_F(ControlMultiTest, ListsTheSlotsOfAPort) {
    readRow("1", {"1", "01005e010203", "100", "1", "4", "1"}, "maintable");
    readRow("1", Texts(7, "1"), "group1");
    EXPECT_EQ(page().mainTable->rowCount(), 0);
    EXPECT_EQ(page().portComb->count(), 0);
    readSlot("1", "01005e010203", "100", "1");
    readSlot("2", std::string("\x01\x00\x5E\x7F\xFF\x00", 6), "4094", "0");
    readSlot("3", "01005", "0", "7", "1", "1.3.6.1.4.1.27315.1.9.6.3.1.2");
    const RowTable& table = *page().mainTable;
    EXPECT_EQ(table.cells(0), (Texts{"1", "01:00:5e:01:02:03", "100", "Preview", "1.2.5.3.1"}));
    EXPECT_EQ(table.cells(1), (Texts{"2", "01:00:5e:7f:ff:00", "4094", "Permit", "1.2.5.3.2"}));
    EXPECT_EQ(table.cells(2), (Texts{"3", "01005", "0", "", ""})) << "of another column";
    EXPECT_TRUE(table.isColumnHidden(4));
    EXPECT_EQ(page().portComb->count(), 4) << "no port stands for all";
    const auto* object = lookup(page().catalogue(), "maintable", "multiMacIndex");
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->oidstr, "1.3.6.1.4.1.27315.1.9.6.3.1.1") << "the column the page knows";
}

TEST_F(ControlMultiTest, EveryReplyGivesConfigAndDeleteBack) {
    EXPECT_FALSE(enabled("cfgBtn") || enabled("deleteBtn") || enabled("refreshBtn"));
    readSlots(); // flag 0
    EXPECT_TRUE(enabled("cfgBtn") && enabled("deleteBtn"));
    EXPECT_FALSE(enabled("refreshBtn"));
    test::elapse(page());
    test::click(*page().refreshBtn);
    EXPECT_EQ(takeRead(), ".1.2.5.1");
    EXPECT_FALSE(enabled("cfgBtn") || enabled("deleteBtn") || enabled("refreshBtn"));
    EXPECT_EQ(page().mainTable->rowCount(), 0);
    EXPECT_EQ(text("portComb"), "1");
    failRead();
    EXPECT_TRUE(enabled("cfgBtn") && enabled("deleteBtn"));
    choosePort("3");
}

TEST_F(ControlMultiTest, ConfigNeedsAControllablePortThenARow) {
    const Box locked = {3039, {}, 113};
    readSlot("1", "01005e010203", "100", "1", "1");
    expectRefused("cfgBtn", "mainTable", {11204});
    readSlot("2", "01005e010204", "100", "1", "0"); // the last row counts
    expectRefused("cfgBtn", "mainTable", locked);
    page().mainTable->selectRow(0);
    expectRefused("cfgBtn", "mainTable", locked);
    Q_EMIT page().mainTable->onDoubleClick();
    expectBox(locked);
    page().refreshBtnClick();
    takeRead();
    test::click(*page().configBtn); // disabled
    expectBox({});
    readSlots("2");
    expectRefused("cfgBtn", "mainTable", locked);
    readSlots("1");
    page().mainTable->selectRow(0);
    inDialog<TOnuControlMultiItem>([](TOnuControlMultiItem&) {});
}

TEST_F(ControlMultiTest, FilledSlotsKeepTheirAddress) {
    readSlots();
    choosePort("3");
    onRow(0, [&](TOnuControlMultiItem& dialog) {
        EXPECT_EQ(bytesOf(dialog.TitlePanel->TitleLabel->text()), "Onu Control Multi");
        EXPECT_EQ(state(dialog), (Texts{"-3", "-1", "-01:00:5e:01:02:03", "100", "Preview"}));
        setControlText(in(dialog, "vlanEdit"), "4094");
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(), (Texts{"multiMacIndex@1.2.5.3.1=1", "multiMac@1.2.5.3.1=#01005E010203",
                                  "multiVlan@1.2.5.3.1=4094", "multiType@1.2.5.3.1=1",
                                  "multiRowStatus@1.2.5.3.1=4"}));
    EXPECT_EQ(takeRead(), ".1.2.5.3") << "closing the dialog reads again";
    expectWrittenAndRead(".1.2.5.3");
    readSlots();
    EXPECT_EQ(page().mainTable->selectedRow(), 0);
    onRow(1, [&](TOnuControlMultiItem& dialog) {
        EXPECT_EQ(state(dialog), (Texts{"-3", "-2", "01:00:5E:  :  :  ", "0", "Permit"}));
    });
    EXPECT_EQ(takeRead(), ".1.2.5.3");
    EXPECT_EQ(page().mainTable->rowCount(), 0);
}

// What the ONU holds need not be an address that it takes.
TEST_F(ControlMultiTest, AFilledSlotsAddressIsCheckedToo) {
    readSlot("1", "000000000000", "100", "1");
    onRow(0, [&](TOnuControlMultiItem& dialog) {
        setControlText(in(dialog, "vlanEdit"), "0"); // later
        test::click(*dialog.okBtn);
        EXPECT_TRUE(dialog.isVisible());
    });
    expectBox({3029, {}, 113});
}

TEST_F(ControlMultiTest, OkChecksTheAddressThenTheVlan) {
    struct Case {
        const char* mac;
        const char* vlan;
        Box box;
        const char* focus;
    };
    const Case cases[] = {
        {"01:00:5g:01:02:03", "0", {3036, {}, 113}, "macMaskEdit"},
        {"00:00:00:00:00:00", "0", {3029, {}, 113}, "macMaskEdit"},
        {"01:00:5F:01:02:03", "0", {3041, {}, 113}, "macMaskEdit"},
        {"00:00:5E:01:02:03", "0", {3041, {}, 113}, "macMaskEdit"},
        {"01:00:5E:01:02:03", "", {11068, {"1", "4094"}}, "vlanEdit"},
        {"01:00:5E:01:02:03", "0", {11068, {"1", "4094"}}, "vlanEdit"},
        {"01:00:5e:01:02:03", "4095", {11068, {"1", "4094"}}, "vlanEdit"},
    };
    readSlots();
    onRow(1, [&](TOnuControlMultiItem& dialog) {
        for (const Case& each : cases) {
            setControlText(*dialog.macMaskEdit, each.mac);
            setControlText(in(dialog, "vlanEdit"), each.vlan);
            dialog.okBtn->setFocus();
            test::click(*dialog.okBtn);
            expectBox(each.box);
            EXPECT_EQ(dialog.focusWidget(), &in(dialog, each.focus)) << each.mac << each.vlan;
            EXPECT_EQ(host.pending(), 0U) << each.mac << each.vlan;
        }
        setControlText(*dialog.macMaskEdit, "01:00:5E:a:  :  ");
        setControlText(in(dialog, "vlanEdit"), "1");
        selectByText(*static_cast<QComboBox*>(&in(dialog, "typeComb")), "Preview");
        test::click(*dialog.okBtn);
        EXPECT_EQ(dialog.result(), QDialog::Accepted);
    });
    EXPECT_EQ(takeWrite()[1], "multiMac@1.2.5.1.2=#01005EA00000") << "blanks are zeros";
}

TEST_F(ControlMultiTest, DeleteAsksAndWritesToTheRowsInstance) {
    readSlots();
    expectRefused("deleteBtn", "mainTable", {11204});
    page().mainTable->selectRow(0);
    desk.answer = platform::PromptAnswer::no;
    test::click(*page().deleteBtn);
    auto box = desk.takeBox();
    EXPECT_EQ(box.text, messageText(11057));
    EXPECT_EQ(box.caption, messageText(11058));
    EXPECT_EQ(box.buttons, platform::PromptButtons::yesNo);
    EXPECT_EQ(host.pending(), 0U);
    desk.answer = platform::PromptAnswer::yes;
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
    readRow("1", {}, "maintable");
    readRow("1", {"1"}, "group1");
    read({"1"}, "maintable"); // no port
    EXPECT_EQ(page().mainTable->rowCount(), 0);
    readRow("1", {"0"}, "maintable", 0);
    readRow("2", {"1"}, "maintable", 0);
    readRow("3", {"2"}, "maintable", 0);
    EXPECT_EQ(page().mainTable->cells(0), (Texts{"1", "unTag"}));
    EXPECT_EQ(page().mainTable->cells(1), (Texts{"2", "Tag"}));
    EXPECT_EQ(page().mainTable->cells(2), (Texts{"3", ""}));
    EXPECT_TRUE(enabled("cfgBtn"));
    EXPECT_FALSE(enabled("refreshBtn"));
    expectRefused("cfgBtn", "mainTable", {11204});
    page().mainTable->selectRow(1);
    inDialog<TOnuMultiReportItem>([](TOnuMultiReportItem& dialog) {
        EXPECT_EQ(bytesOf(dialog.TitlePanel->TitleLabel->text()), "Onu Multi Report");
        auto* tag = dialog.findChild<QComboBox*>(QStringLiteral("tagComb"));
        EXPECT_EQ(tag->currentText(), QStringLiteral("Tag"));
        selectByText(*tag, "unTag");
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(), Texts{"lanMultiTag@1.2.5.2=0"});
    takeRead();
    expectWrittenAndRead();
    readRow("1", {"0"}, "maintable");
    readRow("2", {"0"}, "maintable");
    EXPECT_EQ(page().mainTable->selectedRow(), 1);
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
        page().mainTable->selectRow(row);
        inDialog<TOnuMultiIGMPItem>(work);
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
    EXPECT_EQ(page().mainTable->rowCount(), 0);
    readPorts();
    EXPECT_EQ(page().mainTable->cells(0), (Texts{"1", "10", "8,9,11-15"}));
    EXPECT_TRUE(enabled("cfgBtn"));
    EXPECT_FALSE(enabled("refreshBtn"));
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
    page().refreshBtnClick();
    takeRead();
    readPorts();
    expectRefused("cfgBtn", "mainTable", locked); // until the ONU says otherwise
    read({"0"}, "group1");
    onRow(0, [](TOnuMultiIGMPItem&) {});
}

TEST_F(MultiIgmpTest, TheRadioButtonsChooseWhatIsEdited) {
    onRow(0, [&](TOnuMultiIGMPItem& dialog) {
        EXPECT_EQ(bytesOf(dialog.TitlePanel->TitleLabel->text()), "Onu MultiI GMP");
        EXPECT_EQ(stateOf(*dialog.findChild<QLineEdit*>(QStringLiteral("portEdit"))).text, "1");
        EXPECT_EQ(stateOf(*dialog.maxGroupEdit).text, "10");
        EXPECT_EQ(stateOf(*dialog.vlanlistMemo).text, "8,9,11-15");
        auto* maximum = dialog.findChild<QRadioButton*>(QStringLiteral("maxGroupRabtn"));
        EXPECT_TRUE(maximum->isChecked());
        for (const bool byList : {false, true, false}) {
            test::click(byList ? *dialog.vlanlistRabtn : *maximum);
            EXPECT_EQ(dialog.maxGroupEdit->isEnabled(), !byList);
            EXPECT_EQ(dialog.vlanlistMemo->isEnabled(), byList);
            EXPECT_EQ(dialog.deleteBtn->isEnabled(), byList);
        }
    });
}

TEST_F(MultiIgmpTest, OkWritesTheMaximum) {
    onRow(1, [&](TOnuMultiIGMPItem& dialog) {
        for (const char* bad : {"", "0", "256"}) {
            setControlText(*dialog.maxGroupEdit, bad);
            dialog.okBtn->setFocus();
            test::click(*dialog.okBtn);
            expectBox({11068, {"1", "255"}});
            EXPECT_EQ(dialog.focusWidget(), dialog.maxGroupEdit) << bad;
        }
        setControlText(*dialog.maxGroupEdit, "255");
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
    };
    const Case cases[] = {
        {0, "8,9,11-15", nullptr}, // listed already
        {0, "8, 1-3,15-11", nullptr}, {0, "1-4", "10"}, {0, "8,1-4", "10"},
        {1, "5,6", nullptr},          {1, "1-3", "2"},
    };
    for (const Case& each : cases) {
        onRow(each.row, [&](TOnuMultiIGMPItem& dialog) {
            test::click(*dialog.vlanlistRabtn);
            setControlText(*dialog.vlanlistMemo, each.list);
            test::click(*dialog.okBtn);
            EXPECT_EQ(dialog.isVisible(), each.maximum != nullptr) << each.list;
            if (each.maximum != nullptr) {
                const auto box = desk.takeBox();
                EXPECT_EQ(box.text, messageText(3043) + each.maximum);
                EXPECT_EQ(box.caption, messageText(11054));
                EXPECT_EQ(dialog.focusWidget(), dialog.vlanlistMemo);
            }
        });
        const std::string at = "@1.2.5." + std::to_string(each.row + 1) + "=";
        if (each.maximum == nullptr) {
            EXPECT_EQ(takeWrite(),
                      (Texts{"lanMultiVlanList" + at + each.list, "lanMultiRowStatus" + at + "4"}));
        }
        EXPECT_EQ(takeRead(), ".1.2.5");
        EXPECT_EQ(host.pending(), 0U) << each.list;
    }
}

TEST_F(MultiIgmpTest, TheMaximumIsTheOneInTheDialog) {
    onRow(0, [&](TOnuMultiIGMPItem& dialog) {
        setControlText(*dialog.maxGroupEdit, "7");
        test::click(*dialog.vlanlistRabtn);
        setControlText(*dialog.vlanlistMemo, "1");
        test::click(*dialog.okBtn);
        EXPECT_EQ(desk.takeBox().text, messageText(3043) + "7");
    });
}

} // namespace
} // namespace onudesk
