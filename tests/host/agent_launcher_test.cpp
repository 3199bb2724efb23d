// SPDX-License-Identifier: MIT
#include "host/agent_launcher.h"

#include "support/client_tree.h"

#include <csignal>

#include <gtest/gtest.h>

namespace onudesk::host::test {

namespace {

using namespace std::chrono_literals;

// A shell script in the agent's place.
struct FakeProgram {
    explicit FakeProgram(const std::string& body)
        : options{.program = directory.write("agent", "#!/bin/sh\n" + body + "\n"),
                  .access = "access file",
                  .catalogue = "catalogue",
                  .recording = "data.snmprec",
                  .deadline = 5s} {
        std::filesystem::permissions(options.program, std::filesystem::perms::owner_all);
    }

    const onudesk::test::TemporaryDirectory directory;
    LaunchOptions options;
};

// Waits for the end of its input, as an agent waits for requests.
constexpr const char* kServe = "\nread line";

bool exists(pid_t process) {
    return ::kill(process, 0) == 0;
}

} // namespace

TEST(AgentLauncherTest, GivesThePortOnceTheAgentListens) {
    const FakeProgram program(std::string("echo hello; echo listening on 127.0.0.1:40161") +
                              kServe);
    const Result<AgentLauncher> agent = AgentLauncher::start(program.options);
    ASSERT_TRUE(agent.ok()) << agent.error();
    EXPECT_EQ(agent->port(), 40161);
    EXPECT_TRUE(exists(agent->processId()));
}

TEST(AgentLauncherTest, PassesItsFilesAndRunsOnAFreeLoopbackPort) {
    FakeProgram program("echo \"$@\" >&2; exit 1");
    program.options.arguments = {"--save", "x"};
    const Result<AgentLauncher> agent = AgentLauncher::start(program.options);
    ASSERT_FALSE(agent.ok());
    EXPECT_NE(agent.error().find("--listen 127.0.0.1:0 --with-parent --access access file "
                                 "--catalogue catalogue --save x data.snmprec"),
              std::string::npos)
        << agent.error();
}

TEST(AgentLauncherTest, EndsTheAgent) {
    pid_t process = 0;
    const FakeProgram program(std::string("echo listening on 127.0.0.1:40161") + kServe);
    {
        Result<AgentLauncher> agent = AgentLauncher::start(program.options);
        ASSERT_TRUE(agent.ok()) << agent.error();
        process = agent->processId();
        AgentLauncher moved = std::move(agent).value();
        EXPECT_TRUE(exists(process));
    }
    EXPECT_FALSE(exists(process));
}

TEST(AgentLauncherTest, KillsAnAgentThatWillNotEnd) {
    FakeProgram program("trap '' TERM\necho listening on 127.0.0.1:40161\n"
                        "while true; do read line || :; done");
    program.options.patience = 20ms;
    pid_t process = 0;
    {
        const Result<AgentLauncher> agent = AgentLauncher::start(program.options);
        ASSERT_TRUE(agent.ok()) << agent.error();
        process = agent->processId();
    }
    EXPECT_FALSE(exists(process));
}

TEST(AgentLauncherTest, SaysWhyTheAgentDidNotStart) {
    const FakeProgram program("echo 'data.snmprec:3: bad tag' >&2; exit 2");
    const Result<AgentLauncher> agent = AgentLauncher::start(program.options);
    ASSERT_FALSE(agent.ok());
    EXPECT_NE(agent.error().find("data.snmprec:3: bad tag"), std::string::npos);
}

TEST(AgentLauncherTest, RefusesAPortThatIsNone) {
    for (const char* line : {"listening on 127.0.0.1:0", "listening on 127.0.0.1:x",
                             "listening on 127.0.0.1:70000", "listening on"}) {
        const FakeProgram program("echo '" + std::string(line) + "'");
        EXPECT_FALSE(AgentLauncher::start(program.options).ok()) << line;
    }
}

TEST(AgentLauncherTest, GivesUpAtTheDeadline) {
    FakeProgram program(kServe);
    program.options.deadline = 20ms;
    const Result<AgentLauncher> agent = AgentLauncher::start(program.options);
    ASSERT_FALSE(agent.ok());
    EXPECT_NE(agent.error().find("not ready in time"), std::string::npos);
}

TEST(AgentLauncherTest, MissingProgramIsNamed) {
    const Result<AgentLauncher> agent = AgentLauncher::start(
        {.program = "/nonexistent/agent", .access = {}, .catalogue = {}, .recording = {}});
    ASSERT_FALSE(agent.ok());
    EXPECT_EQ(agent.error(), "/nonexistent/agent: No such file or directory");
}

} // namespace onudesk::host::test
