// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <csignal>

namespace onudesk::ctl {

// While it lives, SIGINT and SIGTERM do not end the process but are counted. One per process at a
// time.
class SignalWatch {
public:
    SignalWatch();
    ~SignalWatch();
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

    // Signals since the object was made. Any thread.
    [[nodiscard]] int count() const;

private:
    std::array<struct sigaction, 2> before_{};
};

} // namespace onudesk::ctl
