// SPDX-License-Identifier: MIT
//
// Message queues of threads, addressed by number.
//
//     ThreadQueue queue;                       // on the worker
//     postThreadMessage(queue.id(), message);  // from anywhere
//     while (auto message = queue.take()) { … }
#pragma once

#include "platform/api.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>

namespace onudesk::platform {

struct ThreadMessage {
    std::uint32_t number = 0;
    void* payload = nullptr;
    std::intptr_t parameter = 0;
};

// A queue exists, and can be posted to, from construction to close() or destruction.
// One thread takes; any thread posts.
class ONUPLATFORM_API ThreadQueue {
public:
    // Throws std::system_error when the system has no more descriptors.
    ThreadQueue();
    ~ThreadQueue();
    ThreadQueue(const ThreadQueue&) = delete;
    ThreadQueue& operator=(const ThreadQueue&) = delete;

    // Never 0, never reused while the process runs.
    [[nodiscard]] std::uint32_t id() const;
    // The oldest message, or nothing when the queue is empty.
    [[nodiscard]] std::optional<ThreadMessage> take();
    // Waits until a message is there or wake() was called. Consumes the wake-up.
    void wait();
    // Ends one wait() early; from any thread.
    void wake();
    // A file descriptor that is readable while messages or a wake-up are pending, for use in
    // poll(2) next to sockets. Owned by the queue.
    [[nodiscard]] int pollDescriptor() const;
    // Makes the descriptor unreadable again until the next post or wake(); call before take().
    void acknowledge();
    // Messages waiting to be taken.
    [[nodiscard]] std::size_t pending() const;
    // Refuses further posts and hands back what was never taken; its payloads are the caller's.
    [[nodiscard]] std::deque<ThreadMessage> close();

private:
    struct State;
    friend ONUPLATFORM_API bool postThreadMessage(std::uint32_t id, const ThreadMessage& message);
    std::shared_ptr<State> state_;
};

// False when no queue has that id (any more); the payload then stays the caller's.
[[nodiscard]] ONUPLATFORM_API bool postThreadMessage(std::uint32_t id,
                                                     const ThreadMessage& message);

} // namespace onudesk::platform
