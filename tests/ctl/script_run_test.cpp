// SPDX-License-Identifier: MIT
//
// Scripts on the real window: in this process where the agent goes away or a signal comes, else by
// the real program.
#include "ctl/script_runner.h"
#include "ctl/signal_watch.h"
#include "ctl/window_driver.h"
#include "support/client_tree.h"
#include "watched_text.h"

#include <atomic>
#include <csignal>
#include <sstream>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QApplication>
#include <QProcess>

#include <gtest/gtest.h>

namespace onudesk::ctl {
namespace {

// A port of the loopback that nobody answers on.
class SilentPort {
public:
    SilentPort() : socket_(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* const generic = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(::bind(socket_, generic, size), 0);
        EXPECT_EQ(::getsockname(socket_, generic, &size), 0);
        port_ = ntohs(address.sin_port);
    }
    ~SilentPort() { ::close(socket_); }
    SilentPort(const SilentPort&) = delete;
    SilentPort& operator=(const SilentPort&) = delete;

    [[nodiscard]] std::uint16_t port() const { return port_; }

private:
    int socket_;
    std::uint16_t port_ = 0;
};

// The demonstration agent and the real plug-in in this process, with short time-outs.
class RealWindow : public testing::Test {
protected:
    void SetUp() override {
        const std::filesystem::path client = ONUDESK_BUILD_CLIENT_DIR;
        auto started = host::AgentLauncher::start(host::demoAgent(client));
        ASSERT_TRUE(started) << started.error();
        agent.emplace(std::move(started).value());
        host::EngineOptions options;
        options.timeoutUnit = std::chrono::milliseconds(10);
        auto opened = host::ClientHost::open(client, options);
        ASSERT_TRUE(opened) << opened.error();
        clientHost = std::move(opened).value();
        target.agentAddress = "127.0.0.1";
        target.port = agent->port();
        target.menuFileName = "epononuother_menu.xml";
        host::useDemoAccess(target);
        ASSERT_TRUE(host::parseOnuIndex("1.2.5", target));
    }
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
        WindowDriver driver(*qobject_cast<QApplication*>(QApplication::instance()), *clientHost);
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

struct Outcome {
    int status = -1;
    std::string out;
    std::string err;
};

Outcome finish(QProcess& process) {
    EXPECT_TRUE(process.waitForFinished(60000));
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

// The script comes over standard input.
Outcome onuctl(const std::string& script, const QStringList& options = {}) {
    QProcess process;
    process.start(
        QStringLiteral(ONUCTL_FILE),
        QStringList{QStringLiteral("--sim"), QStringLiteral("--onu"), QStringLiteral("1.2.5")} +
            options + QStringList{QStringLiteral("run"), QStringLiteral("-")});
    process.write(QByteArray::fromStdString(script));
    process.closeWriteChannel();
    return finish(process);
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
        const Outcome outcome = onuctl(expected.script);
        EXPECT_EQ(outcome.status, expected.status) << expected.script << outcome.err;
        EXPECT_NE(outcome.err.find(expected.told), std::string::npos) << outcome.err;
    }
}

TEST(OnuctlRun, TellsStepsAndPrintsLinesOfJson) {
    const Outcome outcome = onuctl("# reads\nopen 606\nwait\nprint nameEdit\nexpect writes 0\n",
                                   {QStringLiteral("--watch"), QStringLiteral("--json")});
    EXPECT_EQ(outcome.status, exitOk);
    EXPECT_NE(outcome.err.find("2: open 606\n3: wait\n4: print nameEdit\n5: expect writes 0\n"),
              std::string::npos)
        << outcome.err;
    EXPECT_EQ(outcome.out.find("{\"enabled\":true"), 0U) << outcome.out;
    EXPECT_EQ(outcome.out.find('\n'), outcome.out.size() - 1) << outcome.out;
}

TEST(OnuctlRun, TheSecondSignalEndsTheWaitForAnAgentThatIsSilent) {
    const SilentPort silent;
    const test::TemporaryDirectory directory;
    const auto script = directory.write("s.onu", "open 606\nwait\n");
    QProcess process;
    process.start(QStringLiteral(ONUCTL_FILE),
                  {QStringLiteral("--agent"), QStringLiteral("127.0.0.1:%1").arg(silent.port()),
                   QStringLiteral("--onu"), QStringLiteral("1.2.5"), QStringLiteral("--watch"),
                   QStringLiteral("run"), QString::fromStdString(script.string())});
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
    const Outcome outcome = finish(process);
    EXPECT_EQ(outcome.status, exitInterrupted) << outcome.err;
    EXPECT_EQ(outcome.err.find("time-out"), std::string::npos);
}

} // namespace
} // namespace onudesk::ctl
