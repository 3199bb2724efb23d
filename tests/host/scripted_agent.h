// SPDX-License-Identifier: MIT
//
// An SNMP agent on a free loopback port that answers as a test tells it to: rightly, wrongly, late,
// twice or never.
#pragma once

#include "snmp/value.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace onudesk::host::test {

enum PduTag : std::uint8_t {
    kGet = 0xA0,
    kGetNext = 0xA1,
    kResponse = 0xA2,
    kSet = 0xA3,
    kGetBulk = 0xA5,
    kReport = 0xA8,
};

struct AgentRequest {
    std::uint16_t peerPort = 0; // of the sender, on the loopback interface
    std::int64_t version = 0;
    std::string community{};    // v1, v2c
    std::int64_t messageId = 0; // v3
    std::string engineId{};     // v3, as the sender believes
    std::string user{};         // v3
    std::uint8_t pdu = 0;       // 0: encrypted
    std::int64_t requestId = 0;
    std::int64_t maxRepetitions = 0;
    VarBinds bindings{};
};

struct AgentResponse {
    std::int32_t status = 0;
    std::int32_t index = 0;
    VarBinds bindings{};
    std::uint8_t pdu = kResponse;
    std::string engineId = "\x80\x01\x02\x03\x04"; // v3
};

// Where a script puts what it sends: nothing, one answer, or several, to this or earlier requests.
class Outbox {
public:
    virtual ~Outbox() = default;
    virtual void answer(const AgentRequest& request, const AgentResponse& response) = 0;
    // The same from another port.
    virtual void answerFromElsewhere(const AgentRequest& request,
                                     const AgentResponse& response) = 0;
    virtual void sendBytes(const std::string& datagram) = 0;
};

// Runs on the agent's own thread.
using Script = std::function<void(const AgentRequest&, Outbox&)>;

// The bytes of a response.
[[nodiscard]] std::string encodeResponse(const AgentRequest& request,
                                         const AgentResponse& response);

class ScriptedAgent {
public:
    explicit ScriptedAgent(Script script);
    ~ScriptedAgent();
    ScriptedAgent(const ScriptedAgent&) = delete;
    ScriptedAgent& operator=(const ScriptedAgent&) = delete;

    [[nodiscard]] std::uint16_t port() const { return port_; }
    // Ends the agent once it has taken all that was sent to it.
    void stop();
    // What it took so far, in order.
    [[nodiscard]] std::vector<AgentRequest> requests() const;
    [[nodiscard]] std::size_t count(std::uint8_t pdu) const;

private:
    void run();

    Script script_;
    int socket_;
    int stopEvent_;
    std::uint16_t port_ = 0;
    mutable std::mutex mutex_;
    std::vector<AgentRequest> requests_;
    std::thread thread_;
};

// A well-behaved agent's data.
class Mib {
public:
    Mib() = default;
    explicit Mib(std::map<Oid, Value> values) : values_(std::move(values)) {}

    // Answers GET, GETNEXT, GETBULK and SET as RFC 1157 and RFC 3416 say. A SET changes every
    // binding's value, or creates it.
    [[nodiscard]] AgentResponse answer(const AgentRequest& request);
    [[nodiscard]] std::map<Oid, Value>& values() { return values_; }

private:
    [[nodiscard]] VarBind following(const Oid& oid) const;
    AgentResponse get(const AgentRequest& request) const;
    AgentResponse getNext(const AgentRequest& request) const;
    AgentResponse getBulk(const AgentRequest& request) const;

    std::map<Oid, Value> values_;
};

// A script that answers from the data, which must outlive the agent.
[[nodiscard]] Script honest(Mib& mib);

[[nodiscard]] Oid oidOf(const std::string& text);

} // namespace onudesk::host::test
