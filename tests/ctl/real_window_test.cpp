// SPDX-License-Identifier: MIT
//
// The real window in this process: where the agent goes away, a signal comes, or windows come and
// go.
#include "ctl/script_runner.h"
#include "ctl/signal_watch.h"
#include "ctl/window_driver.h"
#include "host/agent_launcher.h"
#include "support/silent_port.h"
#include "watched_text.h"

#include <atomic>
#include <csignal>
#include <set>

#include <QApplication>

namespace onudesk::ctl {
namespace {

// The demonstration agent and the plug-in, with short time-outs.
class RealWindow : public testing::Test {
protected:
    void SetUp() override {
        const std::filesystem::path client = ONUDESK_BUILD_CLIENT_DIR;
        auto started = host::AgentLauncher::start(host::demoAgent(client));
        ASSERT_TRUE(started) << started.error();
        agent.emplace(std::move(started).value());
        host::EngineOptions options;
        options.timeoutUnit = std::chrono::milliseconds(50);
        auto opened = host::ClientHost::open(client, options);
        ASSERT_TRUE(opened) << opened.error();
        clientHost = std::move(opened).value();
        target.agentAddress = "127.0.0.1";
        target.port = agent->port();
        target.menuFileName = "epononuother_menu.xml";
        host::useDemoAccess(target);
        ASSERT_TRUE(host::parseOnuIndex("1.2.5", target));
    }
    static QApplication& application() {
        return *qobject_cast<QApplication*>(QApplication::instance());
    }
    ExitCode run(const char* script) {
        Observation observation(nullptr, host::SecretMask({}));
        requests = 0;
        replies = 0;
        const host::EngineObserver observer = observation.observer();
        clientHost->engine().setObserver({[&](const host::RequestRecord& request) {
                                              ++requests;
                                              observer.onRequest(request);
                                          },
                                          [&](const host::ReplyRecord& reply) {
                                              ++replies;
                                              observer.onReply(reply);
                                          }});
        WindowDriver driver(application(), *clientHost);
        Recorder recorder;
        std::ostringstream out;
        std::ostream err(&told);
        std::optional<SignalWatch> signals;
        ScriptRunner runner(parseScript(script).value(),
                            {.window = driver,
                             .recorder = recorder,
                             .observation = observation,
                             .out = out,
                             .err = err,
                             .interruptions = [&] { return signals->count(); },
                             .scriptName = "s",
                             .watch = true});
        signals.emplace([&] { runner.lookAgain(); });
        driver.runUntilClosed(target, [&] { runner.start(); });
        const ExitCode outcome = runner.finish();
        clientHost->engine().setObserver({});
        return outcome;
    }

    std::optional<host::AgentLauncher> agent;
    std::unique_ptr<host::ClientHost> clientHost;
    host::OnuTarget target;
    WatchedText told;
    std::atomic<int> requests = 0;
    std::atomic<int> replies = 0;
};

constexpr const char* kTwoReads = "open 606\nwait\nexpect rttEdit text 640\nelapse\n"
                                  "click refreshBtn\nwait\nset nameEdit x\n";

TEST_F(RealWindow, AnAgentThatDisappearsEndsTheRunWhereItIsWaitedFor) {
    told.text = "4: ";
    told.act = [this] { agent.reset(); };
    EXPECT_EQ(run(kTwoReads), exitConnectionFailed);
    EXPECT_NE(told.str().find("s: line 6: time-out"), std::string::npos) << told.str();
    EXPECT_EQ(told.str().find("7: set"), std::string::npos) << told.str();
}

TEST_F(RealWindow, ASignalDuringAWaitEndsTheRunWithEverythingAnswered) {
    told.text = "6: wait";
    told.act = [] { std::raise(SIGINT); };
    EXPECT_EQ(run(kTwoReads), exitInterrupted);
    EXPECT_NE(told.str().find("s: line 6: interrupted"), std::string::npos) << told.str();
    EXPECT_EQ(requests, 2);
    EXPECT_EQ(replies, 2);
}

TEST_F(RealWindow, ClosingTheWindowIsAStepLikeAnother) {
    EXPECT_EQ(run("open 606\nwait\nclick ClosePanel"), exitOk) << told.str();
    EXPECT_EQ(run("open 606\nwait\nclick ClosePanel\nclick configBtn"), exitScriptFailed);
    EXPECT_NE(told.str().find("line 4: the window is closed"), std::string::npos);
}

// Items of the menu that open nothing.
const std::set<std::int32_t> kWithoutPage{676, 678, 826, 828, 887};

// Windows on one host, one after the other: on an agent that answers and on one that does not. Each
// is closed while reads are on their way or replies wait to be shown.
TEST_F(RealWindow, EveryPageOpensAndClosesManyTimesWithRequestsOutstanding) {
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
