// SPDX-License-Identifier: MIT
//
// The real onusim as a child process.
#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace onudesk::sim::test {

// What a run that is over printed, and how it ended.
struct FinishedRun {
    int exitStatus = -1; // -1 when a signal ended it
    std::string output{};
    std::string errors{};
};

class SimulatorProcess {
public:
    // Starts it with these arguments and reads its first line of output.
    explicit SimulatorProcess(const std::vector<std::string>& arguments);
    // Ends it, should it still run.
    ~SimulatorProcess();
    SimulatorProcess(const SimulatorProcess&) = delete;
    SimulatorProcess& operator=(const SimulatorProcess&) = delete;

    // ADDRESS:PORT from the line it printed; empty when it ended before.
    [[nodiscard]] const std::string& endpoint() const { return endpoint_; }
    [[nodiscard]] pid_t pid() const { return pid_; }
    // Sends a signal (none for 0) and waits for the end. Only once.
    FinishedRun finish(int signal);

private:
    pid_t pid_ = -1;
    int output_ = -1;
    int errors_ = -1;
    std::string read_; // output so far
    std::string endpoint_;
};

} // namespace onudesk::sim::test
