// SPDX-License-Identifier: MIT
#include "desk/trace_feed.h"
#include "desk/trace_pane.h"
#include "desk_test.h"
#include "sample_entries.h"

#include <string>
#include <thread>
#include <vector>

#include <QRegularExpression>

namespace onudesk::desk {

namespace {

std::deque<QString> numbered(int from, int to) {
    std::deque<QString> lines;
    for (int i = from; i < to; ++i) {
        lines.push_back(QString::number(i));
    }
    return lines;
}

QStringList linesOf(const TracePane& pane) {
    return pane.traceMemo->toPlainText().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

host::ReplyRecord reply(const std::string& value, const std::string& error = {}) {
    host::ReplyRecord record;
    record.itemType = 606;
    record.values = {value};
    record.error.text = error;
    return record;
}

TEST(TraceFeed, CarriesEntriesOfAnotherThreadInOrder) {
    std::vector<QString> outcomes;
    std::vector<QString> lines;
    TraceFeed* source = nullptr;
    TraceFeed feed([&] {
        for (const TraceEntry& entry : source->take()) {
            lines.push_back(entry.line);
            outcomes.push_back(entry.outcome);
        }
    });
    source = &feed;
    const host::EngineObserver observer =
        traceObserver(feed, host::SecretMask({test::communityProfile().readCommunity,
                                              test::communityProfile().writeCommunity}));
    std::thread([&observer] {
        observer.onRequest({});
        observer.onReply(reply("look"));
        observer.onReply(reply("other", "timed out"));
    }).join();

    EXPECT_TRUE(lines.empty());
    ASSERT_TRUE(test::waitUntil([&] { return lines.size() == 3; }));
    static const QRegularExpression stamp(QStringLiteral(R"(^\d\d:\d\d:\d\d\.\d\d\d  \{)"));
    for (const QString& line : lines) {
        EXPECT_TRUE(line.contains(stamp)) << line.toStdString();
    }
    EXPECT_TRUE(lines[1].contains(QStringLiteral("•••")));
    EXPECT_FALSE(lines[1].contains(QStringLiteral("look")));
    EXPECT_TRUE(outcomes[0].isEmpty());
    EXPECT_EQ(outcomes[1], QStringLiteral("Item 606: read"));
    EXPECT_EQ(outcomes[2], QStringLiteral("Item 606: timed out"));
}

TEST(TraceFeed, KeepsTheNewestEntries) {
    TraceFeed feed([] {});
    for (std::size_t i = 0; i <= TraceFeed::kMaxEntries; ++i) {
        feed.post({QString::number(i), {}});
    }
    const std::deque<TraceEntry> entries = feed.take();
    ASSERT_EQ(entries.size(), TraceFeed::kMaxEntries);
    EXPECT_EQ(entries.front().line, QStringLiteral("1"));
    EXPECT_TRUE(feed.take().empty());
}

TEST(TraceFeed, ALineStaysOneLineOfBoundedLength) {
    TraceFeed feed([] {});
    const host::EngineObserver observer =
        traceObserver(feed, host::SecretMask(std::vector<std::string>{}));
    observer.onReply(reply("a\xe2\x80\xa8"
                           "b\nc"));
    observer.onReply(reply(std::string(70000, 'x')));
    const std::deque<TraceEntry> entries = feed.take();
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_TRUE(entries[0].line.contains(QStringLiteral("a\\u2028b\\nc")))
        << entries[0].line.toStdString();
    EXPECT_LT(entries[1].line.size(), 4200);
    EXPECT_TRUE(entries[1].line.endsWith(QStringLiteral("…")));
}

TEST(TracePane, KeepsTheNewestLines) {
    TracePane pane(nullptr);
    const int most = static_cast<int>(TraceFeed::kMaxEntries);
    pane.addLines(numbered(0, most));
    pane.addLines(numbered(most, most + 2));
    const QStringList lines = linesOf(pane);
    EXPECT_EQ(lines.size(), most);
    EXPECT_EQ(lines.first(), QStringLiteral("2"));
    EXPECT_EQ(lines.last(), QString::number(most + 1));
}

TEST(TracePane, PauseHoldsLinesBackUntilItEnds) {
    TracePane pane(nullptr);
    pane.addLines(numbered(0, 1));
    pane.pauseBtn->click();
    pane.addLines(numbered(1, 3));
    EXPECT_EQ(linesOf(pane), QStringList{QStringLiteral("0")});
    pane.pauseBtn->click();
    EXPECT_EQ(linesOf(pane).size(), 3);
    pane.addLines(numbered(3, 4));
    EXPECT_EQ(linesOf(pane).last(), QStringLiteral("3"));
    EXPECT_EQ(linesOf(pane).size(), 4);
}

TEST(TracePane, ClearForgetsShownAndHeldBackLines) {
    TracePane pane(nullptr);
    pane.addLines(numbered(0, 1));
    pane.pauseBtn->click();
    pane.addLines(numbered(1, 2));
    pane.clearBtn->click();
    pane.pauseBtn->click();
    EXPECT_TRUE(linesOf(pane).isEmpty());
    EXPECT_TRUE(pane.traceMemo->isReadOnly());
}

} // namespace

} // namespace onudesk::desk
