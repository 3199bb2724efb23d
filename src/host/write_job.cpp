// SPDX-License-Identifier: MIT
#include "host/write_job.h"

#include "host/error_names.h"
#include "host/read_plan.h"
#include "onudesk/messages.h"

#include <algorithm>
#include <utility>

namespace onudesk::host {

namespace {

constexpr std::uint32_t kCompleted = 1;

bool isDestroy(const ObjectSchema* schema, const Value& written) {
    return schema != nullptr && schema->isRowStatus() && rowStatusOf(written) == RowStatus::destroy;
}

// Whether `held` is what an agent shows after `written` was carried out.
bool results(const ObjectSchema* schema, const Value& written, const Value& held) {
    return schema != nullptr && schema->isRowStatus() ? isOutcome(held, written) : written == held;
}

std::uint32_t typeOf(const Binding& binding, const ObjectSchema* schema) {
    if (binding.type != 0) {
        return binding.type;
    }
    return schema != nullptr && schema->object.type != 0
               ? static_cast<std::uint32_t>(schema->object.type)
               : static_cast<std::uint32_t>(Tag::octetString);
}

} // namespace

WriteJob::WriteJob(const JobTools& tools, HostRequest request, ReplySink sink)
    : Job(tools, std::move(request), std::move(sink)),
      sendsLeft_(this->request().access.retries + 1) {}

void WriteJob::start() {
    if (encode()) {
        sendSet();
    }
}

bool WriteJob::encode() {
    for (const Binding& binding : request().bindings) {
        const std::size_t number = writes_.size() + 1;
        const auto oid = Oid::parse(binding.oid);
        if (!oid || oid->size() < 2) {
            fail(error_status::badRequest, number, "\"" + binding.oid + "\" is no OID");
            return false;
        }
        const ObjectSchema* schema =
            findObject(tools().catalogue, request().itemType, binding.name);
        const Result<Value> value = parseValue(typeOf(binding, schema), binding.value);
        if (!value) {
            fail(error_status::badRequest, number, value.error());
            return false;
        }
        if (schema == nullptr || schema->access != ObjectAccess::writeOnly) {
            readable_.push_back(writes_.size());
        }
        writes_.push_back({{*oid, *value}, schema});
    }
    return true;
}

void WriteJob::sendSet() {
    --sendsLeft_;
    Pdu pdu{.kind = PduKind::set, .bindings = {}};
    for (const Write& write : writes_) {
        pdu.bindings.push_back(write.binding);
    }
    tools().client.ask(request().access, Community::write, std::move(pdu), 0,
                       [this](const Response& response) { onResponse(response); });
}

void WriteJob::onResponse(const Response& response) {
    if (response.status == error_status::noError) {
        succeed();
    } else if (response.status == error_status::timeout) {
        timeoutText_ = response.text;
        readBack();
    } else {
        const auto index = static_cast<std::size_t>(std::max(response.index, 0));
        fail(response.status, index <= writes_.size() ? index : 0, response.text);
    }
}

void WriteJob::readBack() {
    if (readable_.empty()) {
        fail(error_status::timeout, 0, timeoutText_ + "; whether it was carried out is unknown");
        return;
    }
    std::vector<PlannedObject> objects;
    for (const std::size_t position : readable_) {
        objects.push_back(
            {request().bindings[position].name, writes_[position].binding.oid, false});
    }
    check_.emplace(tools().client, request().access, std::move(objects),
                   [this](const ScalarResult& result) { onReadBack(result); });
    check_->start();
}

void WriteJob::onReadBack(const ScalarResult& result) {
    if (!result.error.text.empty()) {
        const bool unreachable = result.error.status == error_status::timeout;
        fail(error_status::timeout, 0,
             timeoutText_ + (unreachable ? "" : "; reading back: " + result.error.text));
    } else if (holds(result.values)) {
        succeed();
    } else if (sendsLeft_ > 0) {
        sendSet();
    } else {
        fail(error_status::timeout, 0, timeoutText_ + "; the values were not taken over");
    }
}

bool WriteJob::holds(const std::vector<Value>& values) const {
    const auto writeAt = [&](std::size_t at) -> const Write& { return writes_[readable_[at]]; };
    bool rowIsGone = false;
    for (std::size_t at = 0; at < values.size(); ++at) {
        rowIsGone = rowIsGone || (isDestroy(writeAt(at).schema, writeAt(at).binding.value) &&
                                  isMissing(values[at]));
    }
    for (std::size_t at = 0; at < values.size(); ++at) {
        const Write& write = writeAt(at);
        if (!(rowIsGone && isMissing(values[at])) &&
            !results(write.schema, write.binding.value, values[at])) {
            return false;
        }
    }
    return true;
}

void WriteJob::succeed() {
    ReplyRecord reply = emptyReply();
    reply.status = kCompleted;
    send(reply);
    setDone();
}

void WriteJob::fail(std::int32_t status, std::size_t binding, const std::string& text) {
    std::string message = errorName(status);
    if (binding > 0) {
        message += ": " + request().bindings[binding - 1].name + " (binding " +
                   std::to_string(binding) + ")";
    }
    message += text.empty() ? "" : ": " + text;
    ReplyRecord reply = emptyReply();
    reply.error = {
        .status = status, .index = static_cast<std::int32_t>(binding), .text = std::move(message)};
    send(reply);
    setDone();
}

} // namespace onudesk::host
