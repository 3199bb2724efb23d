// SPDX-License-Identifier: MIT
//
// Limits, ageing and filtering of MAC addresses.
#include "pages/mac/onu_mac_age.h"
#include "pages/mac/onu_mac_limit.h"
#include "pages/mac/onu_mac_max_num.h"

#include "page_test.h"

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
