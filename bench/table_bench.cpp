// SPDX-License-Identifier: MIT
//
// Reading long tables (VLANs and ports of an ONU, classification rules of a port) through the whole
// stack, in turns with snmpbulkwalk of the same columns at the same agent, and the longest time for
// which the rows block the window's event loop. Exits with 1 when a limit is passed.
#include "ctl/recorder.h"
#include "ctl/window_driver.h"
#include "demo_target.h"
#include "host/agent_launcher.h"
#include "measure.h"
#include "platform/files.h"
#include "snmp/object_schema.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include <QApplication>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>

namespace {

using onudesk::bench::Clock;
using onudesk::bench::median;
using onudesk::bench::millisecondsSince;
using onudesk::host::AgentLauncher;
using onudesk::host::ClientHost;

struct Table {
    const char* name;
    int item;
    int rows;
    const char* instance; // what stands before the row's number
};
constexpr Table kTables[] = {{"VLAN table", 611, 4094, ".1.2.5."},
                             {"classification list", 613, 64, ".1.2.5.1."},
                             {"port list", 617, 256, ".1.2.5."}};
constexpr int kRounds = 7;
constexpr double kMostOfWalk = 1.5;  // of the walk's wall time
constexpr double kLongestBlock = 50; // milliseconds
const std::filesystem::path kClient = BENCH_CLIENT_DIR;

// The objects of the table, its first one holding the row's number.
const std::vector<onudesk::ObjectSchema>& columns(const Table& table) {
    static const auto schema = onudesk::loadSchema(kClient / "CONF/snmp/snmpconfig.xml");
    return schema->at(table.item).front().objects;
}

// As a recording states a value: all rows belong to both sides, or match nothing.
std::string value(const onudesk::ObjectSchema& object, bool isFirst, int row) {
    constexpr int kOctetString = 4;
    constexpr int kIpAddress = 64;
    if (object.object.type == kOctetString) {
        return "|4x|000000000000";
    }
    return object.object.type == kIpAddress ? "|64|0.0.0.0"
                                            : "|2|" + std::to_string(isFirst ? row : 1);
}

void writeRecording(const std::filesystem::path& path) {
    std::ofstream file(path);
    for (const Table& table : kTables) {
        bool isFirst = true;
        for (const onudesk::ObjectSchema& object : columns(table)) {
            for (int row = 1; row <= table.rows; ++row) {
                file << object.object.oidstr << table.instance << row << value(object, isFirst, row)
                     << '\n';
            }
            isFirst = false;
        }
    }
    file << onudesk::bench::kBehindEverything;
}

// Milliseconds of one walk by the tool; nothing when it does not get every value.
std::optional<double> walk(const Table& table, std::uint16_t port) {
    const std::string first = columns(table).front().object.oidstr;
    return onudesk::bench::walk(port, first.substr(0, first.rfind('.')),
                                columns(table).size() * static_cast<std::size_t>(table.rows));
}

// Ticks every millisecond as long as the event loop is not blocked.
class BlockWatch {
public:
    BlockWatch() {
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, [this] {
            longest_ = std::max(longest_, millisecondsSince(last_));
            last_ = Clock::now();
        });
        timer_.start(1);
    }
    // Milliseconds; what blocks now counts, too.
    [[nodiscard]] double longest() const { return std::max(longest_, millisecondsSince(last_)); }

private:
    QTimer timer_;
    Clock::time_point last_ = Clock::now();
    double longest_ = 0;
};

struct Read {
    double milliseconds = 0;
    double longestBlock = 0;
    int rows = 0;
};

// From the click on Refresh until every reply was shown, the window being painted as on a screen.
Read readTable(const ClientHost& host, const QWidget& page) {
    auto* refresh = page.findChild<QPushButton*>(QStringLiteral("refreshBtn"));
    const auto* table = page.findChild<QTableView*>(QStringLiteral("mainTable"));
    refresh->setEnabled(true);
    QCoreApplication::processEvents();
    const BlockWatch watch;
    const auto begin = Clock::now();
    refresh->click();
    while (!host.quiet()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    QCoreApplication::processEvents(); // paints what the last replies brought
    return {millisecondsSince(begin), watch.longest(), table->model()->rowCount()};
}

// False when something was not read.
bool measure(onudesk::ctl::WindowDriver& driver, const ClientHost& host, const Table& table,
             std::uint16_t port, std::vector<Read>& reads, std::vector<double>& walks) {
    (void)driver.openPage(table.item);
    driver.waitUntilQuiet();
    for (int round = 0; round < kRounds; ++round) {
        reads.push_back(readTable(host, *driver.page()));
        const auto walked = walk(table, port);
        if (reads.back().rows != table.rows || !walked) {
            return false;
        }
        walks.push_back(*walked);
    }
    return true;
}

int report(const Table& table, const std::vector<Read>& reads, const std::vector<double>& walks) {
    std::vector<double> times;
    times.reserve(reads.size());
    double longestBlock = 0;
    for (const Read& read : reads) {
        times.push_back(read.milliseconds);
        longestBlock = std::max(longestBlock, read.longestBlock);
    }
    const double page = median(times);
    const double bare = median(walks);
    std::printf("%s of %d rows: page %.0f ms, %.0f rows/s; snmpbulkwalk %.0f ms; ratio %.2f "
                "(limit %.1f)\n",
                table.name, table.rows, page, table.rows / page * 1000, bare, page / bare,
                kMostOfWalk);
    std::printf("longest block of the event loop: %.1f ms (limit %.0f)\n", longestBlock,
                kLongestBlock);
    return page <= kMostOfWalk * bare && longestBlock <= kLongestBlock ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QTemporaryDir directory;
    auto options = onudesk::host::demoAgent(kClient);
    options.recording = directory.filePath(QStringLiteral("vlans.snmprec")).toStdString();
    writeRecording(options.recording);
    auto agent = AgentLauncher::start(options);
    auto host = ClientHost::open(kClient);
    if (!agent || !host) {
        std::cerr << (agent ? host.error() : agent.error()) << '\n';
        return 1;
    }
    const onudesk::ctl::Recorder recorder;
    auto target = onudesk::bench::demoTarget(agent->port());
    target.version = onudesk::host::SnmpVersion::v2c;
    onudesk::ctl::WindowDriver driver(application, **host);
    int outcome = 0;
    driver.run(target, [&] {
        driver.window()->setUpdatesEnabled(true);
        for (const Table& table : kTables) {
            std::vector<Read> reads;
            std::vector<double> walks;
            if (!measure(driver, **host, table, agent->port(), reads, walks)) {
                std::cerr << table.name << ": not every row was read\n";
                outcome = 1;
            } else {
                outcome = std::max(outcome, report(table, reads, walks));
            }
        }
    });
    return outcome;
}
