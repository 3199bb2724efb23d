// SPDX-License-Identifier: MIT
#pragma once

#include "host/job.h"
#include "host/read_plan.h"
#include "host/scalar_read.h"
#include "host/table_walk.h"

#include <cstddef>
#include <optional>

namespace onudesk::host {

// Reads the groups of a plan one after the other: one reply per scalar group and per table row.
// What the agent says about one group leaves the others alone; when it cannot be asked at all, the
// read ends.
class ReadJob : public Job {
public:
    ReadJob(const JobTools& tools, HostRequest request, ReplySink sink);
    void start() override;

private:
    [[nodiscard]] const PlannedGroup& group() const { return plan_[position_]; }
    void readGroup();
    void nextGroup();
    void onScalars(const ScalarResult& result);
    void onRows(const WalkResult& result);
    // Replies are held back until the next one, for only the last carries status 1.
    void hold(ReplyRecord reply);
    void holdError(const ReplyError& error);
    void finish();

    ReadPlan plan_;
    std::size_t position_ = 0;
    std::optional<ScalarRead> scalars_;
    std::optional<TableWalk> walk_;
    std::optional<ReplyRecord> held_;
};

} // namespace onudesk::host
