// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/code_para_access.h"
#include "bridge/session.h"
#include "onudesk/messages.h"
#include "platform/route_mutex.h"
#include "platform/thread_queue.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace onudesk::test {

struct Binding {
    std::string name;
    std::string oid;
    std::string value;
    std::uint32_t type = 0;
    bool operator==(const Binding&) const = default;
};

// A request as the host finds it.
struct Posted {
    std::uint8_t kind = 0;
    std::int32_t itemType = 0;
    std::optional<std::string> suffix;
    std::vector<Binding> bindings;
    CodeParaPtr record;
};

// What a reply carries; absent entries are left out of the record.
struct Answer {
    std::optional<std::vector<std::string>> values{};
    std::optional<std::vector<std::string>> oids{};
    std::optional<std::vector<std::uint32_t>> lengths{};
    std::optional<std::uint32_t> status{};
    std::optional<std::string> errorText{};
    std::optional<std::int32_t> errorStatus{};
    std::optional<std::string> resultText{};
};

// The host's side of the boundary: a real queue and a real route table, replies made by hand. Fails
// the test when a reply was not given back exactly once.
class TestHost {
public:
    TestHost();
    ~TestHost();
    TestHost(const TestHost&) = delete;
    TestHost& operator=(const TestHost&) = delete;

    ReplyRouteTable routes;

    // A session of this host for ONU 1.2.5 of agent 10.1.1.1.
    [[nodiscard]] Session session();
    [[nodiscard]] std::uint32_t threadId() const { return queue_.id(); }
    [[nodiscard]] static ReleaseCodeParaFn releaseFn();

    // The oldest request not yet taken.
    std::optional<Posted> take();
    [[nodiscard]] std::size_t pending() const { return queue_.pending(); }
    // From now on posting fails.
    void goAway();

    // A reply record with these entries; the caller delivers it.
    [[nodiscard]] static CodeParaReply* makeReply(const Answer& answer);
    // Sends the reply to the registered window and lets it be handled. False without a route.
    bool reply(std::uint8_t kind, std::int32_t itemType, const Answer& answer);
    bool replyRead(std::int32_t itemType, const Answer& answer) {
        return reply(CP_KIND_READ, itemType, answer);
    }
    bool replyWrite(std::int32_t itemType, const Answer& answer) {
        return reply(CP_KIND_WRITE, itemType, answer);
    }
    // Replies made and not yet given back.
    [[nodiscard]] static std::size_t outstandingReplies();
    // The window registered for a key, 0 for none; fails the test when there are several.
    [[nodiscard]] std::uint32_t routedWindow(std::uint8_t kind, std::int32_t itemType);

private:
    platform::RouteMutex mutex_;
    platform::ThreadQueue queue_;
};

} // namespace onudesk::test
