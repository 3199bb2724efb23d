// SPDX-License-Identifier: MIT
//
// What an agent holds, and changes of it.
#pragma once

#include "snmp/rules/object_table.h"
#include "snmp/value.h"

#include <map>
#include <optional>

namespace onudesk {

using Values = std::map<Oid, Value>;
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

class AgentState {
public:
    // Values of objects that are only ever written are left out.
    AgentState(ObjectTable objects, Values values);

    [[nodiscard]] const ObjectTable& objects() const { return objects_; }
    [[nodiscard]] const Values& values() const { return values_; }
    [[nodiscard]] const Values& staged() const { return staged_; }
    [[nodiscard]] const Value* find(const Oid& oid) const;
    // The first value behind the OID, or at it when `inclusive`; null at the end. Passes over ASN.1
    // nulls, which no reply to a walk may hold.
    [[nodiscard]] const Values::value_type* next(const Oid& oid, bool inclusive) const;

    // Carries changes out and returns those that take them back.
    Changes apply(const Changes& changes);

private:
    ObjectTable objects_;
    Values values_;
    Values staged_;
};

} // namespace onudesk
