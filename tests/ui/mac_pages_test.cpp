// SPDX-License-Identifier: MIT
//
// Limits, ageing and filtering of MAC addresses.
#include "pages/mac/onu_mac_age.h"
#include "pages/mac/onu_mac_limit.h"

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

} // namespace
} // namespace onudesk
