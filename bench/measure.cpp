// SPDX-License-Identifier: MIT
#include "measure.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace onudesk::bench {

double millisecondsSince(Clock::time_point begin) {
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

Run run(std::vector<std::string> words) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    std::array<int, 2> pipe{};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0) {
        return {};
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipe[1], STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    Run result;
    pid_t child = -1;
    const auto begin = Clock::now();
    const int spawned =
        ::posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
    ::close(pipe[1]);
    std::array<char, 65536> block{};
    for (ssize_t count = 0;
         spawned == 0 && (count = ::read(pipe[0], block.data(), block.size())) > 0;) {
        result.output.append(block.data(), static_cast<std::size_t>(count));
    }
    ::close(pipe[0]);
    int status = 0;
    if (spawned == 0 && ::waitpid(child, &status, 0) == child) {
        result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    result.milliseconds = millisecondsSince(begin);
    posix_spawn_file_actions_destroy(&actions);
    return result;
}

std::optional<double> walk(std::uint16_t port, const std::string& oid, std::size_t values) {
    const Run walk = run({"snmpbulkwalk", "-v2c", "-c", "public", "-m", "", "-On",
                          "127.0.0.1:" + std::to_string(port), oid});
    const auto lines = static_cast<std::size_t>(std::ranges::count(walk.output, '\n'));
    return lines == values ? std::optional(walk.milliseconds) : std::nullopt;
}

} // namespace onudesk::bench
