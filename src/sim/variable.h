// SPDX-License-Identifier: MIT
//
// Values and OIDs as Net-SNMP holds them.
#pragma once

#include "sim/value.h"

#include <net-snmp/net-snmp-config.h>

#include <net-snmp/net-snmp-includes.h>

#include <cstddef>
#include <vector>

namespace onudesk::sim {

[[nodiscard]] Oid fromNetSnmp(const oid* parts, std::size_t count);
[[nodiscard]] std::vector<oid> toNetSnmp(const Oid& name);

// Null for types that are no SNMP values.
[[nodiscard]] Value valueOf(const netsnmp_variable_list& variable);
// Gives the variable a copy of the value.
void setValue(netsnmp_variable_list& variable, const Value& value);

} // namespace onudesk::sim
