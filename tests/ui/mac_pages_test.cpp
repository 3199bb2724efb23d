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

using test::Texts;

// A number and the switch that sets it to zero.
template <typename Page, std::int32_t Item>
class SwitchTest : public test::PageTest<Page, Item> {
protected:
    void choose(const char* text) { this->setText("enableComb", text); }
    std::string state(const char* edit) {
        return this->text("enableComb") + " " + this->stateIn(this->page(), edit);
    }
    void expectBounds(const char* edit, const std::string& object, const char* maximum,
                      const char* beyond) {
        for (const char* good : {"1", maximum}) {
            this->page().configBtn->setEnabled(true);
            this->expectChecks({{edit, {"", "0", beyond}, {11068, {"1", maximum}}, good}});
            this->expectConfigWrites({object + "@1.2.5=" + good});
            EXPECT_EQ(this->usable(), "");
            this->expectWrittenAndRead();
        }
    }
};

using LimitTest = SwitchTest<TOnuMacLimit, 620>;

TEST_F(LimitTest, TheSwitchFollowsTheValueAndPutsTheLastOneBack) {
    read({"500"}, "maintable");
    EXPECT_EQ(state("countEdit"), "enable 500");
    choose("disable");
    EXPECT_EQ(state("countEdit"), "disable -0");
    choose("enable");
    EXPECT_EQ(state("countEdit"), "enable 500");
    read({"0"}, "maintable");
    EXPECT_EQ(state("countEdit"), "disable -0");
    choose("enable");
    EXPECT_EQ(state("countEdit"), "enable 0") << "what the ONU held last";
    expectRefused("configBtn", "countEdit", {11068, {"1", "1000"}});
    read({"7"}, "maintable");
    EXPECT_EQ(state("countEdit"), "enable 7");
}

TEST_F(LimitTest, OnlyItsTableIsShownAndTheFlagSetsConfig) {
    read({"500"}, "maintable", 0);
    EXPECT_EQ(usable(), "");
    read({"0"}, "group1");
    read({}, "maintable");
    EXPECT_EQ(state("countEdit"), "enable 500");
    EXPECT_EQ(usable(), "configBtn");
    read({"500"}, "maintable", 0);
    failRead();
    EXPECT_EQ(usable(), "configBtn");
}

TEST_F(LimitTest, WritesTheLimitInItsBoundsOrZero) {
    read({"500"}, "maintable");
    EXPECT_EQ(control<QComboBox>("enableComb").itemText(0), QStringLiteral("disable"));
    expectBounds("countEdit", "onuMacMaxNum", "1000", "1001");
    choose("disable");
    page().configBtn->setEnabled(true);
    expectConfigWrites({"onuMacMaxNum@1.2.5=0"});
}

TEST_F(LimitTest, TakesThreeDigits) {
    read({"1000"}, "maintable");
    EXPECT_EQ(text("countEdit"), "1000");
    setText("countEdit", "");
    test::type(control<QLineEdit>("countEdit"), "-12x34");
    EXPECT_EQ(text("countEdit"), "123");
}

using AgeTest = SwitchTest<TOnuMacAge, 643>;

TEST_F(AgeTest, WritesTheTimeInItsBounds) {
    read({"300"}, "maintable");
    EXPECT_EQ(label("enableCombLabel"), "Mac age enable");
    expectBounds("timeEdit", "onuMacAgeTime", "1048575", "1048576");
    choose("disable");
    EXPECT_EQ(state("timeEdit"), "disable -0");
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
};

TEST_F(FilterTest, ListsAddressesAlikeWithTheirInstances) {
    readRow("1", {"00FEED00C0DE", "1", "0"}, "maintable");
    readRow("1", {"00FEED00C0DE", "1", "0", "1"}, "rowstat");
    expectRows({});
    readEntries();
    readEntry("1.3.6.1.4.1.27315.1.9.5.2.1.11.1.2.5.8", "abcdef", "1", "0", 0);
    expectRows({{"00:1a:2b:3c:4d:5e", "100", "1.2.5.1"},
                {"00:fe:ed:00:c0:de", "4094", "1.2.5.7"},
                {"61:62:63:64:65:66", "1", ""}});
    EXPECT_TRUE(page().mainTable->isColumnHidden(2));
    const auto* object = lookup(page().catalogue(), "maintable", "onuMacBlackHoleMac");
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->oidstr, kColumn) << "the column the page knows";
}

TEST_F(FilterTest, TheFlagSetsAllThreeButtons) {
    readEntry("", "", "", "", 0);
    EXPECT_EQ(usable(), "");
    readEntry("", "", "", "", 1);
    EXPECT_EQ(usable(), "cfgBtn deleteBtn refreshBtn");
    refresh();
    EXPECT_EQ(usable(), "");
    failRead();
    EXPECT_EQ(usable(), "cfgBtn deleteBtn");
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
    refresh();
    failRead();
    expectRefused("cfgBtn", "mainTable", {3038});
}

TEST_F(FilterTest, OkChecksAddressThenVlanAndAddsAnEntry) {
    readEntries();
    inDialog<TOnuMacFilterItem>(1, [this](TOnuMacFilterItem& dialog) {
        EXPECT_EQ(bytesOf(dialog.TitlePanel->TitleLabel->text()), "Onu Mac Filter");
        EXPECT_EQ(textIn(dialog, "vlanEdit"), "") << "not that of the selected row";
        expectChecks(dialog,
                     {{"macMaskEdit", {""}, {3029, {}, 113}, ""},
                      {"macMaskEdit", {"0g:00:00:00:00:01"}, {3036, {}, 113}, "A0:1b:2C:3d:4E:5f"},
                      {"vlanEdit", {"", "0", "4095"}, {11068, {"1", "4094"}}, "4094"}});
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
    page().mainTable->selectRow(1);
    expectDeclined("deleteBtn", 11057, messageText(11058) + "MAC");
    test::click(*page().deleteBtn);
    desk.takeBox();
    EXPECT_EQ(takeWrite(),
              (Texts{"onuMacBlackHoleMac@1.2.5.7=#00FEED00C0DE", "onuMacBlackHoleVlan@1.2.5.7=4094",
                     "onuMacBlackHoleRowStatus@1.2.5.7=6"}));
    EXPECT_EQ(usable(), "");
    expectWrittenAndRead();
    expectRows({});
}

TEST_F(FilterTest, RowsWithoutInstanceCannotBeDeletedAndDoubleClicksDoNothing) {
    readRow("1", {"00FEED00C0DE", "1", "0", "1"}, "maintable");
    page().mainTable->selectRow(0);
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
    ASSERT_TRUE(host.replyRead(
        644, {.values = Texts{"9"}, .oids = Texts{"7"}, .status = 1U, .resultText = "maintable"}));
    expectRows({});
    readPorts();
    expectRows({{"1", "0"}, {"2", "64"}});
    EXPECT_EQ(usable(), "cfgBtn") << "whatever the flag says";
}

TEST_F(MaxNumTest, OkWritesThePortsLimitAndItsRowIsSelectedAgain) {
    readPorts();
    expectRefused("cfgBtn", "mainTable", {11204});
    for (const char* good : {"0", "1000"}) {
        page().configBtn->setEnabled(true);
        inDialog<TOnuMacMaxNumItem>(1, [&](TOnuMacMaxNumItem& dialog) {
            EXPECT_EQ(stateIn(dialog, "portEdit"), "-2");
            EXPECT_EQ(textIn(dialog, "maxnumEdit"), "64");
            expectChecks(dialog, {{"maxnumEdit", {"", "1001"}, {11068, {"0", "1000"}}, good}});
            test::click(*dialog.okBtn);
        });
        EXPECT_EQ(takeWrite(), Texts{std::string("lanMaxMacLimitNum@1.2.5.2=") + good});
        EXPECT_EQ(takeRead(), ".1.2.5");
        expectWrittenAndRead();
        readPorts();
        EXPECT_EQ(page().mainTable->selectedRow(), 1);
    }
}

} // namespace
} // namespace onudesk
