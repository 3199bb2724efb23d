// SPDX-License-Identifier: MIT
//
// Management VLAN, VLAN mode, tagging of ports, and the table of VLANs.
#include "pages/vlan/onu_ctc_mode.h"
#include "pages/vlan/onu_ip_vlan.h"
#include "pages/vlan/onu_port_mode_setting.h"
#include "pages/vlan/onu_vlan_table.h"

#include "page_test.h"

namespace onudesk {
namespace {

using test::Box;
using test::Texts;

class IpVlanTest : public test::PageTest<TOnuIPVlan, 679> {
protected:
    Texts shownTexts() { return {text("cvlanEdt"), text("svlanEdt"), text("priorityEdt")}; }
};

TEST_F(IpVlanTest, ShowsWhatCameAndRefreshEmpties) {
    EXPECT_EQ(usable(), "");
    read({"100", "0", "7", "1"}, "maintable");
    EXPECT_EQ(shownTexts(), (Texts{"100", "0", "7"}));
    EXPECT_EQ(usable(), "configBtn");
    EXPECT_EQ(refresh(), ".1.2.5");
    EXPECT_EQ(shownTexts(), Texts(3));
    read({"200"}, "anything", 0);
    EXPECT_EQ(shownTexts(), (Texts{"200", "", ""}));
    EXPECT_EQ(usable(), "");
    read({}, "maintable");
    EXPECT_EQ(text("cvlanEdt"), "200");
    EXPECT_EQ(usable(), "configBtn");
    failRead();
    EXPECT_EQ(usable(), "");
}

TEST_F(IpVlanTest, ChecksInOrderThenWritesAllFour) {
    read({"", "", ""}, "maintable");
    expectChecks({{"cvlanEdt", {"", "0", "4095"}, {11068, {"1", "4094"}}, "4094"},
                  {"svlanEdt", {"4095"}, {11068, {"0", "4094"}}, "4094"},
                  {"priorityEdt", {"", "0", "9"}, {11068, {"1", "8"}}, "8"},
                  {"svlanEdt", {""}, {}, "4094"}});
    expectConfigWrites({"onuManageVlanID@1.2.5=4094", "onuManageVlanID2@1.2.5=4094",
                        "onuManagePriority@1.2.5=8", "onuManageVlanRowStatus@1.2.5=4"});
    EXPECT_EQ(usable(), "");
    expectWrittenAndRead();
    read({"1", "0", "1"}, "maintable");
    expectConfigWrites({"onuManageVlanID@1.2.5=1", "onuManageVlanID2@1.2.5=0",
                        "onuManagePriority@1.2.5=1", "onuManageVlanRowStatus@1.2.5=4"});
}

TEST_F(IpVlanTest, TakesFourDigitsOrOne) {
    for (const char* name : {"cvlanEdt", "svlanEdt", "priorityEdt"}) {
        test::type(control<QLineEdit>(name), "x56789");
    }
    EXPECT_EQ(shownTexts(), (Texts{"5678", "5678", "5"}));
}

using ModeTest = test::PageTest<TOnuCTCMode, 767>;

TEST_F(ModeTest, SelectsTheModeAndKeepsItOnUnknownCodes) {
    EXPECT_EQ(text("modeComb") + usable(), "");
    read({"2"}, "group1");
    EXPECT_EQ(text("modeComb"), "802.1Q");
    read({"3"}, "group1", 0);
    EXPECT_EQ(text("modeComb") + usable(), "802.1Q");
    EXPECT_EQ(refresh(), ".1.2.5");
    read({}, "group1");
    EXPECT_EQ(text("modeComb") + usable(), "802.1QconfigBtn");
    failRead();
    EXPECT_EQ(usable(), "");
    read({"1"}, "group1");
    EXPECT_EQ(text("modeComb"), "CTC");
    selectByText(control<QComboBox>("modeComb"), "802.1Q");
    expectConfigWrites({"onuStatusVlanCfgMode@1.2.5=2"});
    EXPECT_EQ(usable(), "");
    expectWrittenAndRead();
}

class PortModeTest : public test::PageTest<TOnuPortModeSetting, 677> {
protected:
    void readPorts() {
        readRow("1", {"1"}, "maintable", 0);
        readRow("2", {"2"}, "maintable", 0);
        readRow("3", {"3"}, "maintable", 0);
        readRow("4", {"9"}, "maintable");
    }
};

TEST_F(PortModeTest, ListsPortsWithTheirModes) {
    readRow("1", {"1"}, "rowstat");
    readRow("1", {}, "maintable");
    expectRows({});
    readPorts();
    expectRows({{"1", "untagged"}, {"2", "tagged"}, {"3", "unmodify"}, {"4", ""}});
    EXPECT_EQ(usable(), "configBtn refreshBtn") << "given back by the flag";
    readRow("5", {"1"}, "maintable", 0);
    EXPECT_EQ(usable(), "");
    failRead();
    EXPECT_EQ(usable(), "configBtn");
}

TEST_F(PortModeTest, OkWritesThePortsMode) {
    readPorts();
    expectRefused("configBtn", "mainTable", {11204});
    expectRowEdited<TOnuPortModeItem>(2,
                                      {messageText(11006),
                                       {{"portNoEdt", "-3"}, {"ifModeComb", "unmodify"}},
                                       {{"ifModeComb", "tagged"}},
                                       {"lanTagMode@1.2.5.3=2"}},
                                      [this] { readPorts(); });
}

// The bindings of a write to that VLAN, in order.
Texts written(const std::string& vlan, const std::string& pon, const std::string& uni,
              const std::string& ponTag, const std::string& uniTag) {
    const std::string at = "@1.2.5." + vlan + "=";
    return {"rowStatus" + at + "4", "vlanId" + at + vlan,       "pon" + at + pon,
            "uni" + at + uni,       "port0Untag" + at + ponTag, "port1Untag" + at + uniTag,
            "rowStatus" + at + "5"};
}

class VlanTableTest : public test::PageTest<TOnuVlanTable, 611> {
protected:
    // 100 on the PON side, 200 on the UNI side, 300 on both.
    void readVlans() {
        readRow("100", {"100", "1", "0", "0", "0"}, "maintable", 0);
        readRow("200", {"200", "0", "0", "1", "1"}, "maintable", 0);
        readRow("300", {"300", "1", "1", "1", "0"}, "maintable");
    }
    int selected() { return page().mainTable->selectedRow(); }
    // Opens the dialog without a row.
    void onNoRow(const std::function<void(TOnuVlanItem&)>& work) {
        page().mainTable->clearSelection();
        inDialog<TOnuVlanItem>(work);
    }
    static void add(TOnuVlanItem& dialog, const char* vlan, const char* port, const char* tag) {
        setControlText(*dialog.vlanIdEdt, vlan);
        selectByText(*dialog.portComb, port);
        selectByText(*dialog.tagComb, tag);
        test::click(*dialog.okBtn);
    }
    static Texts state(const TOnuVlanItem& dialog) {
        return {stateIn(dialog, "vlanIdEdt"), stateIn(dialog, "portComb"),
                stateIn(dialog, "tagComb")};
    }
};

TEST_F(VlanTableTest, ListsVlansOfFiveValuesOfItsGroup) {
    EXPECT_EQ(usable(), "");
    readRow("1", {"1", "1", "0", "1", "0"}, "rowstat");
    readRow("1", {"1", "1", "0", "1"}, "maintable");
    readVlans();
    readRow("4094", {"4094", "2", "3", "9", "2"}, "maintable", 0);
    expectRows({{"100", "Yes", "Tag", "", "Tag"},
                {"200", "", "Tag", "Yes", "UnTag"},
                {"300", "Yes", "UnTag", "Yes", "Tag"},
                {"4094", "", "", "", "delete"}});
    const RowTable& table = *page().mainTable;
    EXPECT_EQ(table.item(0, 1)->textAlignment(), int{Qt::AlignCenter});
    EXPECT_NE(table.item(0, 3)->textAlignment(), int{Qt::AlignCenter});
    EXPECT_EQ(usable(), "") << "the flag sets Config";
    readVlans();
    EXPECT_EQ(usable(), "addBtn") << "and not Refresh";
    test::elapse(page());
    test::click(*page().refreshBtn);
    EXPECT_EQ(takeRead(), ".1.2.5");
    expectRows({});
    EXPECT_EQ(usable(), "");
    failRead();
    EXPECT_EQ(usable(), "addBtn");
    page().updatePage();
    EXPECT_EQ(host.pending(), 0U) << "shown again it does not read";
}

TEST_F(VlanTableTest, ARowOffersTheEndOfItsMembershipOnly) {
    struct Case {
        int row;
        Texts state;
        Texts bindings;
    };
    const Case cases[] = {
        {0, {"-100", "-PON", "-delete"}, written("100", "1", "0", "2", "0")},
        {1, {"-200", "-UNI", "-delete"}, written("200", "0", "1", "0", "2")},
        {2, {"-300", "-PON", "-delete"}, written("300", "1", "0", "2", "0")},
    };
    for (const Case& each : cases) {
        readVlans();
        inDialog<TOnuVlanItem>(each.row, [&](TOnuVlanItem& dialog) {
            EXPECT_EQ(state(dialog), each.state);
            EXPECT_EQ(bytesOf(dialog.TitlePanel->TitleLabel->text()), "Onu Vlan");
            test::click(*dialog.okBtn);
            EXPECT_EQ(dialog.result(), QDialog::Accepted);
        });
        EXPECT_EQ(takeWrite(), each.bindings);
        EXPECT_EQ(host.pending(), 0U) << "closing the dialog does not read";
        EXPECT_EQ(host.routedWindow(CP_KIND_WRITE, 611), page().replyHandle());
        expectWrittenAndRead();
        readVlans();
        EXPECT_EQ(selected(), each.row);
    }
}

TEST_F(VlanTableTest, WithoutRowAVlanIsAddedOnOneSideAndSelected) {
    struct Case {
        const char* port;
        const char* tag;
        Texts bindings;
    };
    const Case cases[] = {
        {"UNI", "UnTag", written("200", "0", "1", "0", "1")},
        {"UNI", "delete", written("200", "0", "1", "0", "2")},
        {"PON", "Tag", written("200", "1", "0", "0", "0")},
        {"PON", "UnTag", written("200", "1", "0", "1", "0")},
    };
    for (const Case& each : cases) {
        readVlans();
        onNoRow([&](TOnuVlanItem& dialog) {
            EXPECT_EQ(state(dialog), (Texts{"", "PON", "Tag"}));
            EXPECT_EQ(dialog.tagComb->itemText(2), QStringLiteral("delete"));
            add(dialog, "200", each.port, each.tag);
        });
        EXPECT_EQ(takeWrite(), each.bindings);
        EXPECT_EQ(usable(), "");
        expectWrittenAndRead();
        readVlans();
        EXPECT_EQ(selected(), 1) << "and not a later row";
    }
}

TEST_F(VlanTableTest, VlanIsCheckedBeforeAnythingIsSent) {
    const Box range{11068, {"1", "4094"}};
    readVlans();
    onNoRow([&](TOnuVlanItem& dialog) {
        for (const char* bad : {"", "0", "4095"}) {
            setControlText(*dialog.vlanIdEdt, bad);
            expectNotOk(dialog, "vlanIdEdt", *bad == '\0' ? Box{} : range);
        }
        setControlText(*dialog.vlanIdEdt, {});
        test::type(*dialog.vlanIdEdt, "x12345");
        EXPECT_EQ(stateOf(*dialog.vlanIdEdt).text, "1234");
    });
    for (const char* good : {"1", "4094"}) {
        onNoRow([&](TOnuVlanItem& dialog) { add(dialog, good, "PON", "Tag"); });
        EXPECT_EQ(takeWrite(), written(good, "1", "0", "0", "0"));
        page().configBtn->setEnabled(true);
    }
    readRow("4095", {"4095", "1", "0", "0", "0"}, "maintable");
    inDialog<TOnuVlanItem>(3, [&](TOnuVlanItem& dialog) {
        test::click(*dialog.okBtn);
        expectBox(range);
    });
    EXPECT_EQ(host.pending(), 0U) << "what a row holds is checked, too";
}

TEST_F(VlanTableTest, CancelLeavesThePageButNotTheModeOfSelecting) {
    readVlans();
    onNoRow([](TOnuVlanItem& dialog) { add(dialog, "200", "UNI", "Tag"); });
    EXPECT_EQ(takeWrite(), written("200", "0", "1", "0", "0"));
    expectWrittenAndRead();
    readVlans();
    onNoRow([](TOnuVlanItem& dialog) {
        setControlText(*dialog.vlanIdEdt, "300");
        test::click(*dialog.cancelBtn);
    });
    EXPECT_EQ(page().mainTable->rowCount(), 3);
    EXPECT_EQ(host.pending(), 0U);
    refresh();
    readVlans();
    EXPECT_EQ(selected(), 1) << "300 was not written";
    inDialog<TOnuVlanItem>(0);
    EXPECT_EQ(page().mainTable->rowCount(), 3);
    refresh();
    readVlans();
    EXPECT_EQ(selected(), 0) << "the row that was opened last";
}

TEST_F(VlanTableTest, DoubleClicksOpenTheDialogWithAndWithoutRow) {
    readVlans();
    for (const auto& [row, expected] :
         {std::pair{1, Texts{"-200", "-UNI", "-delete"}}, {-1, Texts{"", "PON", "Tag"}}}) {
        Texts opened;
        QTimer::singleShot(0, &page(), [&] {
            auto* dialog = page().findChild<TOnuVlanItem*>();
            ASSERT_NE(dialog, nullptr);
            opened = state(*dialog);
            dialog->reject();
        });
        test::doubleClickRow(*page().mainTable, row);
        EXPECT_EQ(opened, expected);
    }
}

} // namespace
} // namespace onudesk
