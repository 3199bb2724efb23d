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
using Delta = std::map<Oid, std::optional<Value>>;

struct Changes {
    Delta values;
    Delta staged; // what was written and waits for its row status; no manager sees it
};

// The value with the delta carried out; null when there is none.
[[nodiscard]] const Value* lookUp(const Values& values, const Delta& delta, const Oid& oid);
// The values at and below the OID with the delta carried out.
[[nodiscard]] Values below(const Values& values, const Delta& delta, const Oid& oid);

class Store {
public:
    // Values of objects that are only ever written are left out.
    Store(ObjectTable objects, Values values);

    [[nodiscard]] const ObjectTable& objects() const { return objects_; }
    [[nodiscard]] const Values& values() const { return values_; }
    [[nodiscard]] const Values& staged() const { return staged_; }
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
    Values staged_;
};

} // namespace onudesk::sim
