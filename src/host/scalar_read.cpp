// SPDX-License-Identifier: MIT
#include "host/scalar_read.h"

#include "host/error_names.h"
#include "onudesk/messages.h"

#include <numeric>
#include <utility>

namespace onudesk::host {

ScalarRead::ScalarRead(SnmpClient& client, const AgentAccess& access,
                       std::vector<PlannedObject> objects, Handler handler)
    : client_(client), access_(access), objects_(std::move(objects)), handler_(std::move(handler)) {
    result_.values.assign(objects_.size(), Value{.tag = Tag::noSuchInstance});
    Slice all(objects_.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    pending_.push_back(std::move(all));
}

void ScalarRead::next() {
    if (pending_.empty()) {
        finish(std::move(result_));
        return;
    }
    const Slice slice = std::move(pending_.front());
    pending_.pop_front();
    Pdu pdu{.kind = PduKind::get, .bindings = {}};
    for (const std::size_t position : slice) {
        pdu.bindings.push_back({objects_[position].oid, {}});
    }
    client_.ask(access_, Community::read, std::move(pdu), access_.retries,
                [this, slice](const Response& response) { onResponse(slice, response); });
}

void ScalarRead::onResponse(const Slice& slice, const Response& response) {
    using namespace error_status;
    if (response.status == noError) {
        take(slice, response);
    } else if (response.status == tooBig && slice.size() > 1) {
        split(slice);
        next();
    } else if (response.status == noSuchName) {
        onMissing(slice, response.index);
    } else if (response.status < 0) {
        fail(response.status, 0, response.text);
    } else {
        const auto index = static_cast<std::size_t>(response.index);
        fail(response.status, index >= 1 && index <= slice.size() ? slice[index - 1] + 1 : 0, {});
    }
}

void ScalarRead::take(const Slice& slice, const Response& response) {
    if (response.bindings.size() != slice.size()) {
        fail(error_status::badReply, 0,
             std::to_string(slice.size()) + " objects were asked for and " +
                 std::to_string(response.bindings.size()) + " came back");
        return;
    }
    for (std::size_t at = 0; at < slice.size(); ++at) {
        if (response.bindings[at].oid != objects_[slice[at]].oid) {
            fail(error_status::badReply, slice[at] + 1,
                 "the agent answered with " + response.bindings[at].oid.text());
            return;
        }
        result_.values[slice[at]] = response.bindings[at].value;
    }
    next();
}

// An SNMPv1 agent refuses the whole message and names one object that it does not have.
void ScalarRead::onMissing(Slice slice, std::int32_t index) {
    if (slice.size() > 1 && index >= 1 && static_cast<std::size_t>(index) <= slice.size()) {
        slice.erase(slice.begin() + (index - 1));
        pending_.push_front(std::move(slice));
    } else if (slice.size() > 1) {
        split(slice);
    }
    next();
}

void ScalarRead::split(const Slice& slice) {
    const auto middle = slice.begin() + static_cast<std::ptrdiff_t>(slice.size() / 2);
    pending_.emplace_front(middle, slice.end());
    pending_.emplace_front(slice.begin(), middle);
}

// `object` counts from 1; 0 when the error concerns none in particular.
void ScalarRead::fail(std::int32_t status, std::size_t object, const std::string& text) {
    std::string message = errorName(status);
    if (object > 0) {
        message += ": " + objects_[object - 1].name + " (object " + std::to_string(object) + ")";
    }
    message += text.empty() ? "" : ": " + text;
    finish({.values = {},
            .error = {.status = status,
                      .index = static_cast<std::int32_t>(object),
                      .text = std::move(message)}});
}

// The handler may replace this object.
void ScalarRead::finish(ScalarResult result) {
    const Handler handler = std::move(handler_);
    handler(std::move(result));
}

} // namespace onudesk::host
