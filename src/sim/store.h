// SPDX-License-Identifier: MIT
//
// Everything a simulated agent holds, and what SNMP may do to it.
//
//     auto outcome = store.prepare(bindings);             // checks all, changes nothing
//     if (auto* changes = std::get_if<Changes>(&outcome)) {
//         Changes undo = store.apply(*changes);
//     }
#pragma once

#include "sim/object_table.h"
#include "sim/recording.h"
#include "sim/value.h"

#include <cstddef>
#include <map>
#include <optional>
#include <variant>
#include <vector>

namespace onudesk::sim {

// The error-status values of RFC 3416 a SET can meet.
enum class SetStatus {
    wrongType = 7,
    wrongLength = 8,
    wrongValue = 10,
    noCreation = 11,
    inconsistentValue = 12,
    notWritable = 17,
};

// The values of the RowStatus convention (RFC 2579).
enum class RowStatus {
    active = 1,
    notInService = 2,
    notReady = 3,
    createAndGo = 4,
    createAndWait = 5,
    destroy = 6,
};

struct Binding {
    Oid oid;
    Value value;
};

struct SetFailure {
    SetStatus status = SetStatus::notWritable;
    std::size_t index = 0; // of the binding, from 0
};

// New values of instances; nothing for an instance that goes.
using Changes = std::map<Oid, std::optional<Value>>;

class Store {
public:
    // Values of objects that are only ever written are left out.
    Store(ObjectTable objects, Values values);

    [[nodiscard]] const ObjectTable& objects() const { return objects_; }
    [[nodiscard]] const Values& values() const { return values_; }
    [[nodiscard]] const Value* find(const Oid& oid) const;
    // The first value behind the OID, or at it when `inclusive`; null at the end. Passes over ASN.1
    // nulls, which no reply to a walk may hold.
    [[nodiscard]] const Values::value_type* next(const Oid& oid, bool inclusive) const;

    // What a SET of these bindings, as one transaction, would change, or its first failure.
    [[nodiscard]] std::variant<Changes, SetFailure>
    prepare(const std::vector<Binding>& bindings) const;
    // Carries changes out and returns those that take them back.
    Changes apply(const Changes& changes);

private:
    ObjectTable objects_;
    Values values_;
};

} // namespace onudesk::sim
