// SPDX-License-Identifier: MIT
#include "host/read_plan.h"

#include <utility>

namespace onudesk::host {

namespace {

Result<PlannedGroup> planGroup(const GroupSchema& group, const Oid& instance) {
    PlannedGroup planned{.name = group.name, .mode = group.read, .objects = {}};
    for (const ObjectSchema& schema : group.objects) {
        const auto oid = parseOid(schema.object.oidstr);
        if (!oid || oid->size() < 2 || oid->size() + instance.size() > kMaxOidArcs) {
            return Error{"group " + group.name + ": object " + schema.object.name +
                         " has no usable OID: \"" + schema.object.oidstr + "\""};
        }
        planned.objects.push_back({schema.object.name, joined(*oid, instance), schema.hex});
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
        if (group.read == ReadMode::none || group.objects.empty()) {
            continue;
        }
        Result<PlannedGroup> planned = planGroup(group, instance);
        if (!planned) {
            return Error{item + ", " + planned.error()};
        }
        plan.push_back(std::move(planned).value());
    }
    if (plan.empty()) {
        return Error{item + " has no group to read"};
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
