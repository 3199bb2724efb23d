// SPDX-License-Identifier: MIT
#include "sim/object_table.h"

#include <tuple>
#include <utility>

namespace onudesk::sim {

namespace {

const ObjectSchema* findStatus(const GroupSchema& group, const std::string& name) {
    for (const ObjectSchema& object : group.objects) {
        if (object.object.name == name && object.isRowStatus()) {
            return &object;
        }
    }
    return nullptr;
}

// A row status usually stands in its columns' own group, else anywhere in the module.
const ObjectSchema* findStatus(const ModuleSchema& module, const GroupSchema& own,
                               const std::string& name) {
    const ObjectSchema* status = findStatus(own, name);
    for (auto group = module.begin(); status == nullptr && group != module.end(); ++group) {
        status = findStatus(*group, name);
    }
    return status;
}

auto limits(const std::optional<NumberRange>& range) {
    return range ? std::optional(std::pair(range->low, range->high)) : std::nullopt;
}

auto attributes(const ObjectRule& rule) {
    const ObjectSchema& schema = rule.schema;
    return std::tuple(schema.object.type, schema.access, limits(schema.range), limits(schema.size),
                      schema.unique, rule.rowStatus);
}

template <typename Wanted>
std::vector<const ObjectRule*> select(const std::map<Oid, ObjectRule>& objects, Wanted wanted) {
    std::vector<const ObjectRule*> rules;
    for (const auto& [column, rule] : objects) {
        if (wanted(rule)) {
            rules.push_back(&rule);
        }
    }
    return rules;
}

} // namespace

Result<ObjectTable> ObjectTable::build(const CatalogueSchema& catalogue) {
    ObjectTable table;
    for (const auto& [itemType, module] : catalogue) {
        for (const GroupSchema& group : module) {
            const std::string name = "module " + std::to_string(itemType) + ", group " + group.name;
            if (auto error = table.addGroup(module, group, name)) {
                return std::move(*error);
            }
        }
    }
    return table;
}

std::optional<Error> ObjectTable::addGroup(const ModuleSchema& module, const GroupSchema& group,
                                           const std::string& name) {
    onePerOnu_.push_back(group.read == ReadMode::scalar);
    for (const ObjectSchema& schema : group.objects) {
        if (schema.object.oidstr.empty()) {
            continue;
        }
        ObjectRule rule{
            name + ", object " + schema.object.name, {}, schema, {}, onePerOnu_.size() - 1};
        const auto column = Oid::parse(schema.object.oidstr);
        if (!column) {
            return Error{rule.name + ": bad OID \"" + schema.object.oidstr + "\""};
        }
        rule.column = *column;
        if (!schema.row.empty()) {
            const ObjectSchema* status = findStatus(module, group, schema.row);
            rule.rowStatus = status == nullptr ? std::nullopt : Oid::parse(status->object.oidstr);
            if (!rule.rowStatus) {
                return Error{rule.name + ": no row status " + schema.row};
            }
        }
        if (auto error = add(std::move(rule))) {
            return error;
        }
    }
    return std::nullopt;
}

std::optional<Error> ObjectTable::add(ObjectRule rule) {
    const auto known = objects_.find(rule.column);
    if (known == objects_.end()) {
        Oid column = rule.column;
        objects_.emplace(std::move(column), std::move(rule));
    } else if (attributes(known->second) != attributes(rule)) {
        return Error{rule.name + ": OID " + rule.column.text() + " is that of " +
                     known->second.name + ", but other attributes are not the same"};
    }
    return std::nullopt;
}

const ObjectRule* ObjectTable::find(const Oid& instance) const {
    for (std::size_t length = instance.size(); length-- > 1;) {
        const auto found = objects_.find(instance.head(length));
        if (found != objects_.end()) {
            return &found->second;
        }
    }
    return nullptr;
}

std::vector<const ObjectRule*> ObjectTable::rowObjects(const Oid& rowStatus) const {
    return select(objects_, [&](const ObjectRule& rule) { return rule.rowStatus == rowStatus; });
}

std::vector<const ObjectRule*> ObjectTable::rowlessObjects(std::size_t group) const {
    return select(objects_,
                  [&](const ObjectRule& rule) { return rule.group == group && !rule.rowStatus; });
}

} // namespace onudesk::sim
