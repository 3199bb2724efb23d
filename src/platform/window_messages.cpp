// SPDX-License-Identifier: MIT
#include "platform/window_messages.h"

#include <algorithm>
#include <atomic>
#include <deque>
#include <map>
#include <mutex>
#include <utility>
#include <vector>

namespace onudesk::platform {

namespace {

struct Posted {
    std::uint32_t handle;
    WindowMessage message;
};

struct Windows {
    std::mutex mutex;
    // Changed on the user-interface thread only, which therefore reads it without the lock.
    std::map<std::uint32_t, WindowReceiver*> receivers;
    std::deque<Posted> queue;
    // Taken off the queue to be delivered, so that a flood of posts does not stand in the way of
    // every single delivery. User-interface thread only.
    std::deque<Posted> taken;
    std::atomic<std::size_t> pending = 0; // queued, taken or being handled
    std::uint32_t lastHandle = 0;
    std::function<void()> waker;
};

Windows& windows() {
    static Windows instance;
    return instance;
}

// Counts a message as delivered, however its handler ends.
struct Delivery {
    Delivery() = default;
    ~Delivery() { --windows().pending; }
    Delivery(const Delivery&) = delete;
    Delivery& operator=(const Delivery&) = delete;
};

void discard(const WindowMessage& message) {
    if (message.discard != nullptr) {
        message.discard(message);
    }
}

void takeQueued() {
    const std::scoped_lock lock(windows().mutex);
    std::deque<Posted>& queue = windows().queue;
    windows().taken.insert(windows().taken.end(), queue.begin(), queue.end());
    queue.clear();
}

} // namespace

WindowRegistration::WindowRegistration(WindowReceiver& receiver) : handle_(0) {
    const std::scoped_lock lock(windows().mutex);
    handle_ = ++windows().lastHandle;
    windows().receivers.emplace(handle_, &receiver);
}

WindowRegistration::~WindowRegistration() {
    std::vector<WindowMessage> orphans;
    {
        const std::scoped_lock lock(windows().mutex);
        windows().receivers.erase(handle_);
        for (std::deque<Posted>* messages : {&windows().taken, &windows().queue}) {
            std::erase_if(*messages, [&](const Posted& posted) {
                if (posted.handle != handle_) {
                    return false;
                }
                orphans.push_back(posted.message);
                return true;
            });
        }
    }
    windows().pending -= orphans.size();
    for (const WindowMessage& message : orphans) {
        discard(message);
    }
}

bool postWindowMessage(std::uint32_t handle, const WindowMessage& message) {
    const std::scoped_lock lock(windows().mutex);
    if (!windows().receivers.contains(handle)) {
        return false;
    }
    windows().queue.push_back({handle, message});
    ++windows().pending;
    // Under the lock, so that a waker that is being removed is never called afterwards.
    if (windows().waker) {
        windows().waker();
    }
    return true;
}

bool dispatchWindowMessages(std::size_t most) {
    std::deque<Posted>& taken = windows().taken;
    takeQueued();
    for (std::size_t left = std::min(taken.size(), most); left > 0 && !taken.empty(); --left) {
        const Posted next = taken.front();
        taken.pop_front();
        const Delivery delivery;
        const auto found = windows().receivers.find(next.handle);
        if (found != windows().receivers.end()) {
            found->second->handleMessage(next.message);
        } else {
            discard(next.message);
        }
    }
    takeQueued();
    return !taken.empty();
}

std::size_t pendingWindowMessages() {
    return windows().pending;
}

std::size_t waitingWindowMessages() {
    const std::scoped_lock lock(windows().mutex);
    return windows().queue.size() + windows().taken.size();
}

void setWindowMessageWaker(std::function<void()> waker) {
    const std::scoped_lock lock(windows().mutex);
    windows().waker = std::move(waker);
}

} // namespace onudesk::platform
