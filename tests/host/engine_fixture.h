// SPDX-License-Identifier: MIT
//
// Drives an engine as the configuration window does: posts records, owns windows and routes, takes
// replies on the user-interface thread.
#pragma once

#include "bridge/session.h"
#include "host/snmp_engine.h"
#include "platform/window_messages.h"
#include "scripted_agent.h"
#include "window/request.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace onudesk::host::test {

// What a window learns from a reply.
struct SeenReply {
    std::uint32_t message = 0;
    std::uint32_t status = 0;
    std::string resultText;
    std::optional<std::string> errorText;
    std::int32_t errorStatus = 0;
    std::int32_t errorIndex = 0;
    std::vector<std::string> oids;
    std::vector<std::string> values;
    std::vector<std::uint32_t> lengths;
    std::uint32_t agentAddress = 0;
};

class FakeWindow : public platform::WindowReceiver {
public:
    void handleMessage(const platform::WindowMessage& message) override;
    [[nodiscard]] std::uint32_t handle() const { return registration_.handle(); }

    std::vector<SeenReply> replies;

private:
    platform::WindowRegistration registration_{*this};
};

// Catalogue items: 600 scalars of every type, 601 a table, 602 scalars, written-only objects, a
// table and scalars, 603 objects to write, 604 only written ones. All below kBase.ITEM.
inline const std::string kBase = "1.3.6.1.4.1.27315";
[[nodiscard]] Oid cell(int item, int column, const std::string& instance = "1.2.5");
using Texts = std::vector<std::string>;
[[nodiscard]] CatalogueSchema testCatalogue();

class EngineTest : public ::testing::Test {
protected:
    EngineTest();
    ~EngineTest() override;

    // For engines made after this; testCatalogue() otherwise.
    void useCatalogue(CatalogueSchema catalogue) { catalogue_ = std::move(catalogue); }
    // Makes the engine; a request's time-out then counts `timeoutUnit`.
    void startEngine(std::chrono::milliseconds timeoutUnit = std::chrono::seconds(1),
                     const WalkLimits& limits = {});
    // Makes requests go to the agent: v2c, ONU 1.2.5, one retry.
    void useAgent(std::uint16_t port) { session.context.snmpPort = port; }
    // An agent, and an engine whose requests go there.
    struct Agent : ScriptedAgent {
        Agent(EngineTest& test, Script script,
              std::chrono::milliseconds timeoutUnit = std::chrono::seconds(1),
              const WalkLimits& limits = {});
    };
    [[nodiscard]] SnmpEngine& engine() { return *engine_; }

    // Registers the read route for the window and posts a read.
    void read(std::int32_t itemType);
    struct Setting {
        std::string object;
        std::string text;
        std::size_t length = 0;
    };
    // A write of item 603; post() registers the write route and sends it.
    [[nodiscard]] CodeParaPtr writeOf(const std::vector<Setting>& values);
    void post(CodeParaPtr para);
    // The first of two writes has no route; its failure is told with the second.
    void postFirstOfTwo(CodeParaPtr para);
    // Reads, or writes, and waits for the end of it.
    const std::vector<SeenReply>& readAll(std::int32_t itemType);
    SeenReply writeAll(CodeParaPtr para);
    // The same from an agent with that script, which leaves its requests behind.
    std::vector<SeenReply> readFrom(const Script& script,
                                    std::chrono::milliseconds timeoutUnit = std::chrono::seconds(1),
                                    std::int32_t itemType = 600, const WalkLimits& limits = {});
    SeenReply readOne(const Script& script,
                      std::chrono::milliseconds timeoutUnit = std::chrono::seconds(1));

    // Dispatches window messages until the condition holds.
    void waitUntil(const std::function<bool()>& condition);
    void waitUntilIdle();
    // Replies that the engine reported, the undelivered ones included.
    [[nodiscard]] std::vector<ReplyRecord> observedReplies();
    [[nodiscard]] std::vector<RequestRecord> observedRequests();

    Session session;
    std::optional<FakeWindow> window;
    std::vector<AgentRequest> requests;

private:
    void wake();

    CatalogueSchema catalogue_;
    std::mutex mutex_;
    std::condition_variable woken_;
    std::vector<ReplyRecord> observedReplies_;
    std::vector<RequestRecord> observedRequests_;
    std::optional<SnmpEngine> engine_;
};

// An agent that never answers, and one that does not hear the first request.
[[nodiscard]] Script silent();
[[nodiscard]] Script losingTheFirstRequest(const Script& script);
// One that refuses everything, without any binding unless it names one.
[[nodiscard]] Script refusing(std::int32_t status, std::int32_t index = 0);
void expectError(const SeenReply& reply, std::int32_t status, std::string_view text = {});

} // namespace onudesk::host::test
