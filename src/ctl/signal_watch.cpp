// SPDX-License-Identifier: MIT
#include "ctl/signal_watch.h"

#include <atomic>
#include <cstddef>

namespace onudesk::ctl {

namespace {

constexpr std::array kSignals = {SIGINT, SIGTERM};

// All that a signal handler may do here is to count.
std::atomic<int> g_count{0};
static_assert(std::atomic<int>::is_always_lock_free, "used in a signal handler");

extern "C" void countSignal(int /*number*/) {
    ++g_count;
}

} // namespace

SignalWatch::SignalWatch() {
    g_count = 0;
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
}

int SignalWatch::count() const {
    return g_count;
}

} // namespace onudesk::ctl
