// SPDX-License-Identifier: MIT
//
// The two threads of the boundary at work on one queue, one table and one window.
#include "bridge/session.h"
#include "platform/window_messages.h"
#include "support/test_host.h"

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

#include <gtest/gtest.h>

namespace onudesk {
namespace {

using test::TestHost;

constexpr int kRequests = 500;

std::atomic_int g_released = 0;

void releaseCounted(CodeParaReply** holder) {
    const std::unique_ptr<CodeParaIndex> entries((*holder)->entries);
    const std::unique_ptr<CodeParaReply> record(*holder);
    *holder = nullptr;
    ++g_released;
}

void discardReply(const platform::WindowMessage& message) {
    auto* reply = static_cast<CodeParaReply*>(message.payload);
    releaseCounted(&reply);
}

// A host worker that answers every request with its item type.
class Worker {
public:
    Worker() : table{.mutex = &mutex_, .routes = {}}, thread_([this] { run(); }) {}
    ~Worker() { stop(); }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void stop() {
        if (thread_.joinable()) {
            stopping_ = true;
            queue.wake();
            thread_.join();
        }
    }

    platform::ThreadQueue queue;
    ReplyRouteTable table;

private:
    void run() {
        while (!stopping_) {
            queue.wait();
            while (const auto message = queue.take()) {
                answer(CodeParaPtr(static_cast<DllClientCodePara*>(message->payload)));
            }
        }
    }

    void answer(const CodeParaPtr& request) {
        const std::int32_t itemType = itemTypeOf(*request);
        ReplyRoute route{};
        {
            const std::scoped_lock lock(mutex_);
            const auto found = table.routes.find(routeKey(CP_KIND_READ, itemType));
            route = found == table.routes.end() ? ReplyRoute{} : found->second;
        }
        auto reply = std::make_unique<CodeParaReply>();
        reply->entries = std::make_unique<CodeParaIndex>().release();
        putInteger(*reply->entries, CP_STATUS, static_cast<std::uint32_t>(itemType));
        const platform::WindowMessage message{route.message, reply.release(), 0, &discardReply};
        if (!platform::postWindowMessage(route.window, message)) {
            discardReply(message);
        }
    }

    platform::RouteMutex mutex_;
    std::atomic_bool stopping_ = false;
    std::thread thread_;
};

class Window : public platform::WindowReceiver {
public:
    explicit Window(const Session& session) : session_(session) {}
    void handleMessage(const platform::WindowMessage& message) override {
        const BorrowedReply reply(session_, message.payload);
        items.push_back(reply.reader().integer(CP_STATUS).value_or(0));
    }
    std::vector<std::uint32_t> items;

private:
    const Session& session_;
};

// Sleeps until a message was posted.
class Bell {
public:
    Bell() {
        platform::setWindowMessageWaker([this] {
            const std::scoped_lock lock(mutex_);
            rung_ = true;
            bell_.notify_one();
        });
    }
    ~Bell() { platform::setWindowMessageWaker({}); }
    Bell(const Bell&) = delete;
    Bell& operator=(const Bell&) = delete;

    void wait() {
        std::unique_lock lock(mutex_);
        bell_.wait(lock, [this] { return rung_; });
        rung_ = false;
    }

private:
    std::mutex mutex_;
    std::condition_variable bell_;
    bool rung_ = false;
};

Session sessionOf(Worker& worker) {
    Session session;
    session.hostThreadId = worker.queue.id();
    session.routeTable = &worker.table;
    session.releaseFn = &releaseCounted;
    return session;
}

CodeParaPtr requestFor(std::int32_t itemType) {
    CodeParaPtr request = createCodePara();
    setItemType(*request, itemType);
    return request;
}

TEST(BridgeThreads, EveryRequestIsAnsweredOnceInOrder) {
    g_released = 0;
    Worker worker;
    const Session session = sessionOf(worker);
    Window window(session);
    Bell bell;
    const platform::WindowRegistration registration(window);
    for (int number = 0; number < kRequests; ++number) {
        registerReadRoute(session, kItemTypeBase + number, registration.handle());
        ASSERT_TRUE(postRequest(session, requestFor(kItemTypeBase + number)));
        platform::dispatchWindowMessages();
    }
    while (window.items.size() < kRequests) {
        bell.wait();
        platform::dispatchWindowMessages();
    }
    for (int number = 0; number < kRequests; ++number) {
        EXPECT_EQ(window.items[static_cast<std::size_t>(number)],
                  static_cast<std::uint32_t>(kItemTypeBase + number));
    }
    EXPECT_EQ(g_released, kRequests);
}

TEST(BridgeThreads, ClosingWindowsLosesNoReply) {
    g_released = 0;
    Worker worker;
    const Session session = sessionOf(worker);
    int posted = 0;
    for (int round = 0; round < kRequests; ++round) {
        Window window(session);
        const platform::WindowRegistration registration(window);
        registerReadRoute(session, 606, registration.handle());
        posted += postRequest(session, requestFor(606)) ? 1 : 0;
        if (round % 3 == 0) {
            platform::dispatchWindowMessages();
        }
        unregisterWindow(session, registration.handle());
    }
    worker.stop();
    for (const platform::ThreadMessage& left : worker.queue.close()) {
        const CodeParaPtr request(static_cast<DllClientCodePara*>(left.payload));
        ++g_released;
    }
    EXPECT_EQ(g_released, posted);
    EXPECT_EQ(platform::pendingWindowMessages(), 0U);
}

} // namespace
} // namespace onudesk
