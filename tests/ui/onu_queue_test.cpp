// SPDX-License-Identifier: MIT
//
// Queue scheduling, and the lists of COS values.
#include "pages/qos/onu_cos_queue_scheduler.h"
#include "pages/qos/onu_queue_scheduler.h"
#include "pages/qos/onu_repeat_cos_queue.h"

#include "page_test.h"

namespace onudesk {
namespace {

using test::Texts;

class QueueTest : public test::PageTest<TOnuQueueScheduler, 650> {
protected:
    static constexpr std::array kEdits{"queue0Edit", "queue1Edit", "queue2Edit", "queue3Edit"};

    Texts weights() {
        Texts texts;
        for (const char* edit : kEdits) {
            texts.push_back(text(edit));
        }
        return texts;
    }
    void expectWeightsEnabled(bool expected, const std::string& why) {
        for (const char* edit : kEdits) {
            EXPECT_EQ(enabled(edit), expected) << edit << " " << why;
        }
    }
    void choose(const char* combo, int messageId) {
        auto& control = PageTest::control<QComboBox>(combo);
        selectByText(control, messageText(messageId));
        Q_EMIT control.activated(control.currentIndex());
    }
};

TEST_F(QueueTest, SplitsTheWeightsAndKeepsWhatIsNotReported) {
    struct Case {
        Texts values;
        Texts weights;
    };
    const Case cases[] = {
        {{"2", "8,4,2,1", "1"}, {"8", "4", "2", "1"}},
        {{"2", "15,7", "1"}, {"15", "7", "2", "1"}},
        {{"2", "", "1"}, {"15", "7", "2", "1"}},
        {{"2", "1,,3,4,5", "1"}, {"1", "", "3", "4"}},
        {{"2", "9,9,9,9"}, {"1", "", "3", "4"}}, // too short a reply
        {{"2", "123456,5", "0"}, {"123456", "5", "3", "4"}},
    };
    for (const Case& each : cases) {
        read(each.values, "maintable");
        EXPECT_EQ(weights(), each.weights) << each.values[1];
    }
    EXPECT_EQ(text("enalbeComb"), messageText(11008));
    read({"2", "1", "7"}, "maintable");
    EXPECT_EQ(text("enalbeComb"), "") << "an unknown code";
}

TEST_F(QueueTest, TheModeDecidesWhetherWeightsCanBeSet) {
    expectWeightsEnabled(false, "before the first reply");
    struct Case {
        const char* mode;
        int messageId; // of the text; 0 for none
        bool enables;
    };
    const Case cases[] = {
        {"3", 0, false},    {"2", 3114, true}, {"9", 0, true},
        {"1", 3113, false}, {"2", 3114, true}, {"4", 3115, false},
    };
    for (const Case& each : cases) {
        read({each.mode, "8,4,2,1", "0"}, "maintable", 0);
        EXPECT_EQ(text("modeComb"), each.messageId == 0 ? "" : messageText(each.messageId));
        expectWeightsEnabled(each.enables, each.mode);
        EXPECT_TRUE(enabled("configBtn"));
    }
    choose("modeComb", 3114);
    expectWeightsEnabled(true, "chosen");
    choose("modeComb", 3113);
    expectWeightsEnabled(false, "chosen");
    page().queueEdits[0]->setEnabled(true);
    choose("enalbeComb", 11007);
    expectWeightsEnabled(false, "both lists apply the mode");
}

TEST_F(QueueTest, ChecksEnabledWeightsInOrder) {
    read({"2", "8,4,2,1", "0"}, "maintable");
    setText("queue3Edit", "16");
    for (const char* bad : {"0", "16"}) {
        setText("queue1Edit", bad);
        expectRefused("configBtn", "queue1Edit", {11068, {"1", "15"}});
    }
    setText("queue1Edit", "");
    expectRefused("configBtn", "queue1Edit", {});
    setText("queue1Edit", "15");
    expectRefused("configBtn", "queue3Edit", {11068, {"1", "15"}});
    choose("modeComb", 3113);
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), Texts{"onuQueueMode@1.2.5=1"}) << "locked weights are not checked";
    page().configBtn->setEnabled(true);
    choose("modeComb", 3115);
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), Texts{"onuQueueMode@1.2.5=4"});
    test::type(control<QLineEdit>("queue1Edit"), QStringLiteral("x"));
    EXPECT_EQ(text("queue1Edit"), "15");
}

TEST_F(QueueTest, WritesModeThenWeightsThenTheTickedSwitch) {
    read({"2", "8,4,2,1", "0"}, "maintable");
    control<QCheckBox>("remapCheckB").setChecked(true);
    choose("enalbeComb", 11007);
    setText("queue0Edit", "1");
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), (Texts{"onuQueueMode@1.2.5=2", "onuQueueWeight@1.2.5=1,4,2,1",
                                  "onuQueueCosRemapStats@1.2.5=1"}));
    EXPECT_FALSE(enabled("configBtn"));
    expectWrittenAndRead();
    failRead();
    EXPECT_TRUE(enabled("configBtn"));
    control<QCheckBox>("remapCheckB").setChecked(false);
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), (Texts{"onuQueueMode@1.2.5=2", "onuQueueWeight@1.2.5=1,4,2,1"}));
}

class CosTest : public test::PageTest<TOnuCOSQueueScheduler, 651> {};

TEST_F(CosTest, CountsFromZeroAndWritesToTheRow) {
    readRow("1", {"3"}, "maintable", 0);
    EXPECT_TRUE(enabled("cfgBtn"));
    readRow("8", {"0"}, "maintable");
    readRow("2", {}, "maintable");
    ASSERT_EQ(page().mainTable->rowCount(), 2);
    EXPECT_EQ(page().mainTable->cells(0), (Texts{"0", "3"}));
    EXPECT_EQ(page().mainTable->cells(1), (Texts{"7", "0"}));
    failRead();
    expectRefused("cfgBtn", "mainTable", {11204});
    page().mainTable->selectRow(0);
    inDialog<TOnuCOSQueueSchedulerItem>([](TOnuCOSQueueSchedulerItem& dialog) {
        EXPECT_EQ(bytesOf(dialog.windowTitle()), messageText(65103));
        const auto* cos = dialog.findChild<QLineEdit*>(QStringLiteral("cosEdit"));
        EXPECT_EQ(stateOf(*cos).text, "0");
        EXPECT_TRUE(cos->isReadOnly());
        auto* queue = dialog.findChild<QComboBox*>(QStringLiteral("queueComb"));
        EXPECT_EQ(queue->currentText(), QStringLiteral("3"));
        ASSERT_EQ(queue->count(), 4);
        queue->setCurrentIndex(2);
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(), Texts{"onuQueueClass@1.2.5.1=2"});
    EXPECT_EQ(takeRead(), ".1.2.5");
    expectWrittenAndRead();
}

TEST_F(CosTest, RowsWithoutANumberHaveNoCos) {
    readRow("0", {"1"}, "maintable");
    readRow("4294967296", {"1"}, "maintable");
    EXPECT_EQ(page().mainTable->cell(0, 0), "-1");
    EXPECT_EQ(page().mainTable->cell(1, 0), "");
}

class RemapTest : public test::PageTest<TOnuRepeatCOSQueue, 652> {
protected:
    void readRows(const char* remapEnabled) {
        readRow("6", {"6"}, "maintable", 0);
        readRow("7", {"0"}, "maintable", 0);
        read({remapEnabled}, "group1");
    }
};

TEST_F(RemapTest, IsLockedWhileTheOnuDoesNotRemap) {
    readRow("6", {"6"}, "maintable");
    expectRefused("cfgBtn", "mainTable", {11204});
    page().mainTable->selectRow(0);
    expectRefused("cfgBtn", "mainTable", {3112}); // nothing was said about remapping yet
    readRows("1");
    read({"0"}, "group2");
    read({}, "group1");
    EXPECT_EQ(page().mainTable->rowCount(), 2);
    inDialog<TOnuRepeatCOSQueueItem>([](TOnuRepeatCOSQueueItem&) {});
    takeRead();
    readRows("0");
    page().mainTable->selectRow(1);
    expectRefused("cfgBtn", "mainTable", {3112});
    readRows("2");
    inDialog<TOnuRepeatCOSQueueItem>([](TOnuRepeatCOSQueueItem&) {});
}

TEST_F(RemapTest, WritesTheNewCosToTheRowOfTheOld) {
    readRows("1");
    EXPECT_EQ(page().mainTable->cells(1), (Texts{"6", "0"}));
    page().mainTable->selectRow(1);
    inDialog<TOnuRepeatCOSQueueItem>([](TOnuRepeatCOSQueueItem& dialog) {
        EXPECT_EQ(bytesOf(dialog.windowTitle()), messageText(65203));
        const auto* old = dialog.findChild<QLineEdit*>(QStringLiteral("oldcosEdit"));
        EXPECT_EQ(stateOf(*old).text, "6");
        auto* cos = dialog.findChild<QComboBox*>(QStringLiteral("newcosComb"));
        EXPECT_EQ(cos->currentText(), QStringLiteral("0"));
        ASSERT_EQ(cos->count(), 8);
        cos->setCurrentIndex(7);
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(), Texts{"onuQueueNewCos@1.2.5.7=7"});
    takeRead();
    expectWrittenAndRead();
    readRows("1");
    EXPECT_EQ(page().mainTable->selectedRow(), 1);
}

} // namespace
} // namespace onudesk
