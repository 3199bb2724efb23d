// SPDX-License-Identifier: MIT
#pragma once

#include "host/read_plan.h"
#include "host/reply_record.h"
#include "host/snmp_client.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace onudesk::host {

// Bounds of a walk: an agent may hold more than fits, or never come to an end.
struct WalkLimits {
    std::size_t rows = 10000;
    std::chrono::milliseconds duration{std::chrono::minutes(2)};
};

// Rows by what follows the columns' OIDs, in ascending order; one cell per column, in the columns'
// order, nothing where the agent has none. With an error there may be rows all the same: those that
// were read before.
struct WalkResult {
    using Cells = std::vector<std::optional<Value>>;
    std::map<Oid, Cells> rows{};
    ReplyError error{};
};

// Walks the columns of a table side by side, from each column's OID to its end: by GETBULK, or by
// GETNEXT with SNMPv1.
class TableWalk {
public:
    using Handler = std::function<void(WalkResult)>;

    // The client outlives this object, and this object the call of the handler.
    TableWalk(SnmpClient& client, const AgentAccess& access, std::vector<PlannedObject> columns,
              const WalkLimits& limits, Handler handler);
    void start() { next(); }

private:
    struct Column {
        PlannedObject object;
        Oid cursor; // the last OID seen
        bool ended = false;
    };
    using Asked = std::vector<std::size_t>; // positions in columns_

    void next();
    void onResponse(const Asked& asked, const Response& response);
    void onTooBig();
    void onNoSuchName(const Asked& asked, std::int32_t index);
    void take(const Asked& asked, const Response& response);
    // False when the walk must not go on; it has been ended with an error then.
    bool accept(std::size_t position, const VarBind& binding);
    void fail(std::int32_t status, const std::string& text);
    void finish();

    SnmpClient& client_;
    AgentAccess access_;
    std::vector<Column> columns_;
    WalkLimits limits_;
    Handler handler_;
    SnmpClient::Clock::time_point deadline_;
    std::size_t columnsPerMessage_;
    int repetitions_;
    WalkResult result_;
};

} // namespace onudesk::host
