// SPDX-License-Identifier: MIT
#include "support/test_host.h"

#include "platform/window_messages.h"

#include <memory>
#include <set>

#include <gtest/gtest.h>

namespace onudesk::test {

namespace {

// Every reply that was made and not given back yet.
std::set<CodeParaReply*>& liveReplies() {
    static std::set<CodeParaReply*> live;
    return live;
}

void release(CodeParaReply** holder) {
    ASSERT_NE(*holder, nullptr) << "a null reply was given back";
    ASSERT_EQ(liveReplies().erase(*holder), 1U) << "a reply was given back twice";
    const std::unique_ptr<CodeParaIndex> entries((*holder)->entries);
    const std::unique_ptr<CodeParaReply> record(*holder);
    *holder = nullptr;
}

void discard(const platform::WindowMessage& message) {
    auto* reply = static_cast<CodeParaReply*>(message.payload);
    release(&reply);
}

} // namespace

TestHost::TestHost() : routes{.mutex = &mutex_, .routes = {}} {}

TestHost::~TestHost() {
    EXPECT_TRUE(liveReplies().empty()) << "a reply was not given back";
    while (take()) {
    }
}

Session TestHost::session() {
    Session session;
    session.context.agentAddress = "10.1.1.1";
    session.context.oltNumber = 1;
    session.context.ponNumber = 2;
    session.context.onuNumber = 5;
    session.OnuIndexText = "1.2.5";
    session.hostThreadId = threadId();
    session.routeTable = &routes;
    session.releaseFn = &release;
    return session;
}

ReleaseCodeParaFn TestHost::releaseFn() {
    return &release;
}

std::optional<Posted> TestHost::take() {
    const auto message = queue_.take();
    if (!message) {
        return std::nullopt;
    }
    EXPECT_EQ(message->number, WM_CODEPARA_REQUEST);
    Posted posted;
    posted.record.reset(static_cast<DllClientCodePara*>(message->payload));
    posted.kind = posted.record->requestKind;
    posted.itemType = itemTypeOf(*posted.record);
    const CodeParaReader reader(*posted.record);
    posted.suffix = reader.text(CP_INDEX_SUFFIX);
    const auto names = reader.byteStrings(CP_NAME_LIST).value_or(std::vector<std::string>());
    const auto oids = reader.byteStrings(CP_OID_LIST).value_or(std::vector<std::string>());
    const auto values = reader.byteStrings(CP_VALUE_LIST).value_or(std::vector<std::string>());
    const auto types = reader.integers(CP_TYPE_LIST).value_or(std::vector<std::uint32_t>());
    EXPECT_TRUE(names.size() == oids.size() && oids.size() == values.size() &&
                values.size() == types.size())
        << "binding lists of different lengths";
    for (std::size_t at = 0; at < names.size(); ++at) {
        posted.bindings.push_back({names[at], oids[at], values[at], types[at]});
    }
    return posted;
}

void TestHost::goAway() {
    for (const platform::ThreadMessage& message : queue_.close()) {
        const CodeParaPtr record(static_cast<DllClientCodePara*>(message.payload));
    }
}

CodeParaReply* TestHost::makeReply(const Answer& answer) {
    auto reply = std::make_unique<CodeParaReply>();
    auto entries = std::make_unique<CodeParaIndex>();
    if (answer.values) {
        putByteStringList(*entries, CP_VALUE_LIST, *answer.values);
    }
    if (answer.oids) {
        putByteStringList(*entries, CP_OID_LIST, *answer.oids);
    }
    if (answer.lengths) {
        putIntegerList(*entries, CP_VALUE_LENGTH_LIST, *answer.lengths);
    }
    if (answer.status) {
        putInteger(*entries, CP_STATUS, *answer.status);
    }
    if (answer.errorText) {
        putBytes(*entries, CP_ERROR_TEXT, *answer.errorText);
    }
    if (answer.errorStatus) {
        putInteger(*entries, CP_ERROR_STATUS, static_cast<std::uint32_t>(*answer.errorStatus));
    }
    if (answer.resultText) {
        putBytes(*entries, CP_RESULT_TEXT, *answer.resultText);
    }
    reply->entries = entries.release();
    liveReplies().insert(reply.get());
    return reply.release();
}

bool TestHost::reply(std::uint8_t kind, std::int32_t itemType, const Answer& answer) {
    const auto route = routes.routes.find(routeKey(kind, itemType));
    if (route == routes.routes.end()) {
        return false;
    }
    CodeParaReply* record = makeReply(answer);
    if (!platform::postWindowMessage(route->second.window,
                                     {route->second.message, record, 0, &discard})) {
        release(&record);
        return false;
    }
    platform::dispatchWindowMessages();
    return true;
}

std::size_t TestHost::outstandingReplies() {
    return liveReplies().size();
}

std::uint32_t TestHost::routedWindow(std::uint8_t kind, std::int32_t itemType) {
    const std::uint32_t key = routeKey(kind, itemType);
    EXPECT_LE(routes.routes.count(key), 1U) << "several routes for one key";
    const auto route = routes.routes.find(key);
    return route == routes.routes.end() ? 0 : route->second.window;
}

} // namespace onudesk::test
