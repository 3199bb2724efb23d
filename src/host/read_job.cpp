// SPDX-License-Identifier: MIT
#include "host/read_job.h"

#include "host/error_names.h"
#include "onudesk/messages.h"

#include <algorithm>
#include <utility>

namespace onudesk::host {

namespace {

constexpr std::uint32_t kLastReply = 1;
// What a byte string of a reply can hold; a longer one would arrive as another value.
constexpr std::size_t kMaxTextBytes = 65535;

void addValue(ReplyRecord& reply, const PlannedObject& object, const Oid& oid, const Value& value) {
    std::string text = valueText(value, object.hex);
    if (text.size() > kMaxTextBytes) {
        text.clear();
    }
    reply.oids.push_back(oid.text());
    reply.values.push_back(std::move(text));
    reply.lengths.push_back(static_cast<std::uint32_t>(encodedLength(value)));
}

// The agent answered, but not usefully: the next group may fare better.
bool concernsGroupOnly(std::int32_t status) {
    return status > 0 || status == error_status::walkRefused || status == error_status::badReply;
}

} // namespace

ReadJob::ReadJob(const JobTools& tools, HostRequest request, ReplySink sink)
    : Job(tools, std::move(request), std::move(sink)) {}

void ReadJob::start() {
    Result<ReadPlan> plan = makeReadPlan(tools().catalogue, request().itemType, request().instance);
    if (!plan) {
        holdError({.status = error_status::noPlan,
                   .text = errorName(error_status::noPlan) + ": " + plan.error()});
        finish();
        return;
    }
    plan_ = std::move(plan).value();
    if (plan_.empty()) {
        finish();
    } else {
        readGroup();
    }
}

void ReadJob::readGroup() {
    const AgentAccess& access = request().access;
    if (group().mode == ReadMode::scalar) {
        scalars_.emplace(tools().client, access, group().objects,
                         [this](const ScalarResult& result) { onScalars(result); });
        scalars_->start();
    } else {
        walk_.emplace(tools().client, access, group().objects, tools().walkLimits,
                      [this](const WalkResult& result) { onRows(result); });
        walk_->start();
    }
}

void ReadJob::nextGroup() {
    if (held_ && !held_->error.text.empty() && !concernsGroupOnly(held_->error.status)) {
        finish();
        return;
    }
    if (++position_ == plan_.size()) {
        --position_;
        finish();
        return;
    }
    readGroup();
}

void ReadJob::onScalars(const ScalarResult& result) {
    const auto& objects = group().objects;
    if (!result.error.text.empty()) {
        holdError(result.error);
    } else if (std::ranges::all_of(result.values, isMissing)) {
        holdError({.status = error_status::noSuchName,
                   .index = 1,
                   .text = errorName(error_status::noSuchName) + ": " + objects.front().name +
                           " (object 1)"});
    } else {
        ReplyRecord reply = emptyReply();
        for (std::size_t at = 0; at < objects.size(); ++at) {
            addValue(reply, objects[at], objects[at].oid, result.values[at]);
        }
        hold(std::move(reply));
    }
    nextGroup();
}

void ReadJob::onRows(const WalkResult& result) {
    const auto& columns = group().objects;
    for (const auto& [index, cells] : result.rows) {
        ReplyRecord reply = emptyReply();
        for (std::size_t at = 0; at < columns.size(); ++at) {
            addValue(reply, columns[at], columns[at].oid.joined(index),
                     cells[at].value_or(Value{.tag = Tag::noSuchInstance}));
        }
        hold(std::move(reply));
    }
    if (!result.error.text.empty()) {
        holdError(result.error);
    }
    nextGroup();
}

void ReadJob::hold(ReplyRecord reply) {
    if (held_) {
        send(*held_);
    }
    if (!plan_.empty()) {
        reply.resultText = group().name;
    }
    held_ = std::move(reply);
}

void ReadJob::holdError(const ReplyError& error) {
    ReplyRecord reply = emptyReply();
    reply.error = error;
    hold(std::move(reply));
}

void ReadJob::finish() {
    if (!held_) {
        hold(emptyReply());
    }
    if (held_->error.text.empty()) {
        held_->status = kLastReply;
    }
    send(*held_);
    setDone();
}

} // namespace onudesk::host
