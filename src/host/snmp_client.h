// SPDX-License-Identifier: MIT
//
// Asks agents without waiting: sessions, retries, SNMPv3 discovery and time-outs. Worker thread
// only, one client per process at a time.
//
//     client.ask(access, Community::read, pdu, retryRule(access), [](Response response) { … });
//     while (…) {
//         client.addDescriptors(polled);
//         poll(…, until client.nextDeadline());
//         client.process(polled);          // calls the handlers
//     }
#pragma once

#include "host/access.h"
#include "host/snmp_session.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <poll.h>

namespace onudesk::host {

// `status` is the agent's error status (RFC 3416), or negative (onudesk::error_status) when there
// is no response; `text` then says what happened, without the name of the error.
struct Response {
    std::int32_t status = 0;
    std::int32_t index = 0;
    std::string text{};
    VarBinds bindings{};
};
using ResponseHandler = std::function<void(Response)>;

// Which of the two communities is used (v1 and v2c).
enum class Community : std::uint8_t { read, write };

class SnmpClient : private AnswerSink {
public:
    using Clock = std::chrono::steady_clock;

    // `timeoutUnit` is the unit of AgentAccess::timeout.
    explicit SnmpClient(std::chrono::milliseconds timeoutUnit) : timeoutUnit_(timeoutUnit) {}

    // Sends up to 1 + `retries` times. The handler is called exactly once, from process(), unless
    // the client is destroyed before.
    void ask(const AgentAccess& access, Community community, Pdu pdu, std::int32_t retries,
             ResponseHandler handler);

    // Appends one entry per open session.
    void addDescriptors(std::vector<pollfd>& descriptors) const;
    // When process() has something to do even if no socket is readable.
    [[nodiscard]] std::optional<Clock::time_point> nextDeadline() const;
    // Reads the sockets that are readable, repeats or ends what is due, and calls the handlers.
    void process(const std::vector<pollfd>& descriptors);

private:
    struct Exchange {
        SnmpSession* session = nullptr;
        std::string agent;
        Pdu pdu;
        std::int32_t attemptsLeft = 0;
        std::chrono::milliseconds timeout{};
        // How each message was protected; answers to any of them count.
        std::vector<Protection> attempts;
        Clock::time_point due;
        bool engineAnswered = false; // a probe was answered
        bool rediscovered = false;   // the engine was found to be another one
        bool checkingKeys = false;
        ResponseHandler handler;
    };
    using Exchanges = std::map<std::uint64_t, Exchange>;
    struct Finished {
        ResponseHandler handler;
        Response response;
    };

    void onAnswer(std::uint64_t message, AgentAnswer answer) override;
    void onReport(Exchanges::iterator at, Protection protection, const AgentAnswer& answer);
    void onEngine(SnmpSession& session, const std::string& engineId);
    void beginAttempt(Exchanges::iterator at);
    void sendMessage(Exchanges::iterator at);
    void sendMessage(Exchanges::iterator at, Protection protection);
    void attemptTimedOut(Exchanges::iterator at);
    void finish(Exchanges::iterator at, Response response);
    void expireDue(Clock::time_point now);
    void deliver();
    Result<SnmpSession*> session(const SessionSettings& settings);
    void closeIdleSessions();

    std::chrono::milliseconds timeoutUnit_;
    std::map<SessionSettings, std::unique_ptr<SnmpSession>> sessions_;
    Exchanges exchanges_;
    std::uint64_t lastExchange_ = 0;
    std::deque<Finished> finished_;
};

} // namespace onudesk::host
