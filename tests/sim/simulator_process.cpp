// SPDX-License-Identifier: MIT
#include "simulator_process.h"

#include <array>
#include <csignal>
#include <stdexcept>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace onudesk::sim::test {

namespace {

struct Pipe {
    int reading = -1;
    int writing = -1;
};

Pipe makePipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe");
    }
    return {ends[0], ends[1]};
}

// Reads until the text is there or the writer is gone.
void readUntil(int descriptor, std::string& text, std::string_view wanted) {
    std::array<char, 4096> block{};
    while (wanted.empty() || text.find(wanted) == std::string::npos) {
        const ssize_t count = ::read(descriptor, block.data(), block.size());
        if (count <= 0) {
            return;
        }
        text.append(block.data(), static_cast<std::size_t>(count));
    }
}

} // namespace

SimulatorProcess::SimulatorProcess(const std::vector<std::string>& arguments) {
    std::vector<std::string> words = arguments;
    words.insert(words.begin(), ONUSIM_PROGRAM);
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    const Pipe output = makePipe();
    const Pipe errors = makePipe();
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, output.writing, STDOUT_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, errors.writing, STDERR_FILENO);
    const int failed =
        ::posix_spawn(&pid_, ONUSIM_PROGRAM, &actions, nullptr, pointers.data(), ::environ);
    ::posix_spawn_file_actions_destroy(&actions);
    ::close(output.writing);
    ::close(errors.writing);
    output_ = output.reading;
    errors_ = errors.reading;
    if (failed != 0) {
        throw std::runtime_error("cannot start " ONUSIM_PROGRAM);
    }
    readUntil(output_, read_, "\n");
    constexpr std::string_view line = "listening on ";
    if (read_.starts_with(line)) {
        endpoint_ = read_.substr(line.size(), read_.find('\n') - line.size());
    }
}

SimulatorProcess::~SimulatorProcess() {
    if (pid_ > 0) {
        finish(SIGKILL);
    }
    ::close(output_);
    ::close(errors_);
}

FinishedRun SimulatorProcess::finish(int signal) {
    const pid_t pid = std::exchange(pid_, -1);
    if (signal != 0) {
        ::kill(pid, signal);
    }
    FinishedRun run;
    run.output = read_;
    readUntil(output_, run.output, {});
    readUntil(errors_, run.errors, {});
    int status = 0;
    ::waitpid(pid, &status, 0);
    run.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

} // namespace onudesk::sim::test
