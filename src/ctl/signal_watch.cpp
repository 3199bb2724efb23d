// SPDX-License-Identifier: MIT
#include "ctl/signal_watch.h"

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <utility>

#include <sys/eventfd.h>
#include <unistd.h>

namespace onudesk::ctl {

namespace {

constexpr std::array kSignals = {SIGINT, SIGTERM};

// All that a signal handler may do here is to count, and to write to a descriptor.
std::atomic<int> g_count{0};
std::atomic<int> g_descriptor{-1};
static_assert(std::atomic<int>::is_always_lock_free, "used in a signal handler");

extern "C" void countSignal(int /*number*/) {
    const int error = errno;
    ++g_count;
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(g_descriptor, &one, sizeof one);
    errno = error;
}

} // namespace

SignalWatch::SignalWatch(std::function<void()> onSignal) {
    g_count = 0;
    g_descriptor = ::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    notifier_.emplace(g_descriptor, QSocketNotifier::Read);
    QObject::connect(
        &*notifier_, &QSocketNotifier::activated, &*notifier_, [told = std::move(onSignal)] {
            std::uint64_t signals = 0;
            [[maybe_unused]] const auto taken = ::read(g_descriptor, &signals, sizeof signals);
            told();
        });
    struct sigaction action {};
    action.sa_handler = countSignal;
    action.sa_flags = SA_RESTART;
    ::sigemptyset(&action.sa_mask);
    for (std::size_t at = 0; at < kSignals.size(); ++at) {
        ::sigaction(kSignals[at], &action, &before_[at]);
    }
}

SignalWatch::~SignalWatch() {
    for (std::size_t at = 0; at < kSignals.size(); ++at) {
        ::sigaction(kSignals[at], &before_[at], nullptr);
    }
    notifier_.reset();
    ::close(g_descriptor.exchange(-1));
}

int SignalWatch::count() const {
    return g_count;
}

} // namespace onudesk::ctl
