// SPDX-License-Identifier: MIT
//
// Windows that receive messages by handle, and the queue between the posting threads and the
// user-interface thread.
//
//     class Page : public WindowReceiver { … };
//     WindowRegistration window(page);               // on the user-interface thread
//     postWindowMessage(window.handle(), message);   // on any thread
//     dispatchWindowMessages();                      // on the user-interface thread, from its loop
#pragma once

#include "platform/api.h"

#include <cstddef>
#include <cstdint>
#include <functional>

namespace onudesk::platform {

struct WindowMessage {
    std::uint32_t number = 0;
    void* payload = nullptr;
    std::intptr_t parameter = 0;
    // Called instead of the receiver when the window is gone by the time its turn comes.
    void (*discard)(const WindowMessage& message) = nullptr;
};

class ONUPLATFORM_API WindowReceiver {
public:
    virtual ~WindowReceiver() = default;
    virtual void handleMessage(const WindowMessage& message) = 0;
};

// Gives the receiver a handle for as long as the registration lives. The receiver must outlive it.
// Destroying the registration discards the messages that still wait for this window.
// User-interface thread only.
class ONUPLATFORM_API WindowRegistration {
public:
    explicit WindowRegistration(WindowReceiver& receiver);
    ~WindowRegistration();
    WindowRegistration(const WindowRegistration&) = delete;
    WindowRegistration& operator=(const WindowRegistration&) = delete;

    // Never 0, never reused while the process runs.
    [[nodiscard]] std::uint32_t handle() const { return handle_; }

private:
    std::uint32_t handle_;
};

// Queues the message; never calls the receiver itself. False when no window has that handle: the
// payload then stays the caller's and `discard` is not called.
[[nodiscard]] ONUPLATFORM_API bool postWindowMessage(std::uint32_t handle,
                                                     const WindowMessage& message);

// Delivers, in order, the messages queued so far, but not more than `most`; handlers may post,
// dispatch again, and destroy registrations. True when messages are left. User-interface thread
// only.
ONUPLATFORM_API bool dispatchWindowMessages(std::size_t most = SIZE_MAX);

// Messages queued and not yet delivered or discarded, the one being handled included.
[[nodiscard]] ONUPLATFORM_API std::size_t pendingWindowMessages();
// Messages queued only. A handler that runs an event loop of its own, for a dialog, counts as
// pending for as long as the dialog is open; inside that loop this is what is still to come.
[[nodiscard]] ONUPLATFORM_API std::size_t waitingWindowMessages();

// Called on the posting thread after each post, to make the user-interface thread call
// dispatchWindowMessages(). An empty function removes it.
ONUPLATFORM_API void setWindowMessageWaker(std::function<void()> waker);

} // namespace onudesk::platform
