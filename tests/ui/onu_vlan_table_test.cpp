// SPDX-License-Identifier: MIT
#include "pages/vlan/onu_vlan_table.h"

#include "page_test.h"

namespace onudesk {
namespace {

using test::Texts;

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
    void select(int row) {
        if (row < 0) {
            page().mainTable->clearSelection();
        } else {
            page().mainTable->selectRow(row);
        }
    }
    static void add(TOnuVlanItem& dialog, const char* vlan, const char* port, const char* tag) {
        setControlText(*dialog.vlanIdEdt, vlan);
        selectByText(*dialog.portComb, port);
        selectByText(*dialog.tagComb, tag);
        test::click(*dialog.okBtn);
    }
    // Dialog state: VLAN, port and tag, "-" before what cannot be edited.
    static std::string state(const TOnuVlanItem& dialog) {
        std::string text;
        for (const QWidget* control :
             {static_cast<QWidget*>(dialog.vlanIdEdt), static_cast<QWidget*>(dialog.portComb),
              static_cast<QWidget*>(dialog.tagComb)}) {
            text += (control->isEnabled() ? " " : " -") + stateOf(*control).text;
        }
        return text;
    }
};

TEST_F(VlanTableTest, ListsVlansOfFiveValuesOfItsGroup) {
    EXPECT_FALSE(enabled("addBtn"));
    EXPECT_FALSE(enabled("refreshBtn"));
    readRow("1", {"1", "1", "0", "1", "0"}, "rowstat");
    readRow("1", {"1", "1", "0", "1"}, "maintable");
    EXPECT_EQ(page().mainTable->rowCount(), 0);
    readVlans();
    readRow("4094", {"4094", "2", "3", "9", "2"}, "maintable");
    RowTable& table = *page().mainTable;
    EXPECT_EQ(table.cells(0), (Texts{"100", "Yes", "Tag", "", "Tag"}));
    EXPECT_EQ(table.cells(1), (Texts{"200", "", "Tag", "Yes", "UnTag"}));
    EXPECT_EQ(table.cells(2), (Texts{"300", "Yes", "UnTag", "Yes", "Tag"}));
    EXPECT_EQ(table.cells(3), (Texts{"4094", "", "", "", "delete"}));
    EXPECT_EQ(table.item(0, 1)->textAlignment(), int{Qt::AlignCenter});
    EXPECT_NE(table.item(0, 3)->textAlignment(), int{Qt::AlignCenter});
}

TEST_F(VlanTableTest, ConfigFollowsTheFlagAndRefreshTheTimer) {
    readRow("100", {"100", "1", "0", "0", "0"}, "maintable", 0);
    EXPECT_FALSE(enabled("addBtn"));
    readRow("200", {"200", "1", "0", "0", "0"}, "maintable");
    EXPECT_TRUE(enabled("addBtn"));
    EXPECT_FALSE(enabled("refreshBtn"));
    test::elapse(page());
    EXPECT_TRUE(enabled("refreshBtn"));
    test::click(*page().refreshBtn);
    EXPECT_EQ(takeRead(), ".1.2.5");
    EXPECT_EQ(page().mainTable->rowCount(), 0);
    EXPECT_FALSE(enabled("addBtn"));
    failRead();
    EXPECT_TRUE(enabled("addBtn"));
    page().updatePage();
    EXPECT_EQ(host.pending(), 0U) << "shown again it does not read";
}

TEST_F(VlanTableTest, ARowOffersTheEndOfItsMembershipOnly) {
    struct Case {
        int row;
        const char* shown;
        Texts bindings;
    };
    const Case cases[] = {
        {0, " -100 -PON -delete", written("100", "1", "0", "2", "0")},
        {1, " -200 -UNI -delete", written("200", "0", "1", "0", "2")},
        {2, " -300 -PON -delete", written("300", "1", "0", "2", "0")},
    };
    for (const Case& each : cases) {
        readVlans();
        select(each.row);
        inDialog<TOnuVlanItem>([&](TOnuVlanItem& dialog) {
            EXPECT_EQ(state(dialog), each.shown);
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
        select(-1);
        inDialog<TOnuVlanItem>([&](TOnuVlanItem& dialog) {
            EXPECT_EQ(state(dialog), "  PON Tag");
            EXPECT_EQ(dialog.tagComb->itemText(2), QStringLiteral("delete"));
            add(dialog, "200", each.port, each.tag);
        });
        EXPECT_EQ(takeWrite(), each.bindings);
        EXPECT_FALSE(enabled("addBtn"));
        expectWrittenAndRead();
        readVlans();
        EXPECT_EQ(selected(), 1) << "and not a later row";
    }
}

TEST_F(VlanTableTest, VlanIsCheckedBeforeAnythingIsSent) {
    readVlans();
    inDialog<TOnuVlanItem>([this](TOnuVlanItem& dialog) {
        for (const char* bad : {"", "0", "4095"}) {
            dialog.okBtn->setFocus();
            add(dialog, bad, "PON", "Tag");
            expectBox(*bad == '\0' ? test::Box{} : test::Box{11068, {"1", "4094"}});
            EXPECT_EQ(dialog.focusWidget(), dialog.vlanIdEdt) << bad;
            EXPECT_TRUE(dialog.isVisible()) << bad;
        }
        setControlText(*dialog.vlanIdEdt, {});
        test::type(*dialog.vlanIdEdt, QStringLiteral("x12345"));
        EXPECT_EQ(stateOf(*dialog.vlanIdEdt).text, "1234");
    });
    EXPECT_EQ(host.pending(), 0U);
    for (const char* good : {"1", "4094"}) {
        inDialog<TOnuVlanItem>([&](TOnuVlanItem& dialog) { add(dialog, good, "PON", "Tag"); });
        EXPECT_EQ(takeWrite(), written(good, "1", "0", "0", "0"));
        page().configBtn->setEnabled(true);
    }
    readRow("4095", {"4095", "1", "0", "0", "0"}, "maintable");
    select(3);
    inDialog<TOnuVlanItem>([this](TOnuVlanItem& dialog) {
        test::click(*dialog.okBtn);
        expectBox({11068, {"1", "4094"}});
    });
    EXPECT_EQ(host.pending(), 0U) << "what a row holds is checked, too";
}

TEST_F(VlanTableTest, CancelLeavesThePageButNotTheModeOfSelecting) {
    readVlans();
    inDialog<TOnuVlanItem>([](TOnuVlanItem& dialog) { add(dialog, "200", "UNI", "Tag"); });
    EXPECT_EQ(takeWrite(), written("200", "0", "1", "0", "0"));
    expectWrittenAndRead();
    readVlans();
    select(-1);
    inDialog<TOnuVlanItem>([](TOnuVlanItem& dialog) {
        setControlText(*dialog.vlanIdEdt, "300");
        test::click(*dialog.cancelBtn);
    });
    EXPECT_EQ(page().mainTable->rowCount(), 3);
    EXPECT_EQ(host.pending(), 0U);
    page().refreshBtnClick();
    takeRead();
    readVlans();
    EXPECT_EQ(selected(), 1) << "300 was not written";
    select(0);
    inDialog<TOnuVlanItem>(
        [](TOnuVlanItem& dialog) { test::click(*dialog.TitlePanel->ClosePanel); });
    EXPECT_EQ(page().mainTable->rowCount(), 3);
    page().refreshBtnClick();
    takeRead();
    readVlans();
    EXPECT_EQ(selected(), 0) << "the row that was opened last";
}

TEST_F(VlanTableTest, DoubleClicksOpenTheDialogWithAndWithoutRow) {
    readVlans();
    RowTable& table = *page().mainTable;
    QWidget& view = *table.viewport();
    std::string opened;
    const auto at = [&](QPoint place) {
        opened.clear();
        QTimer::singleShot(0, &page(), [&] {
            auto* dialog = page().findChild<TOnuVlanItem*>();
            ASSERT_NE(dialog, nullptr);
            opened = state(*dialog);
            dialog->reject();
        });
        test::doubleClickAt(view, place);
    };
    at(table.visualRect(table.model()->index(1, 0)).center());
    EXPECT_EQ(opened, " -200 -UNI -delete");
    at({10, view.height() - 5});
    EXPECT_EQ(opened, "  PON Tag");
}

} // namespace
} // namespace onudesk
