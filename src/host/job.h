// SPDX-License-Identifier: MIT
#pragma once

#include "host/host_request.h"
#include "host/reply_record.h"
#include "host/snmp_client.h"
#include "host/table_walk.h"
#include "snmp/object_schema.h"

#include <functional>
#include <utility>

namespace onudesk::host {

// What jobs work with; outlives them.
struct JobTools {
    SnmpClient& client;
    const CatalogueSchema& catalogue;
    WalkLimits walkLimits;
};

// One request on its way to being answered. Worker thread only.
class Job {
public:
    // Called for every reply, in order.
    using ReplySink = std::function<void(const HostRequest&, const ReplyRecord&)>;

    Job(const JobTools& tools, HostRequest request, ReplySink sink)
        : tools_(tools), request_(std::move(request)), sink_(std::move(sink)) {}
    virtual ~Job() = default;
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;

    virtual void start() = 0;
    // The last reply has been given to the sink.
    [[nodiscard]] bool done() const { return done_; }
    [[nodiscard]] const HostRequest& request() const { return request_; }

protected:
    [[nodiscard]] const JobTools& tools() const { return tools_; }
    // A reply to this request without any content.
    [[nodiscard]] ReplyRecord emptyReply() const {
        ReplyRecord reply;
        reply.kind = request_.kind;
        reply.itemType = request_.itemType;
        reply.agentAddress = request_.access.address;
        return reply;
    }
    void send(const ReplyRecord& reply) { sink_(request_, reply); }
    void setDone() { done_ = true; }

private:
    JobTools tools_;
    HostRequest request_;
    ReplySink sink_;
    bool done_ = false;
};

} // namespace onudesk::host
