// SPDX-License-Identifier: MIT
#include "snmp/rules/object_table.h"

#include <algorithm>
#include <cstdint>
#include <tuple>
#include <utility>

namespace onudesk {

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

std::optional<Oid> statusColumn(const ModuleSchema& module, const GroupSchema& own,
                                const std::string& name) {
    const ObjectSchema* status = findStatus(module, own, name);
    return status == nullptr ? std::nullopt : Oid::parseWhole(status->object.oidstr);
}

std::optional<Oid> memberColumn(const GroupSchema& group, const std::string& name) {
    const auto found = std::ranges::find_if(
        group.objects, [&](const ObjectSchema& object) { return object.object.name == name; });
    return name.empty() || found == group.objects.end() ? std::nullopt
                                                        : Oid::parseWhole(found->object.oidstr);
}

auto limits(const std::optional<NumberRange>& range) {
    return range ? std::optional(std::pair(range->low, range->high)) : std::nullopt;
}

auto attributes(const ObjectRule& rule) {
    const ObjectSchema& schema = rule.schema;
    return std::tuple(schema.object.type, schema.access, limits(schema.range), limits(schema.size),
                      limits(schema.numbers), schema.unique, schema.index, schema.spread,
                      rule.rowStatus, rule.stagedBy, limits(rule.entries), rule.member, rule.slots,
                      rule.model);
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

std::optional<Value> ObjectRule::defaultValue(const Oid& instance) const {
    const auto tag = static_cast<Tag>(schema.object.type);
    const NumberRange range = schema.range.value_or(NumberRange{0, 0});
    const std::int64_t number = schema.index        ? std::int64_t{instance.last()}
                                : range.contains(0) ? 0
                                                    : range.low;
    const auto length = static_cast<std::size_t>(schema.size ? schema.size->low : 0);
    switch (tag) {
    case Tag::integer:
        return integerValue(number);
    case Tag::counter32:
    case Tag::gauge32:
    case Tag::timeTicks:
    case Tag::counter64:
        return Value{tag, static_cast<std::uint64_t>(number)};
    case Tag::octetString:
    case Tag::opaque:
        return Value{tag, std::string(length, '\0')};
    case Tag::ipAddress:
        return Value{tag, std::string(4, '\0')};
    case Tag::objectId:
        return Value{tag, Oid{0, 0}};
    default:
        break;
    }
    return std::nullopt;
}

Result<ObjectTable> ObjectTable::build(const CatalogueSchema& catalogue, const IsModel& isModel) {
    ObjectTable table;
    for (const auto& [itemType, module] : catalogue) {
        for (const GroupSchema& group : module) {
            const std::string name = "module " + std::to_string(itemType) + ", group " + group.name;
            if (const auto added = table.addGroup(module, group, name, isModel); !added) {
                return Error{added.error()};
            }
            auto& columns = table.columns_[{itemType, group.name}];
            for (const ObjectSchema& schema : group.objects) {
                if (const auto column = Oid::parseWhole(schema.object.oidstr)) {
                    columns.emplace(schema.object.name, *column);
                }
            }
        }
    }
    return table;
}

Result<void> ObjectTable::addGroup(const ModuleSchema& module, const GroupSchema& group,
                                   const std::string& name, const IsModel& isModel) {
    onePerOnu_.push_back(group.read == ReadMode::scalar);
    if (!group.model.empty() && !isModel(group.model)) {
        return Error{name + ": no model " + group.model};
    }
    for (const ObjectSchema& schema : group.objects) {
        if (schema.object.oidstr.empty()) {
            continue;
        }
        ObjectRule rule{.name = name + ", object " + schema.object.name,
                        .column = {},
                        .schema = schema,
                        .rowStatus = {},
                        .group = onePerOnu_.size() - 1,
                        .stagedBy = {},
                        .entries = group.entries,
                        .member = memberColumn(group, schema.member),
                        .slots = group.slots,
                        .model = group.model};
        const auto column = Oid::parseWhole(schema.object.oidstr);
        if (!column) {
            return Error{rule.name + ": bad OID \"" + schema.object.oidstr + "\""};
        }
        rule.column = *column;
        for (const auto& [status, target] :
             {std::pair(schema.row, &rule.rowStatus), std::pair(group.staged, &rule.stagedBy)}) {
            if (!status.empty()) {
                *target = statusColumn(module, group, status);
                if (!*target) {
                    return Error{rule.name + ": no row status " + status};
                }
            }
        }
        if (!schema.member.empty() && !rule.member) {
            return Error{rule.name + ": no object " + schema.member};
        }
        if (Result<void> added = add(std::move(rule)); !added) {
            return added;
        }
    }
    return {};
}

Result<void> ObjectTable::add(ObjectRule rule) {
    const auto known = objects_.find(rule.column);
    if (known == objects_.end()) {
        Oid column = rule.column;
        objects_.emplace(std::move(column), std::move(rule));
    } else if (attributes(known->second) != attributes(rule)) {
        return Error{rule.name + ": OID " + rule.column.text() + " is that of " +
                     known->second.name + ", but other attributes are not the same"};
    }
    return {};
}

std::map<std::string, Oid, std::less<>> ObjectTable::columns(std::int32_t module,
                                                             std::string_view group) const {
    const auto found = columns_.find({module, std::string(group)});
    return found == columns_.end() ? std::map<std::string, Oid, std::less<>>() : found->second;
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

std::vector<const ObjectRule*> ObjectTable::stagedObjects(const Oid& rowStatus) const {
    return select(objects_, [&](const ObjectRule& rule) {
        return rule.stagedBy == rowStatus && !rule.isRowStatus();
    });
}

std::vector<const ObjectRule*> ObjectTable::sides() const {
    return select(objects_, [](const ObjectRule& rule) { return rule.member.has_value(); });
}

std::vector<const ObjectRule*> ObjectTable::rowlessObjects(std::size_t group) const {
    return select(objects_,
                  [&](const ObjectRule& rule) { return rule.group == group && !rule.rowStatus; });
}

} // namespace onudesk
