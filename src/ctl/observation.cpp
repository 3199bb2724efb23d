// SPDX-License-Identifier: MIT
#include "ctl/observation.h"

#include "host/trace.h"

#include <ostream>
#include <utility>

namespace onudesk::ctl {

Observation::Observation(std::ostream* trace, host::SecretMask mask)
    : trace_(trace), mask_(std::move(mask)) {}

host::EngineObserver Observation::observer() {
    return {[this](const host::RequestRecord& request) { onRequest(request); },
            [this](const host::ReplyRecord& reply) { onReply(reply); }};
}

void Observation::onRequest(const host::RequestRecord& request) {
    const bool isWrite = request.kind == host::RequestKind::write;
    if (trace_ == nullptr && !isWrite) {
        return;
    }
    const QJsonObject shown = mask_.apply(host::traceObject(request));
    const std::scoped_lock lock(mutex_);
    trace(shown);
    if (isWrite) {
        writes_.push_back(shown);
    }
}

void Observation::onReply(const host::ReplyRecord& reply) {
    const std::scoped_lock lock(mutex_);
    trace(mask_.apply(host::traceObject(reply)));
    if (!reply.error.text.empty()) {
        errors_.push_back({reply.kind, reply.error});
    }
}

void Observation::trace(const QJsonObject& shown) {
    if (trace_ != nullptr) {
        *trace_ << host::traceLine(shown).toStdString() << '\n' << std::flush;
    }
}

std::vector<ObservedError> Observation::errors() const {
    const std::scoped_lock lock(mutex_);
    return errors_;
}

std::vector<QJsonObject> Observation::writes() const {
    const std::scoped_lock lock(mutex_);
    return writes_;
}

std::size_t Observation::writeCount() const {
    const std::scoped_lock lock(mutex_);
    return writes_.size();
}

void Observation::print(std::ostream& out, const std::string& text) const {
    const std::scoped_lock lock(mutex_);
    out << text << std::flush;
}

std::string Observation::masked(const std::string& text) const {
    return mask_.applyToText(QString::fromStdString(text)).toStdString();
}

} // namespace onudesk::ctl
