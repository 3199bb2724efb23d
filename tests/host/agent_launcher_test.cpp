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

TEST(AgentLauncherTest, EndsTheAgentEvenOneThatWillNot) {
    for (const std::string before : {"", "trap '' TERM\n"}) {
        FakeProgram program(before +
                            "echo listening on 127.0.0.1:40161\n"
                            "while true; do read line || " +
                            (before.empty() ? "exit" : ":") + "; done");
        program.options.patience = before.empty() ? 5s : 20ms;
        pid_t process = 0;
        {
            Result<AgentLauncher> agent = AgentLauncher::start(program.options);
            ASSERT_TRUE(agent.ok()) << agent.error();
            process = agent->processId();
            const AgentLauncher moved = std::move(agent).value();
            EXPECT_TRUE(exists(process));
        }
        EXPECT_FALSE(exists(process));
    }
}

TEST(AgentLauncherTest, SaysWhyTheAgentDidNotStart) {
    const std::pair<std::string, std::string> cases[] = {
        {"echo 'data.snmprec:3: bad tag' >&2; exit 2", "data.snmprec:3: bad tag"},
        // what it is started with: its files, and a free loopback port
        {"echo \"$@\" >&2; exit 1", "--listen 127.0.0.1:0 --with-parent --access access file "
                                    "--catalogue catalogue --save x data.snmprec"},
        {"echo 'listening on 127.0.0.1:0'", ""},
        {"echo 'listening on 127.0.0.1:x'", ""},
        {"echo 'listening on 127.0.0.1:70000'", ""},
        {"echo 'listening on'", ""},
        {kServe, "not ready in time"},
    };
    for (const auto& [script, told] : cases) {
        FakeProgram program(script);
        program.options.arguments = {"--save", "x"};
        program.options.deadline = script == kServe ? 20ms : 5s;
        const Result<AgentLauncher> agent = AgentLauncher::start(program.options);
        ASSERT_FALSE(agent.ok()) << script;
        EXPECT_NE(agent.error().find(told), std::string::npos) << agent.error();
    }
    EXPECT_EQ(AgentLauncher::start(
                  {.program = "/nonexistent/agent", .access = {}, .catalogue = {}, .recording = {}})
                  .error(),
              "/nonexistent/agent: No such file or directory");
}

} // namespace onudesk::host::test
