// SPDX-License-Identifier: MIT
#include "platform/window_messages.h"

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
    std::map<std::uint32_t, WindowReceiver*> receivers;
    std::deque<Posted> queue;
    std::size_t handling = 0;
    std::uint32_t lastHandle = 0;
    std::function<void()> waker;
};

Windows& windows() {
    static Windows instance;
    return instance;
}

// Takes back the mark of a message being handled, however its handler ends.
struct HandlingDone {
    HandlingDone() = default;
    ~HandlingDone() {
        const std::scoped_lock lock(windows().mutex);
        --windows().handling;
    }
    HandlingDone(const HandlingDone&) = delete;
    HandlingDone& operator=(const HandlingDone&) = delete;
};

void discard(const WindowMessage& message) {
    if (message.discard != nullptr) {
        message.discard(message);
    }
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
        std::erase_if(windows().queue, [&](const Posted& posted) {
            if (posted.handle != handle_) {
                return false;
            }
            orphans.push_back(posted.message);
            return true;
        });
    }
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
    // Under the lock, so that a waker that is being removed is never called afterwards.
    if (windows().waker) {
        windows().waker();
    }
    return true;
}

void dispatchWindowMessages() {
    std::size_t left = 0;
    {
        const std::scoped_lock lock(windows().mutex);
        left = windows().queue.size();
    }
    for (; left > 0; --left) {
        Posted next{};
        WindowReceiver* receiver = nullptr;
        {
            const std::scoped_lock lock(windows().mutex);
            if (windows().queue.empty()) {
                return;
            }
            next = windows().queue.front();
            windows().queue.pop_front();
            ++windows().handling;
            const auto found = windows().receivers.find(next.handle);
            receiver = found == windows().receivers.end() ? nullptr : found->second;
        }
        const HandlingDone done;
        if (receiver != nullptr) {
            receiver->handleMessage(next.message);
        } else {
            discard(next.message);
        }
    }
}

std::size_t pendingWindowMessages() {
    const std::scoped_lock lock(windows().mutex);
    return windows().queue.size() + windows().handling;
}

void setWindowMessageWaker(std::function<void()> waker) {
    const std::scoped_lock lock(windows().mutex);
    windows().waker = std::move(waker);
}

} // namespace onudesk::platform
