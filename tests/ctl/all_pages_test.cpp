// SPDX-License-Identifier: MIT
#include "ctl/recorder.h"
#include "demo_window.h"
#include "support/silent_port.h"

#include <cstdint>
#include <set>

namespace onudesk::ctl {
namespace {

// Items of the menu that open nothing.
const std::set<std::int32_t> kWithoutPage{676, 678, 826, 828, 887};

class AllPages : public DemoWindow {};

// Windows on one host, one after the other: on an agent that answers and on one that does not. Each
// is closed while reads are on their way or replies wait to be shown.
TEST_F(AllPages, EveryPageOpensAndClosesManyTimesWithRequestsOutstanding) {
    constexpr int kRounds = 200;
    constexpr std::size_t kPages = 51;
    const test::SilentPort silent;
    const Recorder recorder;
    const auto widgetsBefore = QApplication::allWidgets().size();
    for (int round = 0; round < kRounds; ++round) {
        target.port = round % 4 == 0 ? silent.port() : agent->port();
        WindowDriver driver(application(), *clientHost);
        driver.run(target, [&] {
            std::set<const QWidget*> pages;
            for (const TreeItem& item : driver.items()) {
                if (item.heading) {
                    continue;
                }
                if (round % 2 == 1) {
                    QCoreApplication::processEvents(); // shows what has come by now
                }
                const auto page = driver.openPage(item.itemType);
                EXPECT_EQ(page && pages.insert(*page).second, !kWithoutPage.contains(item.itemType))
                    << item.itemType;
            }
            EXPECT_EQ(pages.size(), kPages);
            EXPECT_FALSE(clientHost->quiet());
        });
        ASSERT_EQ(QApplication::allWidgets().size(), widgetsBefore) << "round " << round;
    }
    EXPECT_TRUE(recorder.boxes().empty());
}

} // namespace
} // namespace onudesk::ctl
