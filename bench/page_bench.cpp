// SPDX-License-Identifier: MIT
//
// Reading the basic page through the whole stack against a bare Net-SNMP session with the same
// objects and the same agent, in turns; the time to the window's first paint; and its memory.
#include "bare_session.h"
#include "ctl/recorder.h"
#include "ctl/window_driver.h"
#include "demo_target.h"
#include "host/agent_launcher.h"
#include "memory.h"
#include "platform/files.h"
#include "snmp/object_schema.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <iostream>
#include <string>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>

namespace {

using Clock = std::chrono::steady_clock;
using onudesk::host::AgentLauncher;
using onudesk::host::ClientHost;
using onudesk::host::OnuTarget;
using onudesk::host::SnmpVersion;

constexpr int kRounds = 200;
constexpr int kItem = 606;
const std::filesystem::path kClient = BENCH_CLIENT_DIR;

double since(Clock::time_point begin) {
    return std::chrono::duration<double, std::micro>(Clock::now() - begin).count();
}

double quantile(std::vector<double> values, double share) {
    std::ranges::sort(values);
    return values[static_cast<std::size_t>(share * static_cast<double>(values.size() - 1))];
}

std::vector<std::string> objectsOfTheBasicPage() {
    std::vector<std::string> oids;
    const auto schema = onudesk::loadSchema(kClient / "CONF/snmp/snmpconfig.xml");
    for (const auto& object : schema->at(kItem).front().objects) {
        oids.push_back(object.object.oidstr + ".1.2.5");
    }
    return oids;
}

// Stops its clock at the end of the event that put a text into an edit.
class TimedApplication : public QApplication {
public:
    using QApplication::QApplication;

    const QLineEdit* watched = nullptr;
    double filledAfter = 0; // microseconds
    Clock::time_point begin;

    bool notify(QObject* receiver, QEvent* event) override {
        const bool handled = QApplication::notify(receiver, event);
        if (watched != nullptr && !watched->text().isEmpty()) {
            filledAfter = since(begin);
            watched = nullptr;
        }
        return handled;
    }
};

// From the click on Refresh to the filled controls, the window being painted as on a screen.
double readPage(TimedApplication& application, QWidget& page) {
    auto* refresh = page.findChild<QPushButton*>(QStringLiteral("refreshBtn"));
    auto* last = page.findChild<QLineEdit*>(QStringLiteral("nameEdit"));
    refresh->setEnabled(true);
    last->clear();
    QCoreApplication::processEvents();
    application.watched = last;
    application.begin = Clock::now();
    refresh->click();
    while (application.watched != nullptr) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return application.filledAfter;
}

void compareReads(TimedApplication& application, ClientHost& host, const OnuTarget& target,
                  const char* name) {
    const std::vector<std::string> oids = objectsOfTheBasicPage();
    std::vector<double> whole;
    std::vector<double> bare;
    onudesk::ctl::WindowDriver driver(application, host);
    driver.run(target, [&] {
        driver.window()->setUpdatesEnabled(true);
        (void)driver.openPage(kItem);
        driver.waitUntilQuiet();
        onudesk::bench::BareSession session(target);
        for (int round = 0; round < kRounds; ++round) {
            whole.push_back(readPage(application, *driver.page()));
            driver.waitUntilQuiet();
            const auto begin = Clock::now();
            if (session.get(oids) != oids.size()) {
                std::puts("the bare session did not get every object");
                return;
            }
            bare.push_back(since(begin));
        }
    });
    std::printf("read %s: page p50 %.0f us p99 %.0f us; bare p50 %.0f us p99 %.0f us; "
                "page - bare %.0f us (limit 1000)\n",
                name, quantile(whole, 0.5), quantile(whole, 0.99), quantile(bare, 0.5),
                quantile(bare, 0.99), quantile(whole, 0.5) - quantile(bare, 0.5));
}

// From the call into the plug-in to the end of the window's first paint.
class FirstPaint : public QObject {
public:
    using QObject::QObject;
    Clock::time_point begin;
    double microseconds = 0;
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool paints = event->type() == QEvent::Paint && microseconds == 0 &&
                            watched->objectName() == QStringLiteral("TConfigMainForm");
        if (paints) {
            // The window's children have painted when control returns to the loop.
            QMetaObject::invokeMethod(
                this, [this] { microseconds = since(begin); }, Qt::QueuedConnection);
        }
        return QObject::eventFilter(watched, event);
    }
};

void measureFirstPaint(QApplication& application, ClientHost& host, const OnuTarget& target) {
    FirstPaint paint;
    application.installEventFilter(&paint);
    onudesk::ctl::WindowDriver driver(application, host);
    paint.begin = Clock::now();
    driver.run(target, [&] {
        driver.window()->setUpdatesEnabled(true);
        while (paint.microseconds == 0) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
        }
    });
    std::printf("first paint: %.1f ms (limit 100)\n", paint.microseconds / 1000);
}

int printMemory(QApplication& application, ClientHost& host, const OnuTarget& target) {
    onudesk::ctl::WindowDriver driver(application, host);
    driver.run(target, [&] {
        driver.window()->setUpdatesEnabled(true);
        (void)driver.openPage(kItem);
        driver.waitUntilQuiet();
        driver.window()->grab();
        std::printf("%ld\n", onudesk::bench::residentKilobytes());
    });
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const bool memoryOnly = argc > 1 && std::string(argv[1]) == "--memory";
    TimedApplication application(argc, argv);
    auto agent = AgentLauncher::start(onudesk::host::demoAgent(kClient));
    auto host = ClientHost::open(kClient);
    if (!agent || !host) {
        std::cerr << (agent ? host.error() : agent.error()) << '\n';
        return 1;
    }
    const onudesk::ctl::Recorder recorder;
    OnuTarget target = onudesk::bench::demoTarget(agent->port());
    if (memoryOnly) {
        return printMemory(application, **host, target);
    }
    measureFirstPaint(application, **host, target);
    target.version = SnmpVersion::v2c;
    compareReads(application, **host, target, "v2c");
    target.version = SnmpVersion::v3;
    compareReads(application, **host, target, "v3 authPriv");
    return 0;
}
