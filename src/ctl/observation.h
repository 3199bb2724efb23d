// SPDX-License-Identifier: MIT
#pragma once

#include "host/reply_record.h"
#include "host/secret_mask.h"
#include "host/snmp_engine.h"

#include <cstddef>
#include <iosfwd>
#include <mutex>
#include <string>
#include <vector>

#include <QJsonObject>

namespace onudesk::ctl {

// An error that a reply carried.
struct ObservedError {
    host::RequestKind kind = host::RequestKind::read;
    host::ReplyError error;
};

// Writes the trace, and keeps what was written to the agent and which errors came back. The
// observer's functions run on the engine's thread; everything else may be called on any.
class Observation {
public:
    // `trace` may be null; it outlives the object.
    Observation(std::ostream* trace, host::SecretMask mask);

    // Valid while the object lives.
    [[nodiscard]] host::EngineObserver observer();

    // In the order in which they came, with whatever the agent said.
    [[nodiscard]] std::vector<ObservedError> errors() const;
    // The write requests so far, as the trace shows them: masked.
    [[nodiscard]] std::vector<QJsonObject> writes() const;
    [[nodiscard]] std::size_t writeCount() const;
    // Prints the text as a whole: `out` may be where the trace goes.
    void print(std::ostream& out, const std::string& text) const;
    // The text without secrets.
    [[nodiscard]] std::string masked(const std::string& text) const;

private:
    void onRequest(const host::RequestRecord& request);
    void onReply(const host::ReplyRecord& reply);
    void trace(const QJsonObject& shown);

    mutable std::mutex mutex_;
    std::ostream* trace_;
    const host::SecretMask mask_;
    std::vector<ObservedError> errors_;
    std::vector<QJsonObject> writes_;
};

} // namespace onudesk::ctl
