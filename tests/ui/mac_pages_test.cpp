// SPDX-License-Identifier: MIT
//
// Limits, ageing and filtering of MAC addresses.
#include "pages/mac/onu_mac_age.h"
#include "pages/mac/onu_mac_filter.h"
#include "pages/mac/onu_mac_limit.h"
#include "pages/mac/onu_mac_max_num.h"

#include "page_test.h"

#include <QCoreApplication>

namespace onudesk {
namespace {

using test::Box;
using test::Texts;

template <typename Page, std::int32_t Item>
class SwitchTest : public test::PageTest<Page, Item> {
protected:
    void choose(const char* text) {
        auto& comb = *this->page().enableComb;
        selectByText(comb, text);
        Q_EMIT comb.activated(comb.currentIndex());
    }
    // Presses Config while the field is enabled.
    void expectBounds(const char* edit, const char* object, const Texts& good, const Texts& bad,
                      const Box& refusal) {
        for (const std::string& value : bad) {
            this->setText(edit, value);
            this->expectRefused("configBtn", edit, refusal);
        }
        for (const std::string& value : good) {
            this->page().configBtn->setEnabled(true);
            this->setText(edit, value);
            test::click(*this->page().configBtn);
            EXPECT_EQ(this->takeWrite(), Texts{std::string(object) + "@1.2.5=" + value});
            EXPECT_FALSE(this->enabled("configBtn") || this->enabled("refreshBtn"));
            this->expectWrittenAndRead();
        }
    }
};

using LimitTest = SwitchTest<TOnuMacLimit, 620>;

TEST_F(LimitTest, TheSwitchFollowsTheValueAndPutsTheLastOneBack) {
    read({"500"}, "maintable");
    EXPECT_EQ(text("countEdit") + text("enableComb"), "500enable");
    choose("disable");
    EXPECT_EQ(text("countEdit"), "0");
    EXPECT_FALSE(enabled("countEdit"));
    choose("enable");
    EXPECT_EQ(text("countEdit"), "500");
    EXPECT_TRUE(enabled("countEdit"));
    read({"0"}, "maintable");
    EXPECT_EQ(text("countEdit") + text("enableComb"), "0disable");
    EXPECT_FALSE(enabled("countEdit"));
    choose("enable");
    EXPECT_EQ(text("countEdit"), "0") << "what the ONU held last";
    expectRefused("configBtn", "countEdit", {11068, {"1", "1000"}});
    read({"7"}, "maintable");
    EXPECT_EQ(text("countEdit") + text("enableComb"), "7enable");
}

TEST_F(LimitTest, OnlyItsTableIsShownAndTheFlagSetsConfig) {
    read({"500"}, "maintable", 0);
    EXPECT_FALSE(enabled("configBtn"));
    read({"0"}, "group1");
    read({}, "maintable");
    EXPECT_EQ(text("countEdit") + text("enableComb"), "500enable");
    EXPECT_TRUE(enabled("configBtn"));
    EXPECT_FALSE(enabled("refreshBtn")) << "only the timer gives it back";
    read({"500"}, "maintable", 0);
    failRead();
    EXPECT_TRUE(enabled("configBtn"));
}

TEST_F(LimitTest, WritesTheLimitInItsBoundsOrZero) {
    read({"500"}, "maintable");
    EXPECT_EQ(control<QComboBox>("enableComb").itemText(0), QStringLiteral("disable"));
    expectBounds("countEdit", "onuMacMaxNum", {"1", "1000"}, {"", "0", "1001"},
                 {11068, {"1", "1000"}});
    choose("disable");
    page().configBtn->setEnabled(true);
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), Texts{"onuMacMaxNum@1.2.5=0"});
    EXPECT_TRUE(desk.takeBoxes().empty());
}

TEST_F(LimitTest, TakesThreeDigits) {
    read({"1000"}, "maintable");
    EXPECT_EQ(text("countEdit"), "1000");
    auto& edit = control<QLineEdit>("countEdit");
    edit.clear();
    test::type(edit, QStringLiteral("-12x34"));
    EXPECT_EQ(edit.text(), QStringLiteral("123"));
}

using AgeTest = SwitchTest<TOnuMacAge, 643>;

TEST_F(AgeTest, WritesTheTimeInItsBounds) {
    read({"300"}, "maintable");
    EXPECT_EQ(label("enableCombLabel"), "Mac age enable");
    expectBounds("timeEdit", "onuMacAgeTime", {"1", "1048575"}, {"", "0", "1048576"},
                 {11068, {"1", "1048575"}});
    choose("disable");
    EXPECT_EQ(text("timeEdit"), "0");
}

class FilterTest : public test::PageTest<TOnuMacFilter, 619> {
protected:
    static constexpr const char* kColumn = "1.3.6.1.4.1.27315.1.9.5.2.1.1";

    void readEntry(const std::string& oid, const std::string& mac, const std::string& vlan,
                   const std::string& full = "0", std::uint32_t status = 1) {
        page();
        ASSERT_TRUE(host.replyRead(619, {.values = Texts{mac, vlan, full, "1"},
                                         .oids = Texts{oid},
                                         .status = status,
                                         .resultText = "maintable"}));
    }
    void readEntries(const std::string& full = "0") {
        readEntry(std::string(kColumn) + ".1.2.5.1", std::string("\0\x1A\x2B\x3C\x4D\x5E", 6),
                  "100", "1", 0);
        readEntry(std::string(".") + kColumn + ".1.2.5.7", "00FEED00C0DE", "4094", full);
    }
    void select(int row) { page().mainTable->selectRow(row); }
};

TEST_F(FilterTest, ListsAddressesAlikeWithTheirInstances) {
    readRow("1", {"00FEED00C0DE", "1", "0"}, "maintable");
    readRow("1", {"00FEED00C0DE", "1", "0", "1"}, "rowstat");
    EXPECT_EQ(page().mainTable->rowCount(), 0);
    readEntries();
    EXPECT_EQ(page().mainTable->cells(0), (Texts{"00:1a:2b:3c:4d:5e", "100", "1.2.5.1"}));
    EXPECT_EQ(page().mainTable->cells(1), (Texts{"00:fe:ed:00:c0:de", "4094", "1.2.5.7"}));
    EXPECT_TRUE(page().mainTable->isColumnHidden(2));
    readEntry("1.3.6.1.4.1.27315.1.9.5.2.1.11.1.2.5.8", "abcdef", "1", "0", 0);
    EXPECT_EQ(page().mainTable->cells(2), (Texts{"61:62:63:64:65:66", "1", ""}));
}

TEST_F(FilterTest, TheFlagSetsAllThreeButtons) {
    for (const bool complete : {false, true}) {
        readEntry("", "", "", "", complete ? 1 : 0);
        for (const char* button : {"cfgBtn", "deleteBtn", "refreshBtn"}) {
            EXPECT_EQ(enabled(button), complete) << button;
        }
    }
    test::click(*page().refreshBtn);
    takeRead();
    EXPECT_FALSE(enabled("cfgBtn") || enabled("deleteBtn") || enabled("refreshBtn"));
    failRead();
    EXPECT_TRUE(enabled("cfgBtn") && enabled("deleteBtn"));
    EXPECT_FALSE(enabled("refreshBtn"));
}

TEST_F(FilterTest, AFullListTakesNoEntryUntilARowSaysOtherwise) {
    for (const char* free : {"0", "2", "11", ""}) {
        readEntries("1");
        expectRefused("cfgBtn", "mainTable", {3038});
        readEntries(free);
        inDialog<TOnuMacFilterItem>([](TOnuMacFilterItem&) {});
        takeRead();
    }
    readEntries("1");
    page().refreshBtnClick();
    takeRead();
    failRead();
    expectRefused("cfgBtn", "mainTable", {3038});
}

TEST_F(FilterTest, OkChecksAddressThenVlanAndAddsAnEntry) {
    readEntries();
    select(1);
    inDialog<TOnuMacFilterItem>([this](TOnuMacFilterItem& dialog) {
        EXPECT_EQ(bytesOf(dialog.TitlePanel->TitleLabel->text()), "Onu Mac Filter");
        auto& mac = *dialog.findChild<QLineEdit*>(QStringLiteral("macMaskEdit"));
        auto& vlan = *dialog.findChild<QLineEdit*>(QStringLiteral("vlanEdit"));
        EXPECT_EQ(bytesOf(vlan.text()), "") << "not that of the selected row";
        const auto expectRefusal = [&](const char* address, const char* number, const Box& box,
                                       const QWidget& focus) {
            setControlText(mac, address);
            setControlText(vlan, number);
            test::click(*dialog.okBtn);
            expectBox(box);
            EXPECT_EQ(dialog.focusWidget(), &focus) << address << number;
            EXPECT_EQ(host.pending(), 0U);
        };
        expectRefusal("", "", {3029, {}, 113}, mac);
        expectRefusal("0g:00:00:00:00:01", "0", {3036, {}, 113}, mac);
        for (const char* bad : {"", "0", "4095"}) {
            expectRefusal("00:00:00:00:00:01", bad, {11068, {"1", "4094"}}, vlan);
        }
        setControlText(mac, "A0:1b:2C:3d:4E:5f");
        setControlText(vlan, "4094");
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(),
              (Texts{"onuMacBlackHoleMac@1.2.5.1=#A01B2C3D4E5F", "onuMacBlackHoleVlan@1.2.5.1=4094",
                     "onuMacBlackHoleRowStatus@1.2.5.1=4"}));
    EXPECT_EQ(takeRead(), ".1.2.5") << "closing the dialog reads again";
    expectWrittenAndRead();
}

TEST_F(FilterTest, DeleteAsksAndRemovesTheRowsInstance) {
    readEntries();
    expectRefused("deleteBtn", "mainTable", {11204});
    select(1);
    desk.answer = platform::PromptAnswer::no;
    test::click(*page().deleteBtn);
    const auto question = desk.takeBox();
    EXPECT_EQ(question.text, messageText(11057));
    EXPECT_EQ(question.caption, messageText(11058) + "MAC");
    EXPECT_EQ(question.buttons, platform::PromptButtons::yesNo);
    EXPECT_EQ(host.pending(), 0U);
    desk.answer = platform::PromptAnswer::yes;
    test::click(*page().deleteBtn);
    desk.takeBox();
    EXPECT_EQ(takeWrite(),
              (Texts{"onuMacBlackHoleMac@1.2.5.7=#00FEED00C0DE", "onuMacBlackHoleVlan@1.2.5.7=4094",
                     "onuMacBlackHoleRowStatus@1.2.5.7=6"}));
    EXPECT_FALSE(enabled("cfgBtn") || enabled("deleteBtn") || enabled("refreshBtn"));
    expectWrittenAndRead();
    EXPECT_EQ(page().mainTable->rowCount(), 0);
}

TEST_F(FilterTest, RowsWithoutInstanceCannotBeDeletedAndDoubleClicksDoNothing) {
    readRow("1", {"00FEED00C0DE", "1", "0", "1"}, "maintable");
    select(0);
    expectRefused("deleteBtn", "mainTable", {11204});
    bool opened = false;
    QTimer::singleShot(0, &page(), [&] {
        if (auto* dialog = page().findChild<TOnuMacFilterItem*>()) {
            opened = true;
            dialog->reject();
        }
    });
    page().mainTable->onDoubleClick();
    QCoreApplication::processEvents();
    EXPECT_FALSE(opened);
}

TEST_F(FilterTest, TheCatalogueHasTheColumnThatThePageKnows) {
    const auto* object = lookup(page().catalogue(), "maintable", "onuMacBlackHoleMac");
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->oidstr, kColumn);
}

class MaxNumTest : public test::PageTest<TOnuMacMaxNum, 644> {
protected:
    void readPorts() {
        readRow("1", {"0"}, "maintable", 0);
        readRow("2", {"64"}, "maintable", 0);
    }
};

TEST_F(MaxNumTest, ListsPortsAndDropsNamesWithoutPoint) {
    readRow("1", {"9"}, "rowstat");
    readRow("1", {}, "maintable");
    page();
    ASSERT_TRUE(host.replyRead(
        644, {.values = Texts{"9"}, .oids = Texts{"7"}, .status = 1U, .resultText = "maintable"}));
    EXPECT_EQ(page().mainTable->rowCount(), 0);
    readPorts();
    EXPECT_EQ(page().mainTable->cells(0), (Texts{"1", "0"}));
    EXPECT_EQ(page().mainTable->cells(1), (Texts{"2", "64"}));
    EXPECT_TRUE(enabled("cfgBtn")) << "whatever the flag says";
    EXPECT_FALSE(enabled("refreshBtn"));
}

TEST_F(MaxNumTest, OkWritesThePortsLimitAndItsRowIsSelectedAgain) {
    readPorts();
    expectRefused("cfgBtn", "mainTable", {11204});
    for (const std::string good : {"0", "1000"}) {
        page().mainTable->selectRow(1);
        page().configBtn->setEnabled(true);
        inDialog<TOnuMacMaxNumItem>([&](TOnuMacMaxNumItem& dialog) {
            auto& port = *dialog.findChild<QLineEdit*>(QStringLiteral("portEdit"));
            auto& limit = *dialog.findChild<QLineEdit*>(QStringLiteral("maxnumEdit"));
            EXPECT_EQ(bytesOf(port.text()), "2");
            EXPECT_TRUE(port.isReadOnly());
            EXPECT_EQ(bytesOf(limit.text()), "64");
            for (const char* bad : {"", "1001"}) {
                setControlText(limit, bad);
                test::click(*dialog.okBtn);
                expectBox({11068, {"0", "1000"}});
                EXPECT_EQ(dialog.focusWidget(), &limit);
            }
            setControlText(limit, good);
            test::click(*dialog.okBtn);
        });
        EXPECT_EQ(takeWrite(), Texts{"lanMaxMacLimitNum@1.2.5.2=" + good});
        EXPECT_EQ(takeRead(), ".1.2.5");
        expectWrittenAndRead();
        readPorts();
        EXPECT_EQ(page().mainTable->selectedRow(), 1);
    }
}

} // namespace
} // namespace onudesk
