// SPDX-License-Identifier: MIT
//
// What steps cannot tell: mouse and tab order, a missing catalogue, and the functions of pages that
// know no widgets.
#include "env/language_module.h"
#include "page_steps.h"
#include "pages/framework/row_table.h"
#include "pages/qinq/vlan_set.h"
#include "pages/vlan/trunk_list.h"

#include <cstdlib>
#include <set>

#include <QCoreApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QToolTip>

namespace onudesk::test {
namespace {

class PageOddities : public PageSteps {};

TEST_F(PageOddities, WithoutCatalogueBasicPostsNothing) {
    const TemporaryDirectory directory;
    const ClientTree empty(directory.path());
    open({.itemType = 606});
    EXPECT_EQ(desk.takeBox().text, messageText(11140));
    for (const char* step : {"fail", "set macEdit=00:1A:2B:3C:4D:5E", "click configBtn", "idle",
                             "locked configBtn", "elapse", "unlocked refreshBtn"}) {
        run(step);
    }
}

TEST_F(PageOddities, TheHintOfAPortFollowsTheMouse) {
    open({.itemType = 617});
    run("reply 1 0 1 2 0000000E0000ABCD row=1");
    run("reply 1 0 1 2 00000000 row=2");
    auto& table = in<RowTable>(page(), "mainTable");
    const auto hintAt = [&table](int y) {
        const QPointF at(20, y);
        QMouseEvent move(QEvent::MouseMove, at, table.viewport()->mapToGlobal(at), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(table.viewport(), &move);
        return table.toolTip().toStdString();
    };
    const int height = table.rowHeight(0);
    EXPECT_EQ(hintAt(height / 2), messageText(11316) + "\n10BASE-T\n0000ABCD\n");
    const QPoint onRow(20, height / 2);
    QHelpEvent asks(QEvent::ToolTip, onRow, table.viewport()->mapToGlobal(onRow));
    QCoreApplication::sendEvent(table.viewport(), &asks);
    EXPECT_EQ(QToolTip::text(), table.toolTip());
    QToolTip::hideText();
    EXPECT_EQ(hintAt(height + height / 2), messageText(11316) + "\n");
    EXPECT_EQ(hintAt(4 * height), "");
}

TEST_F(PageOddities, MembershipIsCentred) {
    open({.itemType = 611});
    run("reply 100 1 0 0 0 row=100");
    const auto& table = in<RowTable>(page(), "mainTable");
    EXPECT_EQ(table.itemDelegateForColumn(1)->objectName(), QStringLiteral("centred"));
    EXPECT_EQ(table.itemDelegateForColumn(3), nullptr);
}

TEST_F(PageOddities, TheFirstReadOfAListByPortsIsForNone) {
    for (const std::int32_t item : {613, 621, 647, 648}) {
        open({.itemType = item});
        run("reply 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 1 row=1");
        EXPECT_FALSE(session.PortPending) << item;
    }
}

TEST_F(PageOddities, ThresholdsStandUnderTheirTitles) {
    open({.itemType = 667});
    const auto left = [this](QWidget& widget) { return widget.mapTo(&page(), QPoint()).x(); };
    for (const auto& [title, edit] : {std::pair(66711, "rpHWEdit"), {66712, "rpLWEdit"}}) {
        for (QLabel* label : page().findChildren<QLabel*>()) {
            EXPECT_EQ(label->text().toStdString() == messageText(title),
                      left(*label) == left(control(edit)));
        }
    }
}

TEST_F(PageOddities, TabsFollowTheEyeFromIdentityToTheButtons) {
    open({.itemType = 606});
    page().resize(635, 520);
    const QWidget& first = control("llidEdt");
    std::vector<const QWidget*> order;
    for (const QWidget* next = &first; order.empty() || next != &first;
         next = next->nextInFocusChain()) {
        if ((next->focusPolicy() & Qt::TabFocus) != 0 && next->isVisibleTo(&page())) {
            order.push_back(next);
        }
    }
    ASSERT_EQ(order.size(), 5U + 2U + 12U + 3U); // identity, its buttons, capabilities, bottom
    for (std::size_t at = 1; at < order.size(); ++at) {
        const QPoint from = order[at - 1]->mapTo(&page(), order[at - 1]->rect().center());
        const QPoint to = order[at]->mapTo(&page(), order[at]->rect().center());
        const bool sameRow = std::abs(from.y() - to.y()) < order[at - 1]->height() / 2;
        EXPECT_TRUE(sameRow ? from.x() < to.x() : from.y() < to.y())
            << order[at]->objectName().toStdString();
    }
}

TEST(VlanSets, HoldBothEndsOfWhatAreVlans) {
    const std::pair<const char*, const char*> ranges[] = {{"10", "12"},
                                                          {"300", "300"},
                                                          {"50", "40"},
                                                          {"", "60"},
                                                          {"70", ""},
                                                          {"x", "80"},
                                                          {"4090", "9223372036854775807"},
                                                          {"-9223372036854775808", "1"}};
    VlanSet set;
    for (const auto& [first, last] : ranges) {
        set.add(first, last);
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

TEST(TrunkLists, AreNumbersAndRanges) {
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
    EXPECT_EQ(trunkBytes({}), std::string(16, '\0'));
    EXPECT_EQ(trunkBytes({4094}), std::string("\x0F\xFE", 2) + std::string(14, '\0'));
    EXPECT_EQ(trunkText("000A0014"), "10,20");
    EXPECT_EQ(trunkText("0000000a00140"), "10,20");
    EXPECT_EQ(trunkText(""), "");
}

} // namespace
} // namespace onudesk::test
