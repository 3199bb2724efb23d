// SPDX-License-Identifier: MIT
//
// All pages of the window: read once each, in turns with snmpbulkwalk of the same objects at the
// same agent; shown again when they are built; and the memory that they take. Exits with 1 when a
// limit is passed.
#include "ctl/recorder.h"
#include "ctl/window_driver.h"
#include "demo_target.h"
#include "host/agent_launcher.h"
#include "measure.h"
#include "memory.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <QApplication>
#include <QPushButton>
#include <QTemporaryDir>

namespace {

using onudesk::bench::Clock;
using onudesk::bench::median;
using onudesk::bench::millisecondsSince;
using onudesk::bench::Run;
using onudesk::bench::run;
using onudesk::ctl::WindowDriver;
using onudesk::host::AgentLauncher;
using onudesk::host::ClientHost;
using onudesk::host::OnuTarget;
using onudesk::host::ReplyRecord;

constexpr int kRounds = 21;
constexpr double kMostOfWalk = 2;     // of the walk's wall time
constexpr double kLongestOpening = 5; // milliseconds
constexpr double kMostMegabytes = 40; // above an empty window
constexpr const char* kAllPages = "1.3.6.1.4.1.27315";
const std::filesystem::path kClient = BENCH_CLIENT_DIR;

// Opens every page that the menu has, waiting until each is read.
std::vector<std::int32_t> openAll(WindowDriver& driver) {
    std::vector<std::int32_t> opened;
    for (const auto& item : driver.items()) {
        if (!item.heading && driver.openPage(item.itemType)) {
            opened.push_back(item.itemType);
            driver.waitUntilQuiet();
        }
    }
    return opened;
}

// The OIDs of everything that is read meanwhile.
std::set<std::string> readBy(ClientHost& host, const std::function<void()>& work) {
    std::set<std::string> oids;
    onudesk::host::EngineObserver observer;
    observer.onReply = [&](const ReplyRecord& reply) {
        oids.insert(reply.oids.begin(), reply.oids.end());
    };
    host.engine().setObserver(std::move(observer));
    work();
    host.engine().setObserver({});
    return oids;
}

// Writes what the demonstration recording holds of these objects, so that a walk finds them and
// nothing else. Returns those that it holds.
std::set<std::string> writeRecording(const std::filesystem::path& path,
                                     const std::set<std::string>& oids) {
    std::ifstream demo(kClient / "demo/demo.snmprec");
    std::ofstream file(path);
    std::set<std::string> written;
    for (std::string line; std::getline(demo, line);) {
        const std::string oid = line.substr(0, line.find('|'));
        if (oids.contains(oid)) {
            file << line << '\n';
            written.insert(oid);
        }
    }
    file << onudesk::bench::kBehindEverything;
    return written;
}

class WindowBench {
public:
    // `objects` are the OIDs of all that the agent at that port has.
    WindowBench(WindowDriver& driver, ClientHost& host, std::uint16_t port,
                std::set<std::string> objects)
        : driver_(driver), host_(host), port_(port), objects_(std::move(objects)) {}

    // False when a limit was passed, or something was not read.
    [[nodiscard]] bool run() {
        driver_.window()->setUpdatesEnabled(true);
        const auto begin = Clock::now();
        items_ = openAll(driver_);
        std::printf("%zu pages built and read for the first time: %.0f ms\n", items_.size(),
                    millisecondsSince(begin));
        const bool fast = compareReads();
        return openAgain() && fast;
    }

private:
    // Every page shown and read again; none waits for another.
    double readAll() {
        const auto begin = Clock::now();
        for (const std::int32_t item : items_) {
            (void)driver_.openPage(item);
            auto* refresh = driver_.page()->findChild<QPushButton*>(QStringLiteral("refreshBtn"));
            if (refresh != nullptr) {
                refresh->setEnabled(true);
                refresh->click();
            }
        }
        driver_.waitUntilQuiet();
        return millisecondsSince(begin);
    }

    bool compareReads() {
        if (!std::ranges::includes(readBy(host_, [this] { readAll(); }), objects_)) {
            std::puts("the pages did not read everything again");
            return false;
        }
        std::vector<double> pages;
        std::vector<double> walks;
        for (int round = 0; round < kRounds; ++round) {
            pages.push_back(readAll());
            const auto walked = onudesk::bench::walk(port_, kAllPages, objects_.size());
            if (!walked) {
                std::puts("the walk did not find what the pages read");
                return false;
            }
            walks.push_back(*walked);
        }
        const double ratio = median(pages) / median(walks);
        std::printf("all pages read once: %.0f ms; snmpbulkwalk of the same %zu objects %.0f ms; "
                    "ratio %.2f (limit %.1f)\n",
                    median(pages), objects_.size(), median(walks), ratio, kMostOfWalk);
        return ratio <= kMostOfWalk;
    }

    // From the click in the tree to the painted page.
    bool openAgain() {
        double longest = 0;
        std::int32_t slowest = 0;
        std::vector<double> all;
        for (const std::int32_t item : items_) {
            std::vector<double> times;
            for (int round = 0; round < kRounds; ++round) {
                (void)driver_.openPage(item == items_.front() ? items_.back() : items_.front());
                driver_.window()->repaint();
                driver_.waitUntilQuiet();
                const auto begin = Clock::now();
                (void)driver_.openPage(item);
                driver_.window()->repaint();
                times.push_back(millisecondsSince(begin));
                driver_.waitUntilQuiet();
            }
            all.push_back(median(times));
            if (all.back() > longest) {
                longest = all.back();
                slowest = item;
            }
        }
        std::printf("opening a built page: median %.2f ms; slowest page, item %d, %.2f ms "
                    "(limit %.0f)\n",
                    median(all), slowest, longest, kLongestOpening);
        return longest <= kLongestOpening;
    }

    WindowDriver& driver_;
    ClientHost& host_;
    std::uint16_t port_;
    const std::set<std::string> objects_;
    std::vector<std::int32_t> items_;
};

int printMemory(QApplication& application, ClientHost& host, const OnuTarget& target) {
    WindowDriver driver(application, host);
    driver.run(target, [&] {
        driver.window()->setUpdatesEnabled(true);
        for (const std::int32_t item : openAll(driver)) {
            (void)driver.openPage(item);
            driver.window()->grab();
        }
        std::printf("%ld\n", onudesk::bench::residentKilobytes());
    });
    return 0;
}

bool compareMemory(const std::filesystem::path& directory) {
    const Run window = run({directory / "window_bench", "--memory"});
    const Run empty = run({directory / "bare_qt"});
    if (window.status != 0 || empty.status != 0) {
        std::puts("the memory was not measured");
        return false;
    }
    const long pages = std::stol(window.output);
    const long bare = std::stol(empty.output);
    const double megabytes = static_cast<double>(pages - bare) / 1024;
    std::printf("memory: window with all pages %ld kB; empty Qt window %ld kB; difference %.1f MB "
                "(limit %.0f)\n",
                pages, bare, megabytes, kMostMegabytes);
    return megabytes <= kMostMegabytes;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const auto here = std::filesystem::absolute(argv[0]).parent_path();
    const bool memoryOnly = argc > 1 && std::string(argv[1]) == "--memory";
    QApplication application(argc, argv);
    const onudesk::ctl::Recorder recorder;
    auto options = onudesk::host::demoAgent(kClient);
    auto agent = AgentLauncher::start(options);
    auto host = ClientHost::open(kClient);
    if (!agent || !host) {
        std::cerr << (agent ? host.error() : agent.error()) << '\n';
        return 1;
    }
    OnuTarget target = onudesk::bench::demoTarget(agent->port());
    target.version = onudesk::host::SnmpVersion::v2c;
    if (memoryOnly) {
        return printMemory(application, **host, target);
    }
    const QTemporaryDir directory;
    options.recording = directory.filePath(QStringLiteral("pages.snmprec")).toStdString();
    const auto read = readBy(**host, [&] {
        WindowDriver driver(application, **host);
        driver.run(target, [&] { (void)openAll(driver); });
    });
    const std::set<std::string> objects = writeRecording(options.recording, read);
    auto pagesAgent = AgentLauncher::start(options);
    if (!pagesAgent) {
        std::cerr << pagesAgent.error() << '\n';
        return 1;
    }
    target.port = pagesAgent->port();
    WindowDriver driver(application, **host);
    bool passed = false;
    driver.run(target, [&] { passed = WindowBench(driver, **host, target.port, objects).run(); });
    passed = compareMemory(here) && passed;
    return passed ? 0 : 1;
}
