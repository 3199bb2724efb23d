// SPDX-License-Identifier: MIT
//
// Scripts on the real window: in this process where the agent goes away or a signal comes, else by
// the real program.
#include "ctl/script_runner.h"
#include "ctl/signal_watch.h"
#include "demo_window.h"
#include "support/client_tree.h"
#include "support/program_run.h"
#include "support/silent_port.h"
#include "watched_text.h"

#include <atomic>
#include <csignal>
#include <sstream>

#include <QApplication>

#include <gtest/gtest.h>

namespace onudesk::ctl {
namespace {

using test::ProgramRun;

class RealWindow : public DemoWindow {
protected:
    ExitCode run(const char* script) {
        auto steps = parseScript(script);
        if (!steps) {
            ADD_FAILURE() << steps.error();
            return exitUsage;
        }
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
        const SignalWatch signals;
        ScriptRunner runner(std::move(steps).value(),
                            {.window = driver,
                             .recorder = recorder,
                             .observation = observation,
                             .out = out,
                             .err = err,
                             .interruptions = [&] { return signals.count(); },
                             .scriptName = "s",
                             .watch = true});
        driver.runUntilClosed(target, [&] { runner.start(); });
        const ExitCode outcome = runner.finish();
        clientHost->engine().setObserver({});
        return outcome;
    }

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

// The script comes over standard input.
ProgramRun onuctl(const std::string& script, const std::string& options = {}) {
    return test::run(ONUCTL_FILE, "--sim --onu 1.2.5 " + options + "run -",
                     QProcess::systemEnvironment(), script);
}

TEST(OnuctlRun, ExitStatusAndErrorTellWhatWentWrong) {
    struct Case {
        const char* script;
        int status;
        const char* told;
    };
    const Case cases[] = {
        {"open 606\nwait\nexpect nameEdit text \"Fire station\"", exitOk, ""},
        {"", exitOk, ""},
        {"open 606\nwait\nfly", exitUsage, "standard input: line 3: unknown step fly"},
        {"open 826", exitScriptFailed, "standard input: line 1: item 826: there is no page"},
        {"open 4711", exitScriptFailed, "line 1: item 4711: the menu has no such item"},
        {"open 606\nwait\nclick refreshBtn", exitScriptFailed, "line 3: refreshBtn is disabled"},
        {"open 606\nwait\nclick macBtn", exitScriptFailed, "line 3: macBtn is hidden"},
        {"open 606\nwait\nset macEdit 1", exitScriptFailed, "line 3: macEdit is disabled"},
    };
    for (const Case& expected : cases) {
        const ProgramRun outcome = onuctl(expected.script);
        EXPECT_EQ(outcome.status, expected.status) << expected.script << outcome.err;
        EXPECT_NE(outcome.err.find(expected.told), std::string::npos) << outcome.err;
    }
}

TEST(OnuctlRun, TellsStepsAndPrintsLinesOfJson) {
    const ProgramRun outcome =
        onuctl("# reads\nopen 606\nwait\nprint nameEdit\nexpect writes 0\n", "--watch --json ");
    EXPECT_EQ(outcome.status, exitOk);
    EXPECT_NE(outcome.err.find("2: open 606\n3: wait\n4: print nameEdit\n5: expect writes 0\n"),
              std::string::npos)
        << outcome.err;
    EXPECT_EQ(outcome.out.find("{\"enabled\":true"), 0U) << outcome.out;
    EXPECT_EQ(outcome.out.find('\n'), outcome.out.size() - 1) << outcome.out;
}

// Both directions; the page itself shows the password.
TEST(OnuctlRun, KeepsThePasswordsOfTheOnuOutOfTraceAndWrites) {
    const ProgramRun outcome =
        onuctl("open 823\nwait\nselect modeComb PPPoE\nset passwordEdit hush-hush\n"
               "click configBtn\nwait\nexpect passwordEdit text hush-hush\nprint writes\n",
               "--trace - ");
    EXPECT_EQ(outcome.status, exitOk) << outcome.err;
    EXPECT_NE(outcome.out.find("voipGlobalParamPPPoEpwd 1.3"), std::string::npos) << outcome.out;
    EXPECT_EQ(outcome.out.find("hush"), std::string::npos) << outcome.out;
    EXPECT_EQ(outcome.out.find("f1restat10n"), std::string::npos) << outcome.out;
}

TEST(OnuctlRun, TheSecondSignalEndsTheWaitForAnAgentThatIsSilent) {
    const test::SilentPort silent;
    const test::TemporaryDirectory directory;
    const auto script = directory.write("s.onu", "open 606\nwait\n");
    QProcess process;
    process.start(QStringLiteral(ONUCTL_FILE),
                  QStringLiteral("--agent 127.0.0.1:%1 --onu 1.2.5 --watch run %2")
                      .arg(silent.port())
                      .arg(QString::fromStdString(script.string()))
                      .split(QLatin1Char(' ')));
    process.setReadChannel(QProcess::StandardError);
    const auto waitForLine = [&](const char* text) {
        while (process.canReadLine() || process.waitForReadyRead(60000)) {
            if (process.canReadLine() && process.readLine().contains(text)) {
                return true;
            }
        }
        return false;
    };
    ASSERT_TRUE(waitForLine("2: wait"));
    ::kill(static_cast<pid_t>(process.processId()), SIGTERM);
    ASSERT_TRUE(waitForLine("s.onu: line 2: interrupted"));
    ::kill(static_cast<pid_t>(process.processId()), SIGINT);
    const ProgramRun outcome = test::finish(process);
    EXPECT_EQ(outcome.status, exitInterrupted) << outcome.err;
    EXPECT_EQ(outcome.err.find("time-out"), std::string::npos);
}

} // namespace
} // namespace onudesk::ctl
