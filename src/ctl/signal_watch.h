// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <csignal>
#include <functional>
#include <optional>

#include <QSocketNotifier>

namespace onudesk::ctl {

// While it lives, SIGINT and SIGTERM do not end the process but are counted. One per process at a
// time, on a thread with an event loop.
class SignalWatch {
public:
    // `onSignal` is called from the event loop after signals came.
    explicit SignalWatch(std::function<void()> onSignal);
    ~SignalWatch();
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

    // Signals since the object was made. Any thread.
    [[nodiscard]] int count() const;

private:
    std::array<struct sigaction, 2> before_{};
    std::optional<QSocketNotifier> notifier_;
};

} // namespace onudesk::ctl
