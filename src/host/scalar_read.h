// SPDX-License-Identifier: MIT
#pragma once

#include "host/read_plan.h"
#include "host/reply_record.h"
#include "host/snmp_client.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <vector>

namespace onudesk::host {

// `values` has one entry per object, in their order; a missing one is an exception value
// (isMissing). Empty when there is an error, whose index counts the objects.
struct ScalarResult {
    std::vector<Value> values{};
    ReplyError error{};
};

// Gets single instances: in one message when the agent can, in smaller ones when the answer would
// be too big, and around the objects that an SNMPv1 agent does not have.
class ScalarRead {
public:
    using Handler = std::function<void(ScalarResult)>;

    // The client outlives this object, and this object the call of the handler.
    ScalarRead(SnmpClient& client, const AgentAccess& access, std::vector<PlannedObject> objects,
               Handler handler);
    void start() { next(); }

private:
    using Slice = std::vector<std::size_t>; // positions in objects_

    void next();
    void onResponse(const Slice& slice, const Response& response);
    void take(const Slice& slice, const Response& response);
    void onMissing(Slice slice, std::int32_t index);
    void split(const Slice& slice);
    void fail(std::int32_t status, std::size_t object, const std::string& text);
    void finish(ScalarResult result);

    SnmpClient& client_;
    AgentAccess access_;
    std::vector<PlannedObject> objects_;
    Handler handler_;
    std::deque<Slice> pending_;
    ScalarResult result_;
};

} // namespace onudesk::host
