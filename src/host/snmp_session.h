// SPDX-License-Identifier: MIT
//
// One Net-SNMP session: one agent, one way to ask it. Worker thread only.
#pragma once

#include "base/result.h"
#include "host/access.h"
#include "host/usm_user.h"
#include "snmp/value.h"

#include <chrono>
#include <compare>
#include <cstdint>
#include <memory>
#include <string>

namespace onudesk::host {

enum class PduKind : std::uint8_t { get, getNext, getBulk, set };

struct Pdu {
    PduKind kind = PduKind::get;
    VarBinds bindings{};    // values only for set
    int maxRepetitions = 0; // getBulk; all bindings repeat
};

// What an agent sent back to one message.
struct AgentAnswer {
    bool isReport = false; // SNMPv3: the security model's complaint, not an answer
    std::int32_t errorStatus = 0;
    std::int32_t errorIndex = 0;
    VarBinds bindings{};
    std::string engineId{}; // SNMPv3: the sender's
};

// Takes the answers; `message` is the number that was given to SnmpSession::send. Called from
// within SnmpSession::receive(), possibly more than once per message.
class AnswerSink {
public:
    AnswerSink() = default;
    AnswerSink(const AnswerSink&) = delete;
    AnswerSink& operator=(const AnswerSink&) = delete;
    virtual ~AnswerSink() = default;
    virtual void onAnswer(std::uint64_t message, AgentAnswer answer) = 0;
};

// What tells sessions apart.
struct SessionSettings {
    std::uint32_t address = 0; // IPv4, host byte order
    std::uint16_t port = 0;
    SnmpVersion version = SnmpVersion::v2c;
    std::string community{}; // v1 and v2c
    V3Access v3{};           // v3

    auto operator<=>(const SessionSettings&) const = default; // NOLINT(modernize-use-nullptr)
};

// How an SNMPv3 message is protected. `probe` asks for the engine id with a message without content
// and without user (RFC 3414, 4); `authOnly` leaves out the encryption.
enum class Protection : std::uint8_t { full, authOnly, probe };

class SnmpSession {
public:
    // The sink must outlive the session. Fails with the library's reason.
    [[nodiscard]] static Result<std::unique_ptr<SnmpSession>> open(const SessionSettings& settings,
                                                                   AnswerSink& sink);
    ~SnmpSession();
    SnmpSession(const SnmpSession&) = delete;
    SnmpSession& operator=(const SnmpSession&) = delete;

    [[nodiscard]] const SessionSettings& settings() const { return settings_; }
    [[nodiscard]] int socket() const;
    // SNMPv3 without a known engine: only probes can be sent.
    [[nodiscard]] bool needsProbe() const;
    void setEngine(const std::string& engineId);
    // Asks for the engine and its clock anew, unless the settings name the engine.
    void forgetEngine();

    // Sends one message and listens for answers to it for `lifetime`. Fails with the library's
    // reason.
    [[nodiscard]] Result<void> send(const Pdu& pdu, Protection protection, std::uint64_t message,
                                    std::chrono::milliseconds lifetime);
    // Takes what the socket holds.
    void receive();
    // Drops messages whose lifetime is over.
    void expire();
    // The agent's host said that nobody listens on the port. True until something is received.
    [[nodiscard]] bool refused() const { return refused_; }

private:
    explicit SnmpSession(const SessionSettings& settings);
    void activateUser();
    void noteSocketError();
    // The library only listens to engines for which it has the user. A waiting message of another
    // engine (the agent was exchanged, or the settings name the wrong one) makes it one.
    [[nodiscard]] std::unique_ptr<UsmUser> userForUnknownEngine() const;

    SessionSettings settings_;
    MasterKeys keys_;
    std::string engineId_;
    std::unique_ptr<UsmUser> user_;
    std::string userEngineId_;
    struct Close {
        void operator()(void* handle) const noexcept;
    };
    std::unique_ptr<void, Close> handle_; // from snmp_sess_open
    bool refused_ = false;
};

} // namespace onudesk::host
