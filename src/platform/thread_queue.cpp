// SPDX-License-Identifier: MIT
#include "platform/thread_queue.h"

#include <cerrno>
#include <map>
#include <mutex>
#include <system_error>
#include <utility>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace onudesk::platform {

struct ThreadQueue::State {
    std::uint32_t id = 0;
    int eventDescriptor = ::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    mutable std::mutex mutex;
    std::deque<ThreadMessage> messages;
    bool open = true;

    State() {
        if (eventDescriptor < 0) {
            throw std::system_error(errno, std::generic_category(), "eventfd");
        }
    }
    State(const State&) = delete;
    State& operator=(const State&) = delete;
    ~State() { ::close(eventDescriptor); }

    void signal() const {
        const std::uint64_t one = 1;
        // Can only fail when the counter is full, and then the descriptor is readable already.
        [[maybe_unused]] const auto written = ::write(eventDescriptor, &one, sizeof one);
    }
    void clear() const {
        std::uint64_t count = 0;
        [[maybe_unused]] const auto taken = ::read(eventDescriptor, &count, sizeof count);
    }
};

namespace {

struct Registry {
    std::mutex mutex;
    std::map<std::uint32_t, std::weak_ptr<void>> queues;
    std::uint32_t lastId = 0;
};

Registry& registry() {
    static Registry instance;
    return instance;
}

} // namespace

ThreadQueue::ThreadQueue() : state_(std::make_shared<State>()) {
    const std::scoped_lock lock(registry().mutex);
    state_->id = ++registry().lastId;
    registry().queues.emplace(state_->id, state_);
}

ThreadQueue::~ThreadQueue() {
    [[maybe_unused]] const auto left = close();
}

std::uint32_t ThreadQueue::id() const {
    return state_->id;
}

std::optional<ThreadMessage> ThreadQueue::take() {
    const std::scoped_lock lock(state_->mutex);
    if (state_->messages.empty()) {
        return std::nullopt;
    }
    const ThreadMessage message = state_->messages.front();
    state_->messages.pop_front();
    return message;
}

void ThreadQueue::wait() {
    pollfd waiting{.fd = state_->eventDescriptor, .events = POLLIN, .revents = 0};
    while (::poll(&waiting, 1, -1) < 0) {
    }
    state_->clear();
}

void ThreadQueue::wake() {
    state_->signal();
}

int ThreadQueue::pollDescriptor() const {
    return state_->eventDescriptor;
}

void ThreadQueue::acknowledge() {
    state_->clear();
}

std::size_t ThreadQueue::pending() const {
    const std::scoped_lock lock(state_->mutex);
    return state_->messages.size();
}

std::deque<ThreadMessage> ThreadQueue::close() {
    {
        const std::scoped_lock lock(registry().mutex);
        registry().queues.erase(state_->id);
    }
    const std::scoped_lock lock(state_->mutex);
    state_->open = false;
    return std::exchange(state_->messages, {});
}

bool postThreadMessage(std::uint32_t id, const ThreadMessage& message) {
    std::shared_ptr<void> found;
    {
        const std::scoped_lock lock(registry().mutex);
        const auto queue = registry().queues.find(id);
        if (queue == registry().queues.end()) {
            return false;
        }
        found = queue->second.lock();
    }
    const auto state = std::static_pointer_cast<ThreadQueue::State>(found);
    if (!state) {
        return false;
    }
    const std::scoped_lock lock(state->mutex);
    if (!state->open) {
        return false;
    }
    state->messages.push_back(message);
    state->signal();
    return true;
}

} // namespace onudesk::platform
