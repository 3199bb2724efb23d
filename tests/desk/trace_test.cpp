// SPDX-License-Identifier: MIT
#include "desk/trace_feed.h"
#include "desk/trace_pane.h"
#include "desk_test.h"

#include <thread>

#include <QRegularExpression>

namespace onudesk::desk {

namespace {

host::ReplyRecord reply(const std::string& value, const std::string& error = {}) {
    host::ReplyRecord record;
    record.itemType = 606;
    record.values = {value};
    record.error.text = error;
    return record;
}

TEST(TraceFeed, CarriesEntriesOfAnotherThreadInOrder) {
    std::deque<TraceEntry> entries;
    TraceFeed* source = nullptr;
    TraceFeed feed([&] {
        for (TraceEntry& entry : source->take()) {
            entries.push_back(std::move(entry));
        }
    });
    source = &feed;
    const host::EngineObserver observer = traceObserver(feed, host::SecretMask({"look"}));
    std::thread([&observer] {
        observer.onRequest({});
        observer.onReply(reply("look"));
        observer.onReply(reply("a\xe2\x80\xa8"
                               "b\nc",
                               "timed out"));
        observer.onReply(reply(std::string(70000, 'x')));
    }).join();
    EXPECT_TRUE(entries.empty());
    ASSERT_TRUE(test::waitFor([&] { return entries.size() == 4; }));
    static const QRegularExpression stamp(QStringLiteral(R"(^\d\d:\d\d:\d\d\.\d\d\d  \{)"));
    for (const TraceEntry& entry : entries) {
        EXPECT_TRUE(entry.line.contains(stamp)) << entry.line.toStdString();
    }
    EXPECT_TRUE(entries[0].outcome.isEmpty());
    EXPECT_TRUE(entries[1].line.contains(QStringLiteral("•••")));
    EXPECT_FALSE(entries[1].line.contains(QStringLiteral("look")));
    EXPECT_EQ(entries[1].outcome, QStringLiteral("Item 606: read"));
    // A line stays one line, of bounded length.
    EXPECT_TRUE(entries[2].line.contains(QStringLiteral("a\\u2028b\\nc")));
    EXPECT_EQ(entries[2].outcome, QStringLiteral("Item 606: timed out"));
    EXPECT_LT(entries[3].line.size(), 4200);
    EXPECT_TRUE(entries[3].line.endsWith(QStringLiteral("…")));
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

class TracePaneTest : public testing::Test {
protected:
    void add(int from, int to) {
        std::deque<QString> lines;
        for (int i = from; i < to; ++i) {
            lines.push_back(QString::number(i));
        }
        pane.addLines(lines);
    }
    // How many there are, the first and the last.
    [[nodiscard]] std::string lines() const {
        const QStringList all =
            pane.traceMemo->toPlainText().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        return all.isEmpty() ? "none"
                             : std::to_string(all.size()) + ": " + all.first().toStdString() +
                                   " to " + all.last().toStdString();
    }

    TracePane pane{nullptr};
};

TEST_F(TracePaneTest, KeepsTheNewestLinesAndHoldsThemBackWhilePaused) {
    static_assert(TraceFeed::kMaxEntries == 5000);
    EXPECT_TRUE(pane.traceMemo->isReadOnly());
    add(0, 1);
    pane.pauseBtn->click();
    add(1, 3);
    EXPECT_EQ(lines(), "1: 0 to 0");
    pane.pauseBtn->click();
    EXPECT_EQ(lines(), "3: 0 to 2");
    add(3, 5000);
    add(5000, 5002);
    EXPECT_EQ(lines(), "5000: 2 to 5001");
    pane.pauseBtn->click();
    add(0, 1);
    pane.clearBtn->click();
    pane.pauseBtn->click();
    EXPECT_EQ(lines(), "none") << "what was held back is forgotten, too";
}

} // namespace

} // namespace onudesk::desk
