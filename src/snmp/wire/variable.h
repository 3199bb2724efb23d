// SPDX-License-Identifier: MIT
//
// Values and OIDs as Net-SNMP holds them.
#pragma once

#include "snmp/value.h"

#include <net-snmp/net-snmp-config.h>

#include <net-snmp/net-snmp-includes.h>

#include <cstddef>
#include <vector>

namespace onudesk {

[[nodiscard]] Oid fromNetSnmp(const oid* arcs, std::size_t count);
[[nodiscard]] std::vector<oid> toNetSnmp(const Oid& name);

[[nodiscard]] Value valueOf(const netsnmp_variable_list& variable);
[[nodiscard]] VarBind bindingOf(const netsnmp_variable_list& variable);
// Gives the variable a copy of the value. False when memory is short or the value cannot be
// encoded.
bool setValue(netsnmp_variable_list& variable, const Value& value);

} // namespace onudesk
