// SPDX-License-Identifier: MIT
#include "platform/thread_queue.h"
#include "platform/window_messages.h"

#include <memory>
#include <vector>

#include <poll.h>

#include <gtest/gtest.h>

namespace onudesk::platform {
namespace {

bool readable(int descriptor) {
    pollfd waiting{.fd = descriptor, .events = POLLIN, .revents = 0};
    return ::poll(&waiting, 1, 0) == 1;
}

TEST(ThreadQueues, KeepOrderAndSignalTheirDescriptor) {
    ThreadQueue queue;
    EXPECT_FALSE(readable(queue.pollDescriptor()));
    EXPECT_TRUE(postThreadMessage(queue.id(), {1, nullptr, 10}));
    EXPECT_TRUE(postThreadMessage(queue.id(), {2, nullptr, 20}));
    EXPECT_TRUE(readable(queue.pollDescriptor()));
    EXPECT_EQ(queue.pending(), 2U);
    queue.wait();
    EXPECT_FALSE(readable(queue.pollDescriptor()));
    EXPECT_EQ(queue.take()->number, 1U);
    EXPECT_EQ(queue.take()->parameter, 20);
    EXPECT_FALSE(queue.take());
    queue.wake();
    queue.wait(); // returns at once
    EXPECT_FALSE(queue.take());
}

TEST(ThreadQueues, ClosedAndUnknownOnesRefusePosts) {
    ThreadQueue first;
    const std::uint32_t id = first.id();
    int payload = 0;
    EXPECT_TRUE(postThreadMessage(id, {1, &payload, 0}));
    const auto left = first.close();
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left[0].payload, &payload);
    EXPECT_FALSE(postThreadMessage(id, {2, nullptr, 0}));
    EXPECT_FALSE(postThreadMessage(0, {2, nullptr, 0}));
    const ThreadQueue second;
    EXPECT_NE(second.id(), id);
    EXPECT_FALSE(postThreadMessage(id, {2, nullptr, 0}));
}

std::vector<std::uint32_t> g_discarded;

void discardNumber(const WindowMessage& message) {
    g_discarded.push_back(message.number);
}

class Recorder : public WindowReceiver {
public:
    void handleMessage(const WindowMessage& message) override {
        numbers.push_back(message.number);
        if (onMessage) {
            onMessage(message);
        }
    }
    std::vector<std::uint32_t> numbers;
    std::function<void(const WindowMessage&)> onMessage;
};

TEST(WindowMessages, ArriveInOrderOnDispatchOnly) {
    Recorder recorder;
    const WindowRegistration window(recorder);
    int wakes = 0;
    setWindowMessageWaker([&] { ++wakes; });
    EXPECT_TRUE(postWindowMessage(window.handle(), {1, nullptr, 0, nullptr}));
    EXPECT_TRUE(postWindowMessage(window.handle(), {2, nullptr, 0, nullptr}));
    EXPECT_TRUE(recorder.numbers.empty());
    EXPECT_EQ(pendingWindowMessages(), 2U);
    EXPECT_EQ(wakes, 2);
    setWindowMessageWaker({});
    dispatchWindowMessages();
    EXPECT_EQ(recorder.numbers, (std::vector<std::uint32_t>{1, 2}));
    EXPECT_EQ(pendingWindowMessages(), 0U);
}

TEST(WindowMessages, OfAVanishedWindowAreDiscardedOnce) {
    g_discarded.clear();
    Recorder recorder;
    auto window = std::make_unique<WindowRegistration>(recorder);
    const std::uint32_t handle = window->handle();
    EXPECT_TRUE(postWindowMessage(handle, {1, nullptr, 0, &discardNumber}));
    EXPECT_TRUE(postWindowMessage(handle, {2, nullptr, 0, nullptr}));
    window.reset();
    EXPECT_EQ(g_discarded, std::vector<std::uint32_t>{1});
    EXPECT_FALSE(postWindowMessage(handle, {3, nullptr, 0, &discardNumber}));
    EXPECT_FALSE(postWindowMessage(0, {3, nullptr, 0, &discardNumber}));
    dispatchWindowMessages();
    EXPECT_TRUE(recorder.numbers.empty());
    EXPECT_EQ(g_discarded.size(), 1U); // a refused post discards nothing
}

TEST(WindowMessages, HandlersMayDestroyWindowsAndDispatchAgain) {
    g_discarded.clear();
    Recorder first;
    Recorder second;
    const WindowRegistration firstWindow(first);
    auto secondWindow = std::make_unique<WindowRegistration>(second);
    first.onMessage = [&](const WindowMessage& message) {
        if (message.number == 1) {
            EXPECT_EQ(pendingWindowMessages(), 4U); // the one being handled counts
            EXPECT_EQ(waitingWindowMessages(), 3U);
            dispatchWindowMessages(); // as a modal box does
        } else {
            secondWindow.reset();
        }
    };
    EXPECT_TRUE(postWindowMessage(firstWindow.handle(), {1, nullptr, 0, nullptr}));
    EXPECT_TRUE(postWindowMessage(secondWindow->handle(), {2, nullptr, 0, nullptr}));
    EXPECT_TRUE(postWindowMessage(firstWindow.handle(), {3, nullptr, 0, nullptr}));
    EXPECT_TRUE(postWindowMessage(secondWindow->handle(), {4, nullptr, 0, &discardNumber}));
    dispatchWindowMessages();
    EXPECT_EQ(first.numbers, (std::vector<std::uint32_t>{1, 3}));
    EXPECT_EQ(second.numbers, (std::vector<std::uint32_t>{2}));
    EXPECT_EQ(g_discarded, (std::vector<std::uint32_t>{4}));
    EXPECT_EQ(pendingWindowMessages(), 0U);
}

TEST(WindowMessages, CanBeDeliveredAFewAtATime) {
    Recorder recorder;
    const WindowRegistration window(recorder);
    for (std::uint32_t number = 1; number <= 5; ++number) {
        EXPECT_TRUE(postWindowMessage(window.handle(), {number, nullptr, 0, nullptr}));
    }
    EXPECT_TRUE(dispatchWindowMessages(2));
    EXPECT_EQ(recorder.numbers, (std::vector<std::uint32_t>{1, 2}));
    EXPECT_TRUE(dispatchWindowMessages(2));
    EXPECT_FALSE(dispatchWindowMessages(2));
    EXPECT_EQ(recorder.numbers, (std::vector<std::uint32_t>{1, 2, 3, 4, 5}));
    EXPECT_FALSE(dispatchWindowMessages());
}

TEST(WindowMessages, PostedByAHandlerWaitForTheNextDispatch) {
    Recorder recorder;
    const WindowRegistration window(recorder);
    recorder.onMessage = [&](const WindowMessage&) {
        EXPECT_TRUE(postWindowMessage(window.handle(), {9, nullptr, 0, nullptr}));
        recorder.onMessage = {};
    };
    EXPECT_TRUE(postWindowMessage(window.handle(), {1, nullptr, 0, nullptr}));
    dispatchWindowMessages();
    EXPECT_EQ(recorder.numbers, (std::vector<std::uint32_t>{1}));
    dispatchWindowMessages();
    EXPECT_EQ(recorder.numbers, (std::vector<std::uint32_t>{1, 9}));
}

} // namespace
} // namespace onudesk::platform
