// SPDX-License-Identifier: MIT
#include "host/read_plan.h"

#include <utility>

namespace onudesk::host {

namespace {

constexpr std::size_t kOnuNumbers = 3; // OLT, PON port and ONU

// Where the group is read in the place of a request's instance: at its own port when the request
// names an ONU only.
Oid instanceFor(const GroupSchema& group, const Oid& instance) {
    const bool completed = group.port && instance.size() == kOnuNumbers;
    return completed ? instance.joined({*group.port}) : instance;
}

bool isRead(const GroupSchema& group, const Oid& instance) {
    const ReadScope scope = instance.size() > kOnuNumbers ? ReadScope::port : ReadScope::onu;
    return group.read != ReadMode::none && !group.objects.empty() &&
           (group.per == ReadScope::always || group.per == scope);
}

// A request that names more than the ONU names a row of a table that has no instances per port.
ReadMode modeFor(const GroupSchema& group, const Oid& instance) {
    const bool oneRow = group.per == ReadScope::always && instance.size() > kOnuNumbers;
    return oneRow ? ReadMode::scalar : group.read;
}

Result<PlannedGroup> planGroup(const GroupSchema& group, const Oid& instance) {
    PlannedGroup planned{.name = group.name, .mode = modeFor(group, instance), .objects = {}};
    for (const ObjectSchema& schema : group.objects) {
        const auto oid = Oid::parse(schema.object.oidstr);
        if (!oid || oid->size() < 2 || oid->size() + instance.size() > Oid::kMaxArcs) {
            return Error{"group " + group.name + ": object " + schema.object.name +
                         " has no usable OID: \"" + schema.object.oidstr + "\""};
        }
        planned.objects.push_back({schema.object.name, oid->joined(instance), schema.hex});
    }
    return planned;
}

} // namespace

Result<ReadPlan> makeReadPlan(const CatalogueSchema& catalogue, std::int32_t itemType,
                              const Oid& instance) {
    const std::string item = "item " + std::to_string(itemType);
    const auto module = catalogue.find(itemType);
    if (module == catalogue.end()) {
        return Error{item + " is unknown"};
    }
    ReadPlan plan;
    for (const GroupSchema& group : module->second) {
        const Oid place = instanceFor(group, instance);
        if (!isRead(group, place)) {
            continue;
        }
        Result<PlannedGroup> planned = planGroup(group, place);
        if (!planned) {
            return Error{item + ", " + planned.error()};
        }
        plan.push_back(std::move(planned).value());
    }
    return plan;
}

const ObjectSchema* findObject(const CatalogueSchema& catalogue, std::int32_t itemType,
                               const std::string& name) {
    const auto module = catalogue.find(itemType);
    if (module == catalogue.end()) {
        return nullptr;
    }
    for (const GroupSchema& group : module->second) {
        for (const ObjectSchema& schema : group.objects) {
            if (schema.object.name == name) {
                return &schema;
            }
        }
    }
    return nullptr;
}

} // namespace onudesk::host
