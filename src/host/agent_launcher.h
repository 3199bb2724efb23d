// SPDX-License-Identifier: MIT
//
// A private simulated agent, as a child process on a free loopback port.
#pragma once

#include "base/result.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <sys/types.h>

namespace onudesk::host {

struct LaunchOptions {
    std::filesystem::path program{}; // onusim
    std::filesystem::path access;    // communities and users
    std::filesystem::path catalogue{};
    std::filesystem::path recording{};
    std::vector<std::string> arguments{};      // further ones, before the recording
    std::chrono::milliseconds deadline{10000}; // for being ready
    std::chrono::milliseconds patience{2000};  // for ending when asked to
};

// Ends the agent on destruction: asks it to end, and kills it when it does not in time.
class AgentLauncher {
public:
    // Returns once the agent listens. The agent ends with the calling thread at the latest. Fails,
    // with what the agent said, when it ends before or says nothing within the deadline.
    [[nodiscard]] static Result<AgentLauncher> start(const LaunchOptions& options);
    ~AgentLauncher();
    AgentLauncher(AgentLauncher&& other) noexcept;
    AgentLauncher& operator=(AgentLauncher&& other) noexcept;
    AgentLauncher(const AgentLauncher&) = delete;
    AgentLauncher& operator=(const AgentLauncher&) = delete;

    // UDP port on 127.0.0.1.
    [[nodiscard]] std::uint16_t port() const { return port_; }
    [[nodiscard]] pid_t processId() const { return process_; }

private:
    AgentLauncher() = default;
    void swap(AgentLauncher& other) noexcept;
    Result<std::uint16_t> waitUntilReady(std::chrono::milliseconds deadline) const;
    void end() const;

    pid_t process_ = -1;
    int input_ = -1;  // the agent's standard input, open while it shall run
    int output_ = -1; // the agent's standard output
    std::uint16_t port_ = 0;
    std::chrono::milliseconds patience_{};
};

} // namespace onudesk::host
