// SPDX-License-Identifier: MIT
#include "host/snmp_client.h"

#include "host/error_names.h"
#include "onudesk/messages.h"

#include <algorithm>
#include <set>
#include <utility>

namespace onudesk::host {

namespace {

// Message numbers hold the exchange and, in the low byte, the attempt.
constexpr std::uint64_t kAttemptsPerExchange = 256;
constexpr std::size_t kMaxSessions = 16;

std::string reportedObject(const AgentAnswer& answer) {
    if (answer.bindings.empty() || answer.bindings.front().oid.size() == 0) {
        return "nothing";
    }
    const Oid& instance = answer.bindings.front().oid;
    return instance.head(instance.size() - 1).text();
}

SessionSettings settingsOf(const AgentAccess& access, Community community) {
    SessionSettings settings{.address = access.address,
                             .port = access.port,
                             .version = access.version,
                             .community = {},
                             .v3 = {}};
    if (access.version == SnmpVersion::v3) {
        settings.v3 = access.v3;
    } else {
        settings.community =
            community == Community::read ? access.readCommunity : access.writeCommunity;
    }
    return settings;
}

// The smallest question an agent can be asked.
Pdu emptyGet() {
    return {.kind = PduKind::get, .bindings = {}, .maxRepetitions = 0};
}

} // namespace

void SnmpClient::ask(const AgentAccess& access, Community community, Pdu pdu, std::int32_t retries,
                     ResponseHandler handler) {
    const Result<SnmpSession*> found = session(settingsOf(access, community));
    if (!found) {
        finished_.push_back(
            {std::move(handler), {.status = error_status::noSession, .text = found.error()}});
        return;
    }
    const auto at = exchanges_.emplace(++lastExchange_, Exchange{}).first;
    Exchange& exchange = at->second;
    exchange.session = *found;
    exchange.agent = agentName(access);
    exchange.pdu = std::move(pdu);
    exchange.attemptsLeft = retries + 1;
    exchange.timeout = access.timeout * timeoutUnit_;
    exchange.handler = std::move(handler);
    beginAttempt(at);
}

Result<SnmpSession*> SnmpClient::session(const SessionSettings& settings) {
    const auto known = sessions_.find(settings);
    if (known != sessions_.end()) {
        return known->second.get();
    }
    closeIdleSessions();
    Result<std::unique_ptr<SnmpSession>> opened = SnmpSession::open(settings, *this);
    if (!opened) {
        return Error{opened.error()};
    }
    return sessions_.emplace(settings, std::move(opened).value()).first->second.get();
}

// Settings that are tried and changed would otherwise leave their sessions behind for good.
void SnmpClient::closeIdleSessions() {
    if (sessions_.size() < kMaxSessions) {
        return;
    }
    std::set<const SnmpSession*> busy;
    for (const auto& [number, exchange] : exchanges_) {
        busy.insert(exchange.session);
    }
    std::erase_if(sessions_, [&](const auto& entry) { return !busy.contains(entry.second.get()); });
}

void SnmpClient::beginAttempt(Exchanges::iterator at) {
    --at->second.attemptsLeft;
    sendMessage(at);
}

void SnmpClient::sendMessage(Exchanges::iterator at) {
    sendMessage(at, at->second.session->needsProbe() ? Protection::probe : Protection::full);
}

void SnmpClient::sendMessage(Exchanges::iterator at, Protection protection) {
    Exchange& exchange = at->second;
    const std::uint64_t message = at->first * kAttemptsPerExchange + exchange.attempts.size();
    exchange.attempts.push_back(protection);
    exchange.due = Clock::now() + exchange.timeout;
    const Result<void> sent =
        exchange.session->send(protection == Protection::authOnly ? emptyGet() : exchange.pdu,
                               protection, message, exchange.timeout * (exchange.attemptsLeft + 1));
    if (!sent) {
        finish(at, {.status = error_status::sendFailed, .text = sent.error()});
    }
}

void SnmpClient::onAnswer(std::uint64_t message, AgentAnswer answer) {
    const auto at = exchanges_.find(message / kAttemptsPerExchange);
    const std::size_t number = message % kAttemptsPerExchange;
    if (at == exchanges_.end() || number >= at->second.attempts.size()) {
        return;
    }
    const Protection protection = at->second.attempts[number];
    if (answer.isReport) {
        onReport(at, protection, answer);
    } else if (protection == Protection::authOnly) {
        at->second.session->forgetEngine(); // so that the next request finds this out, too
        finish(at, {.status = error_status::decryption,
                    .text = at->second.agent + " answers, but no encrypted request: wrong "
                                               "privacy protocol or pass phrase"});
    } else if (protection == Protection::full) {
        finish(at, {.status = answer.errorStatus,
                    .index = answer.errorIndex,
                    .text = {},
                    .bindings = std::move(answer.bindings)});
    }
}

void SnmpClient::onReport(Exchanges::iterator at, Protection protection,
                          const AgentAnswer& answer) {
    Exchange& exchange = at->second;
    if (protection == Protection::probe) {
        if (exchange.session->needsProbe() && !answer.engineId.empty()) {
            onEngine(*exchange.session, answer.engineId);
        }
        return;
    }
    const ReportError error = reportError(reportedObject(answer));
    if (error.status == error_status::notInTime) {
        exchange.session->forgetEngine(); // for the next request
    } else if (error.status == error_status::unknownEngine && !exchange.rediscovered) {
        exchange.rediscovered = true;
        exchange.session->forgetEngine();
        if (exchange.session->needsProbe()) {
            sendMessage(at);
            return;
        }
    }
    finish(at, {.status = error.status, .text = error.text + " (" + exchange.agent + ")"});
}

// Whoever was waiting for the engine goes on at once.
void SnmpClient::onEngine(SnmpSession& session, const std::string& engineId) {
    session.setEngine(engineId);
    for (auto at = exchanges_.begin(); at != exchanges_.end();) {
        const auto current = at++;
        Exchange& exchange = current->second;
        if (exchange.session == &session && exchange.attempts.back() == Protection::probe) {
            exchange.engineAnswered = true;
            sendMessage(current);
        }
    }
}

void SnmpClient::attemptTimedOut(Exchanges::iterator at) {
    Exchange& exchange = at->second;
    const bool encrypted = exchange.session->settings().v3.level == SecurityLevel::authPriv;
    if (exchange.attemptsLeft == 0 && encrypted && exchange.engineAnswered &&
        !exchange.session->needsProbe() && !exchange.checkingKeys) {
        // Agents drop what they cannot decrypt without a word. An answer to a message that is only
        // authenticated tells that silence apart from a lost network.
        exchange.checkingKeys = true;
        sendMessage(at, Protection::authOnly);
        return;
    }
    // A restarted agent may have a clock that this side refuses; only a fresh start helps then.
    exchange.session->forgetEngine();
    if (exchange.attemptsLeft > 0) {
        beginAttempt(at);
        return;
    }
    finish(at, {.status = error_status::timeout,
                .text = "no answer from " + exchange.agent +
                        (exchange.session->refused() ? " (port closed)" : "")});
}

void SnmpClient::finish(Exchanges::iterator at, Response response) {
    finished_.push_back({std::move(at->second.handler), std::move(response)});
    exchanges_.erase(at);
}

void SnmpClient::addDescriptors(std::vector<pollfd>& descriptors) const {
    for (const auto& [settings, session] : sessions_) {
        descriptors.push_back({.fd = session->socket(), .events = POLLIN, .revents = 0});
    }
}

std::optional<SnmpClient::Clock::time_point> SnmpClient::nextDeadline() const {
    if (!finished_.empty()) {
        return Clock::time_point::min();
    }
    std::optional<Clock::time_point> earliest;
    for (const auto& [number, exchange] : exchanges_) {
        earliest = std::min(earliest.value_or(exchange.due), exchange.due);
    }
    return earliest;
}

void SnmpClient::process(const std::vector<pollfd>& descriptors) {
    std::set<int> readable;
    for (const pollfd& descriptor : descriptors) {
        if (descriptor.revents != 0) {
            readable.insert(descriptor.fd);
        }
    }
    for (const auto& [settings, session] : sessions_) {
        if (readable.contains(session->socket())) {
            session->receive();
        }
        session->expire();
    }
    expireDue(Clock::now());
    deliver();
}

void SnmpClient::expireDue(Clock::time_point now) {
    for (auto at = exchanges_.begin(); at != exchanges_.end();) {
        const auto current = at++;
        if (current->second.due <= now) {
            attemptTimedOut(current);
        }
    }
}

void SnmpClient::deliver() {
    while (!finished_.empty()) {
        const Finished next = std::move(finished_.front());
        finished_.pop_front();
        next.handler(next.response);
    }
}

} // namespace onudesk::host
