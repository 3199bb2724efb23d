// SPDX-License-Identifier: MIT
#include "host/agent_launcher.h"

#include "base/endpoint.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <optional>
#include <string_view>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
// This header forgets that C++ programs include it, too.
extern "C" {
#include <sys/syscall.h>
}
#include <sys/wait.h>
#include <unistd.h>

namespace onudesk::host {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::string_view kReadyLine = "listening on ";
constexpr std::size_t kMaxOutput = 64 * 1024;

struct Pipe {
    int readEnd = -1;
    int writeEnd = -1;

    Pipe() {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) == 0) {
            readEnd = ends[0];
            writeEnd = ends[1];
        }
    }
    ~Pipe() {
        ::close(readEnd);
        ::close(writeEnd);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
};

int millisecondsUntil(Clock::time_point end) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
    return left > 0 ? static_cast<int>(left) : 0;
}

bool readableUntil(int descriptor, Clock::time_point end) {
    pollfd waiting{.fd = descriptor, .events = POLLIN, .revents = 0};
    int ready = 0;
    do {
        ready = ::poll(&waiting, 1, millisecondsUntil(end));
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

// The port in a complete line "listening on ADDRESS:PORT".
std::optional<std::uint16_t> announcedPort(std::string_view output) {
    const auto begin = output.find(kReadyLine);
    const auto end = begin == std::string_view::npos ? begin : output.find('\n', begin);
    if (end == std::string_view::npos) {
        return std::nullopt;
    }
    const auto place = begin + kReadyLine.size();
    const auto endpoint = parseEndpoint(output.substr(place, end - place));
    return endpoint && endpoint->port != 0 ? std::optional(endpoint->port) : std::nullopt;
}

std::vector<std::string> commandLine(const LaunchOptions& options) {
    std::vector<std::string> words = {options.program.string(), "--listen", "127.0.0.1:0",
                                      "--with-parent"};
    if (!options.access.empty()) {
        words.insert(words.end(), {"--access", options.access.string()});
    }
    words.insert(words.end(), {"--catalogue", options.catalogue.string()});
    words.insert(words.end(), options.arguments.begin(), options.arguments.end());
    words.push_back(options.recording.string());
    return words;
}

// 0, or the error number.
int spawn(std::vector<std::string> words, const Pipe& input, const Pipe& output, pid_t& process) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input.readEnd, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output.writeEnd, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output.writeEnd, STDERR_FILENO);
    posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
    // Out of reach of the terminal's interrupt key: its parent still needs it to end in order.
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
    posix_spawnattr_setpgroup(&attributes, 0);
    const int error =
        ::posix_spawnp(&process, arguments[0], &actions, &attributes, arguments.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    return error;
}

bool exitsWithin(pid_t process, std::chrono::milliseconds patience) {
    const int descriptor = static_cast<int>(::syscall(SYS_pidfd_open, process, 0));
    if (descriptor < 0) {
        return false;
    }
    const bool exited = readableUntil(descriptor, Clock::now() + patience);
    ::close(descriptor);
    return exited;
}

} // namespace

Result<AgentLauncher> AgentLauncher::start(const LaunchOptions& options) {
    Pipe input;
    Pipe output;
    AgentLauncher agent;
    agent.patience_ = options.patience;
    const int error = spawn(commandLine(options), input, output, agent.process_);
    if (error != 0) {
        agent.process_ = -1;
        return Error{options.program.string() + ": " + std::strerror(error)};
    }
    agent.input_ = std::exchange(input.writeEnd, -1);
    agent.output_ = std::exchange(output.readEnd, -1);
    ::close(std::exchange(output.writeEnd, -1));
    const Result<std::uint16_t> port = agent.waitUntilReady(options.deadline);
    if (!port) {
        return Error{options.program.string() + ": " + port.error()};
    }
    agent.port_ = *port;
    return agent;
}

Result<std::uint16_t> AgentLauncher::waitUntilReady(std::chrono::milliseconds deadline) const {
    const Clock::time_point end = Clock::now() + deadline;
    std::string said;
    while (said.size() < kMaxOutput) {
        if (!readableUntil(output_, end)) {
            return Error{"not ready in time; it said \"" + said + "\""};
        }
        std::array<char, 512> chunk{};
        const ssize_t count = ::read(output_, chunk.data(), chunk.size());
        if (count <= 0) {
            return Error{"it ended; it said \"" + said + "\""};
        }
        said.append(chunk.data(), static_cast<std::size_t>(count));
        if (const auto port = announcedPort(said)) {
            return *port;
        }
    }
    return Error{"it talks without listening"};
}

AgentLauncher::~AgentLauncher() {
    end();
}

AgentLauncher::AgentLauncher(AgentLauncher&& other) noexcept {
    swap(other);
}

AgentLauncher& AgentLauncher::operator=(AgentLauncher&& other) noexcept {
    swap(other);
    return *this;
}

void AgentLauncher::swap(AgentLauncher& other) noexcept {
    std::swap(process_, other.process_);
    std::swap(input_, other.input_);
    std::swap(output_, other.output_);
    std::swap(port_, other.port_);
    std::swap(patience_, other.patience_);
}

void AgentLauncher::end() const {
    if (process_ > 0) {
        ::close(input_);
        ::kill(process_, SIGTERM);
        if (!exitsWithin(process_, patience_)) {
            ::kill(process_, SIGKILL);
        }
        while (::waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
        }
        ::close(output_);
    }
}

} // namespace onudesk::host
