// SPDX-License-Identifier: MIT
//
// What the engine's thread tells the window, without either waiting for the other.
#pragma once

#include "host/secret_mask.h"
#include "host/snmp_engine.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>

#include <QObject>
#include <QString>

namespace onudesk::desk {

struct TraceEntry {
    QString line;    // time and masked trace line, one line
    QString outcome; // of a reply, in words; empty for requests
};

// Keeps the newest entries until they are taken, at most kMaxEntries.
class TraceFeed {
public:
    static constexpr std::size_t kMaxEntries = 5000;

    // `onEntries` is called on this thread, from the event loop, when there is something to take.
    explicit TraceFeed(std::function<void()> onEntries);
    ~TraceFeed() = default;
    TraceFeed(const TraceFeed&) = delete;
    TraceFeed& operator=(const TraceFeed&) = delete;

    // Any thread.
    void post(TraceEntry entry);
    // Oldest first. The constructor's thread only.
    [[nodiscard]] std::deque<TraceEntry> take();

private:
    std::function<void()> onEntries_;
    QObject context_; // pending calls of onEntries end with it
    std::mutex mutex_;
    std::deque<TraceEntry> entries_;
};

// Feeds what crosses the boundary. The feed outlives the observer.
[[nodiscard]] host::EngineObserver traceObserver(TraceFeed& feed, const host::SecretMask& mask);

} // namespace onudesk::desk
