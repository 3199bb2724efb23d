// SPDX-License-Identifier: MIT
#include "desk/agent_lookup.h"

#include "base/endpoint.h"

#include <mutex>
#include <optional>
#include <thread>

#include <QMetaObject>
#include <QObject>

namespace onudesk::desk {

namespace {

Result<host::OnuTarget> find(const std::string& agent) {
    host::OnuTarget target;
    const Result<void> found = host::parseAgent(agent, target);
    if (!found) {
        return Error{found.error()};
    }
    return target;
}

} // namespace

// Outlives the lookup for as long as a name server keeps a thread waiting.
struct AgentLookup::Receiver {
    std::mutex mutex;
    std::optional<QObject> context{std::in_place};
};

AgentLookup::AgentLookup() : receiver_(std::make_shared<Receiver>()) {}

AgentLookup::~AgentLookup() {
    const std::scoped_lock lock(receiver_->mutex);
    receiver_->context.reset();
}

void AgentLookup::start(const std::string& agent, const Done& done) {
    if (isIpv4Address(agent.substr(0, agent.find(':')))) {
        done(find(agent));
        return;
    }
    // Detached: nothing can end a look-up under way, and closing the program must not wait for it.
    std::thread([receiver = receiver_, agent, done] {
        const Result<host::OnuTarget> target = find(agent);
        const std::scoped_lock lock(receiver->mutex);
        if (receiver->context) {
            QMetaObject::invokeMethod(
                &*receiver->context, [done, target] { done(target); }, Qt::QueuedConnection);
        }
    }).detach();
}

} // namespace onudesk::desk
