// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace onudesk {

// One named SNMP object.
struct CONFIG_OID_T {
    std::string name;
    std::string oidstr;    // dotted decimal, without instance suffix
    std::int32_t type = 0; // ASN.1 tag as the host numbers it; 0 when not stated
};

} // namespace onudesk
