// SPDX-License-Identifier: MIT
#include "host/table_walk.h"

#include "host/error_names.h"
#include "onudesk/messages.h"

#include <algorithm>
#include <utility>

namespace onudesk::host {

namespace {

// Larger answers are cut or fragmented by many agents, and some skip rows in them.
constexpr std::size_t kCellsPerMessage = 60;
constexpr std::size_t kMaxRepetitions = 20;

int repetitionsFor(SnmpVersion version, std::size_t columns) {
    if (version == SnmpVersion::v1) {
        return 1;
    }
    return static_cast<int>(std::clamp(kCellsPerMessage / std::max(columns, std::size_t{1}),
                                       std::size_t{1}, kMaxRepetitions));
}

} // namespace

TableWalk::TableWalk(SnmpClient& client, const AgentAccess& access,
                     std::vector<PlannedObject> columns, const WalkLimits& limits, Handler handler)
    : client_(client), access_(access), limits_(limits), handler_(std::move(handler)),
      deadline_(SnmpClient::Clock::now() + limits.duration), columnsPerMessage_(columns.size()),
      repetitions_(repetitionsFor(access.version, columns.size())) {
    for (PlannedObject& column : columns) {
        Oid start = column.oid;
        columns_.push_back({std::move(column), std::move(start), false});
    }
}

void TableWalk::next() {
    Asked asked;
    Pdu pdu{.kind = access_.version == SnmpVersion::v1 ? PduKind::getNext : PduKind::getBulk,
            .bindings = {},
            .maxRepetitions = repetitions_};
    for (std::size_t at = 0; at < columns_.size() && asked.size() < columnsPerMessage_; ++at) {
        if (!columns_[at].ended) {
            asked.push_back(at);
            pdu.bindings.push_back({columns_[at].cursor, {}});
        }
    }
    if (asked.empty()) {
        finish();
        return;
    }
    if (SnmpClient::Clock::now() >= deadline_) {
        fail(error_status::walkRefused, "it did not end in time");
        return;
    }
    client_.ask(access_, Community::read, std::move(pdu), access_.retries,
                [this, asked](const Response& response) { onResponse(asked, response); });
}

void TableWalk::onResponse(const Asked& asked, const Response& response) {
    using namespace error_status;
    const auto index = static_cast<std::size_t>(std::max(response.index, 0));
    if (response.status == noError) {
        take(asked, response);
    } else if (response.status == tooBig && (repetitions_ > 1 || columnsPerMessage_ > 1)) {
        onTooBig();
    } else if (response.status == noSuchName) {
        onNoSuchName(asked, response.index);
    } else if (response.status < 0 || index == 0 || index > asked.size()) {
        fail(response.status, response.text);
    } else {
        fail(response.status, columns_[asked[index - 1]].object.name);
    }
}

void TableWalk::onTooBig() {
    if (repetitions_ > 1) {
        repetitions_ /= 2;
    } else {
        columnsPerMessage_ = std::max(std::size_t{1}, columnsPerMessage_ / 2);
    }
    next();
}

// The way in which an SNMPv1 agent says that nothing follows.
void TableWalk::onNoSuchName(const Asked& asked, std::int32_t index) {
    const bool named = index >= 1 && static_cast<std::size_t>(index) <= asked.size();
    if (!named && asked.size() > 1) {
        fail(error_status::noSuchName, {});
        return;
    }
    columns_[asked[named ? static_cast<std::size_t>(index - 1) : 0]].ended = true;
    next();
}

void TableWalk::take(const Asked& asked, const Response& response) {
    const std::size_t most = asked.size() * static_cast<std::size_t>(repetitions_);
    const std::size_t least = access_.version == SnmpVersion::v1 ? asked.size() : 1;
    if (response.bindings.size() < least || response.bindings.size() > most) {
        fail(error_status::badReply, "the number of values does not fit the question");
        return;
    }
    for (std::size_t at = 0; at < response.bindings.size(); ++at) {
        if (!accept(asked[at % asked.size()], response.bindings[at])) {
            return;
        }
    }
    next();
}

bool TableWalk::accept(std::size_t position, const VarBind& binding) {
    Column& column = columns_[position];
    if (column.ended) {
        return true;
    }
    if (isMissing(binding.value)) {
        column.ended = true;
        return true;
    }
    if (binding.oid <= column.cursor) {
        fail(error_status::walkRefused,
             "after " + column.cursor.text() + " came " + binding.oid.text());
        return false;
    }
    if (!binding.oid.startsWith(column.object.oid)) {
        column.ended = true;
        return true;
    }
    column.cursor = binding.oid;
    auto& cells = result_.rows[binding.oid.tail(column.object.oid.size())];
    cells.resize(columns_.size());
    cells[position] = binding.value;
    if (result_.rows.size() > limits_.rows) {
        fail(error_status::walkRefused,
             "it has more than " + std::to_string(limits_.rows) + " rows");
        return false;
    }
    return true;
}

void TableWalk::fail(std::int32_t status, const std::string& text) {
    result_.error = {.status = status,
                     .index = 0,
                     .text = errorName(status) + (text.empty() ? "" : ": " + text)};
    finish();
}

// The handler may replace this object.
void TableWalk::finish() {
    const Handler handler = std::move(handler_);
    handler(std::move(result_));
}

} // namespace onudesk::host
