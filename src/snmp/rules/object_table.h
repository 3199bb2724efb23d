// SPDX-License-Identifier: MIT
//
// The catalogue as an agent needs it: what an instance may hold and how its row works.
#pragma once

#include "base/result.h"
#include "snmp/object_schema.h"
#include "snmp/value.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace onudesk {

struct ObjectRule {
    std::string name; // "module 606, group maintable, object onuName"
    Oid column;       // without instance
    ObjectSchema schema;
    std::optional<Oid> rowStatus; // column of the row status that governs this object's rows
    std::size_t group = 0;        // the same for all objects of a group
    std::optional<Oid> stagedBy;  // column of the row status that writes to the object wait for
    std::optional<NumberRange> entries; // numbers of the entries, when those are its instances
    std::optional<Oid> member;          // column of the membership of which this object is the tag
    bool slots = false;                 // its instances are slots
    std::string model;                  // of its group; empty where rows behave as rows do

    [[nodiscard]] bool isRowStatus() const { return rowStatus == column; }
    // What a new instance holds where nothing was written; nothing for types without a natural
    // start.
    [[nodiscard]] std::optional<Value> defaultValue(const Oid& instance) const;
    [[nodiscard]] Oid instanceOf(const Oid& oid) const { return oid.tail(column.size()); }
};

class ObjectTable {
public:
    using IsModel = std::function<bool(std::string_view name)>;

    // Objects without an OID are left out. Fails, naming the object, on an OID that is none, on a
    // `model` that there is not, on a `row` or `staged` that no object of the module has for its
    // name, on a `member` that none of the group has, and when one OID stands twice with different
    // attributes.
    [[nodiscard]] static Result<ObjectTable> build(const CatalogueSchema& catalogue,
                                                   const IsModel& isModel);

    // The columns of the group's objects, by their names.
    [[nodiscard]] std::map<std::string, Oid, std::less<>> columns(std::int32_t module,
                                                                  std::string_view group) const;
    // The object an instance belongs to, or null. Pointers stay valid while the table lives.
    [[nodiscard]] const ObjectRule* find(const Oid& instance) const;
    // The objects whose rows the row status governs, itself included, in the order of their OIDs.
    [[nodiscard]] std::vector<const ObjectRule*> rowObjects(const Oid& rowStatus) const;
    // The objects to which writes wait for the row status, in the order of their OIDs.
    [[nodiscard]] std::vector<const ObjectRule*> stagedObjects(const Oid& rowStatus) const;
    // The objects of the group that exist whatever rows there are.
    [[nodiscard]] std::vector<const ObjectRule*> rowlessObjects(std::size_t group) const;
    // The objects that are tags of memberships, in the order of their OIDs.
    [[nodiscard]] std::vector<const ObjectRule*> sides() const;
    // True when the group holds one instance of every object per ONU.
    [[nodiscard]] bool isOnePerOnu(std::size_t group) const { return onePerOnu_[group]; }

private:
    [[nodiscard]] Result<void> add(ObjectRule rule);
    [[nodiscard]] Result<void> addGroup(const ModuleSchema& module, const GroupSchema& group,
                                        const std::string& name, const IsModel& isModel);

    std::map<Oid, ObjectRule> objects_; // by column
    std::map<std::pair<std::int32_t, std::string>, std::map<std::string, Oid, std::less<>>>
        columns_;                 // by module and group
    std::vector<bool> onePerOnu_; // by group
};

} // namespace onudesk
