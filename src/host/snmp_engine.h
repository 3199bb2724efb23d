// SPDX-License-Identifier: MIT
//
// The host's side of the boundary: takes the window's requests, asks the agents, delivers the
// replies.
//
//     SnmpEngine engine(std::move(catalogue));
//     engine.setV3Defaults(profile);
//     show(qApp, engine.routeTable(), &param, engine.hostThreadId(), &releaseReply);
//     engine.stop();
#pragma once

#include "host/access.h"
#include "host/job.h"
#include "host/reply_record.h"
#include "onudesk/reply_routes.h"
#include "platform/route_mutex.h"
#include "platform/thread_queue.h"
#include "snmp/object_schema.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace onudesk::host {

struct EngineOptions {
    // What a request's time-out counts; tests use a shorter one.
    std::chrono::milliseconds timeoutUnit{1000};
    WalkLimits walkLimits;
};

// Told of everything that crosses the boundary, on the worker thread, in the order in which it
// happens. Either may be empty. Must not call setObserver().
struct EngineObserver {
    std::function<void(const RequestRecord&)> onRequest;
    std::function<void(const ReplyRecord&)> onReply;
};

// One per process at a time, for Net-SNMP keeps its SNMPv3 users per process. Requests run side by
// side; only a request that follows a write of the same item to the same agent waits for that
// write.
class SnmpEngine {
public:
    explicit SnmpEngine(CatalogueSchema catalogue, const EngineOptions& options = {});
    ~SnmpEngine();
    SnmpEngine(const SnmpEngine&) = delete;
    SnmpEngine& operator=(const SnmpEngine&) = delete;

    // Both valid while the engine lives.
    [[nodiscard]] ReplyRouteTable* routeTable() { return &routes_; }
    [[nodiscard]] const std::uint32_t* hostThreadId() const { return &threadId_; }

    // SNMPv3 settings for requests that carry none of their own. Any thread.
    void setV3Defaults(const V3Access& settings);
    // Replaces the observer; the former one is not called any more once this returns. Any thread.
    void setObserver(EngineObserver observer);

    // Replaces what is called, on the worker thread, each time unobserved() or outstanding() has
    // become 0; by then either may have grown again. The same rules as for the observer. Any
    // thread.
    void setOnSettled(std::function<void()> onSettled);

    // Ends what one window asked for: requests posted so far are still carried out and observed,
    // but their replies reach no window any more. Call after the window closed, on the thread that
    // posts.
    void endSession();

    // Requests posted whose last reply is not yet with its window. When this is 0 and, after that,
    // platform::pendingWindowMessages() is 0 too, nothing is under way. Any thread.
    [[nodiscard]] std::size_t outstanding() const;

    // Requests posted that the observer was not told of yet. Any thread.
    [[nodiscard]] std::size_t unobserved() const;

    // Refuses further requests and drops those under way, without replies, within 100 ms.
    void stop();

private:
    struct Running {
        std::unique_ptr<Job> job;
        std::uint64_t session = 0;
        bool started = false;
    };

    void run();
    void waitForWork(SnmpClient& client, std::vector<pollfd>& descriptors);
    // False when there was none.
    bool takeRequests(SnmpClient& client);
    void accept(SnmpClient& client, const DllClientCodePara& para);
    void startReady();
    void reap();
    void answerBadRequest(const DllClientCodePara& para, const std::string& problem);
    void onReply(const HostRequest& request, std::uint64_t session, ReplyRecord reply);
    void deliver(ReplyRecord reply);
    bool post(const ReplyRecord& reply);
    void observe(const ReplyRecord& reply);
    void observe(const DllClientCodePara& para);
    void tellSettled();

    CatalogueSchema catalogue_;
    EngineOptions options_;
    platform::RouteMutex routeMutex_;
    ReplyRouteTable routes_;
    platform::ThreadQueue queue_;
    std::uint32_t threadId_;

    mutable std::mutex settingsMutex_; // guards the next three
    V3Access v3Defaults_;
    EngineObserver observer_;
    std::function<void()> onSettled_;

    std::atomic<std::size_t> inProgress_{0};
    std::atomic<std::size_t> beingTaken_{
        0}; // 1 from before a request leaves the queue until observed
    std::atomic<bool> stopping_{false};
    std::atomic<std::uint64_t> session_{0}; // of the window that is open, or opens next
    // Worker thread only.
    std::uint64_t acceptedSession_ = 0; // of the requests being taken from the queue
    std::list<Running> jobs_;
    std::map<std::int32_t, ReplyError> failedFirstWrites_; // by item type

    std::thread worker_;
};

} // namespace onudesk::host
