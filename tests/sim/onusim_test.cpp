// SPDX-License-Identifier: MIT
#include "snmp_client.h"

#include "base/file.h"
#include "support/client_tree.h"
#include "support/program.h"

#include <sstream>

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace onudesk::sim::test {
namespace {

using Lines = std::vector<std::string>;

const std::string kRecording = ONUDESK_SOURCE_DIR "/client/demo/demo.snmprec";
const std::string kAccess = ONUDESK_SOURCE_DIR "/client/demo/demo.access";
const std::string kCatalogue = ONUDESK_SOURCE_DIR "/client/CONF/snmp/snmpconfig.xml";
const std::string kObjects = "1.3.6.1.4.1.27315.606.1.1.";
const std::string kName = kObjects + "19.1.2.5";
const std::string kLlid = kObjects + "2.1.2.5";
const std::string kListening = "listening on ";

Lines linesWithoutComments(const std::string& text) {
    Lines lines;
    std::istringstream all(text);
    for (std::string line; std::getline(all, line);) {
        if (!line.starts_with('#')) {
            lines.push_back(line);
        }
    }
    return lines;
}

QStringList listOf(const Lines& arguments) {
    QStringList list;
    for (const std::string& each : arguments) {
        list << QString::fromStdString(each);
    }
    return list;
}

// The real onusim as a child process, and where it listens: empty when it ended before.
struct Simulator : onudesk::test::Program {
    explicit Simulator(const Lines& arguments) : Program(ONUSIM_PROGRAM, listOf(arguments)) {
        const std::string said = lineWith(QProcess::StandardOutput, kListening);
        endpoint = said.empty()
                       ? said
                       : said.substr(kListening.size(), said.find('\n') - kListening.size());
    }
    std::string endpoint;
};

class Onusim : public testing::Test {
protected:
    [[nodiscard]] static Lines arguments(Lines more = {}) {
        more.insert(more.begin(), {"--listen", "127.0.0.1:0", "--catalogue", kCatalogue, "--access",
                                   kAccess, kRecording});
        return more;
    }
    // A manager of a simulator that may write, and one that may not.
    static SnmpClient writer(const Simulator& simulator, int version = 2) {
        return SnmpClient(simulator.endpoint, version, "private");
    }
    static SnmpClient reader(const Simulator& simulator, int version = 2) {
        return SnmpClient(simulator.endpoint, version, "public");
    }

    const onudesk::test::TemporaryDirectory directory_;
    const std::string saved_ = (directory_.path() / "saved.snmprec").string();
    const std::string recording_ = readFile(kRecording).value();
    const Lines lines_ = linesWithoutComments(recording_);
    const std::string last_ = lines_.back().substr(0, lines_.back().find('|'));
};

TEST_F(Onusim, AnswersVersion2c) {
    Simulator simulator(arguments());
    ASSERT_FALSE(simulator.endpoint.empty());
    auto manager = writer(simulator);

    const Reply got = manager.get({kName, kLlid, kObjects + "19.9.9.9", "1.3.6.1.9.1"});
    EXPECT_EQ(got.outcome, "ok");
    EXPECT_EQ(got.bindings,
              (Lines{kName + "|4|Fire station", kLlid + "|2|5",
                     kObjects + "19.9.9.9|noSuchInstance", "1.3.6.1.9.1|noSuchObject"}));
    EXPECT_EQ(manager.walk("1.3"), lines_);
    EXPECT_EQ(manager.getBulk(kObjects + "19.1.2.3", 3).bindings,
              (Lines{kName + "|4|Fire station", kObjects + "20.1.1.1|4x|001a2b3c4d5e",
                     kObjects + "20.1.1.2|4x|001a2b3c4d71"}));
    EXPECT_EQ(manager.getBulk(last_, 3).bindings.front(), last_ + "|endOfMibView");
}

TEST_F(Onusim, SetsAllBindingsOrNone) {
    Simulator simulator(arguments());
    auto manager = writer(simulator);
    const auto name = [&] { return manager.get({kName}).bindings.front(); };

    EXPECT_EQ(manager.set({kName + "|4|new", kLlid + "|2|1"}).outcome, "status 17 at 2");
    EXPECT_EQ(manager.set({kName + "|2|1"}).outcome, "status 7 at 1");
    EXPECT_EQ(manager.set({kName + "|4|" + std::string(33, 'a')}).outcome, "status 8 at 1");
    EXPECT_EQ(manager.set({kName + "|4|new", kObjects + "21.1.2.5|2|9"}).outcome, "status 10 at 2");
    EXPECT_EQ(manager.set({kObjects + "19.9.9.9|4|new"}).outcome, "status 11 at 1");
    EXPECT_EQ(name(), kName + "|4|Fire station");
    EXPECT_EQ(manager.set({kName + "|4x|42c3bc726f", kObjects + "19.1.2.1|4|"}).outcome, "ok");
    EXPECT_EQ(name(), kName + "|4x|42c3bc726f");
}

TEST_F(Onusim, AnswersVersion1) {
    Simulator simulator(arguments());
    auto manager = writer(simulator, 1);
    EXPECT_EQ(manager.get({kName}).bindings.front(), kName + "|4|Fire station");
    EXPECT_EQ(manager.get({kName, kObjects + "19.9.9.9"}).outcome, "status 2 at 2");
    EXPECT_EQ(manager.walk("1.3"), lines_);
    EXPECT_EQ(manager.getNext({last_}).outcome, "status 2 at 1");
    EXPECT_EQ(manager.set({kName + "|4|new", kLlid + "|2|1"}).outcome, "status 2 at 2");
    EXPECT_EQ(manager.set({kName + "|2|1"}).outcome, "status 3 at 1");
    EXPECT_EQ(manager.get({kName}).bindings.front(), kName + "|4|Fire station");
    EXPECT_EQ(manager.set({kName + "|4|new"}).outcome, "ok");
    EXPECT_EQ(manager.get({kName}).bindings.front(), kName + "|4|new");
}

TEST_F(Onusim, GivesEveryTagToTheManager) {
    const std::string text = "1.3.6.1.2.1.1|2|-2147483648\n"
                             "1.3.6.1.2.1.2|4x|00ff\n"
                             "1.3.6.1.2.1.4|6|1.3.6.1.4294967295\n"
                             "1.3.6.1.2.1.5|64|192.0.2.1\n"
                             "1.3.6.1.2.1.6|65|4294967295\n"
                             "1.3.6.1.2.1.7|66|4294967295\n"
                             "1.3.6.1.2.1.8|67|4294967295\n"
                             "1.3.6.1.2.1.9|68|040300\n"
                             "1.3.6.1.2.1.10|70|18446744073709551615\n";
    const auto recording = directory_.write("tags.snmprec", "1.3.6.1.2.1.3|5|\n" + text);
    Simulator simulator({"--catalogue", kCatalogue, recording.string()});
    const auto expected = linesWithoutComments(text);
    EXPECT_EQ(reader(simulator).walk("1.3"), expected);
    auto bulk = reader(simulator).getBulk("1.3.6", 9);
    EXPECT_EQ(bulk.bindings, expected);
    // Version 1 does not know 64-bit counters.
    EXPECT_EQ(reader(simulator, 1).walk("1.3"), Lines(expected.begin(), expected.end() - 1));
}

TEST_F(Onusim, KnowsItsCommunities) {
    Simulator simulator(arguments());
    EXPECT_EQ(reader(simulator).set({kName + "|4|new"}).outcome, "status 6 at 1");
    EXPECT_EQ(reader(simulator, 1).set({kName + "|4|new"}).outcome, "status 2 at 1");
    EXPECT_EQ(SnmpClient(simulator.endpoint, 2, "other").get({kName}).outcome, "Timeout");
    EXPECT_EQ(reader(simulator).get({kName}).bindings.front(), kName + "|4|Fire station");
}

TEST_F(Onusim, EndsCleanlyAndSaves) {
    for (const int signal : {SIGTERM, SIGINT}) {
        Simulator simulator(arguments({"--save", saved_}));
        const onudesk::test::Finished run = simulator.finish(signal);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.out, "listening on " + simulator.endpoint + "\n");
        EXPECT_EQ(run.err, "");
        EXPECT_EQ(readFile(saved_).value(), recording_);
    }
}

TEST_F(Onusim, SavesWhatWasSetForTheNextRun) {
    Simulator first(arguments({"--save", saved_}));
    EXPECT_EQ(writer(first).set({kName + "|4|kept", kObjects + "21.1.1.1|2|6"}).outcome, "ok");
    ASSERT_EQ(first.finish(SIGTERM).status, 0);

    Simulator second({"--catalogue", kCatalogue, saved_});
    auto manager = reader(second);
    EXPECT_EQ(manager.get({kName, kObjects + "20.1.1.1", kObjects + "21.1.1.1"}).bindings,
              (Lines{kName + "|4|kept", kObjects + "20.1.1.1|noSuchInstance",
                     kObjects + "21.1.1.1|noSuchInstance"}));
}

// A SET may name one object twice; entries of a port wait from one SET to the next.
TEST_F(Onusim, TakesFramedAndStagedWrites) {
    const std::string enterprise = "1.3.6.1.4.1.27315.";
    Simulator first(arguments({"--save", saved_}));
    auto manager = writer(first);
    const std::string frame = enterprise + "608.1.2.1.1.2.5|2|";
    const std::string rate = enterprise + "608.1.1.2.1.2.5";
    EXPECT_EQ(manager.set({frame + "4", rate + "|2|20001", frame + "5"}).outcome, "ok");
    EXPECT_EQ(manager.get({rate}).bindings.front(), rate + "|2|20001");

    const std::string oldVlan = enterprise + "612.1.3.4.1.2.5.3.";
    const std::string portStatus = enterprise + "612.1.1.6.1.2.5.3";
    EXPECT_EQ(manager.set({oldVlan + "1|2|20"}).outcome, "ok");
    EXPECT_EQ(manager.set({portStatus + "|2|4"}).outcome, "status 12 at 1");
    EXPECT_EQ(manager.set({oldVlan + "1|2|30"}).outcome, "ok");
    EXPECT_EQ(manager.set({portStatus + "|2|4"}).outcome, "ok");
    EXPECT_EQ(manager.set({oldVlan + "1|2|40"}).outcome, "ok");
    EXPECT_EQ(manager.get({oldVlan + "1", oldVlan + "3"}).bindings,
              (Lines{oldVlan + "1|2|10", oldVlan + "3|2|30"}));
    ASSERT_EQ(first.finish(SIGTERM).status, 0);

    // What still waited is not saved.
    Simulator second({"--catalogue", kCatalogue, "--access", kAccess, saved_});
    auto later = writer(second);
    EXPECT_EQ(later.set({portStatus + "|2|4"}).outcome, "ok");
    EXPECT_EQ(later.get({oldVlan + "3", oldVlan + "4"}).bindings,
              (Lines{oldVlan + "3|2|30", oldVlan + "4|noSuchInstance"}));
}

TEST_F(Onusim, SaysWhyItDoesNotStart) {
    const auto recording = directory_.write("bad.snmprec", "1.3.6.1.2|2|1\n1.3.6.1.3|3|1\n");
    const auto access = directory_.write("bad.access", "community read public\nuser a\n");
    const auto catalogue = directory_.write("bad.xml", "<a>\n<b></a>\n");
    const std::string missing = (directory_.path() / "missing").string();
    struct Case {
        Lines arguments;
        std::string errors; // the beginning
    };
    const std::vector<Case> cases = {
        {{"--catalogue", kCatalogue, recording.string()},
         recording.string() + ":2: unknown tag \"3\"\n"},
        {{"--catalogue", kCatalogue, missing}, missing + ": No such file or directory\n"},
        {{"--catalogue", kCatalogue, "--access", access.string(), kRecording},
         access.string() + ":2: expected user NAME"},
        {{"--catalogue", catalogue.string(), kRecording}, catalogue.string() + ":2: "},
        {{"--catalogue", missing, kRecording}, missing + ": No such file or directory\n"},
        {{}, "onusim: RECORDING.snmprec is required\n"},
    };
    for (const auto& [given, told] : cases) {
        const onudesk::test::Finished run = Simulator(given).finish();
        EXPECT_EQ(run.status, 2) << told;
        EXPECT_EQ(run.out, "");
        EXPECT_TRUE(run.err.starts_with(told)) << run.err;
    }
}

TEST_F(Onusim, TellsWhenItCannotListen) {
    Simulator first(arguments());
    auto same = arguments();
    same[1] = first.endpoint;
    const onudesk::test::Finished run = Simulator(same).finish();
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "onusim: cannot listen on " + first.endpoint + ": Address already in use\n");
}

TEST_F(Onusim, TellsWhenItCannotSave) {
    const std::string nowhere = saved_ + "/saved";
    const onudesk::test::Finished run = Simulator(arguments({"--save", nowhere})).finish(SIGTERM);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, nowhere + ": No such file or directory\n");
}

TEST_F(Onusim, EndsWithItsParent) {
    int fromChild[2];
    ASSERT_EQ(::pipe(fromChild), 0);
    const pid_t parent = ::fork();
    if (parent == 0) {
        // The process in between starts the simulator and ends as soon as it serves, without a
        // destructor: only the kernel tells the simulator.
        const Simulator simulator(arguments({"--with-parent", "--save", saved_}));
        const pid_t pid = simulator.endpoint.empty() ? -1 : simulator.id();
        ::_exit(::write(fromChild[1], &pid, sizeof pid) == sizeof pid ? 0 : 1);
    }
    ::close(fromChild[1]);
    pid_t simulator = -1;
    ASSERT_EQ(::read(fromChild[0], &simulator, sizeof simulator), sizeof simulator);
    ::waitpid(parent, nullptr, 0);
    ASSERT_GT(simulator, 0);
    // The simulator inherited the writing end; the pipe hangs up when it is gone.
    pollfd end{.fd = fromChild[0], .events = POLLIN, .revents = 0};
    const bool gone = ::poll(&end, 1, 10'000) == 1;
    EXPECT_TRUE(gone);
    if (!gone) {
        ::kill(simulator, SIGKILL);
    }
    ::close(fromChild[0]);
    EXPECT_EQ(readFile(saved_).value(), recording_);
}

} // namespace
} // namespace onudesk::sim::test
