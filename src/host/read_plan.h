// SPDX-License-Identifier: MIT
//
// What one read request of the window asks an agent for.
#pragma once

#include "base/result.h"
#include "snmp/object_schema.h"
#include "snmp/oid.h"

#include <cstdint>
#include <string>
#include <vector>

namespace onudesk::host {

struct PlannedObject {
    std::string name{};
    Oid oid{}; // scalar: the instance itself; table: what the column's rows below the ONU start
               // with
    bool hex = false;
};

struct PlannedGroup {
    std::string name{}; // the result text of its replies
    ReadMode mode = ReadMode::scalar;
    std::vector<PlannedObject> objects{}; // in the order of values
};

// In the order of replies. Groups that are not read are left out.
using ReadPlan = std::vector<PlannedGroup>;

// The plan for the instance of an item: OLT, PON and ONU number, or more for what is read per port.
// Fails when the catalogue has no group to read for the item and such an instance, or an OID of
// such a group is none.
[[nodiscard]] Result<ReadPlan> makeReadPlan(const CatalogueSchema& catalogue, std::int32_t itemType,
                                            const Oid& instance);

// The object of that name among all groups of the item, or null. Valid while the catalogue lives.
[[nodiscard]] const ObjectSchema* findObject(const CatalogueSchema& catalogue,
                                             std::int32_t itemType, const std::string& name);

} // namespace onudesk::host
