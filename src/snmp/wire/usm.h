// SPDX-License-Identifier: MIT
//
// Protocols and keys of the user-based security model as Net-SNMP holds them (RFC 3414).
#pragma once

#include "snmp/security.h"

#include <net-snmp/net-snmp-config.h>

#include <net-snmp/net-snmp-includes.h>

#include <cstddef>
#include <string>

namespace onudesk {

// A protocol's OID, an array of the library that sessions may refer to.
struct UsmProtocol {
    oid* arcs = nullptr;
    std::size_t count = 0;
};
[[nodiscard]] UsmProtocol usmProtocol(AuthProtocol protocol);
[[nodiscard]] UsmProtocol usmProtocol(PrivProtocol protocol);

// The key made from a pass phrase before it is bound to an engine (appendix A.2), which takes 1 to
// 2 ms. Empty when there is none: without a protocol, or for a pass phrase that is too short.
[[nodiscard]] std::string masterKey(AuthProtocol protocol, const std::string& passphrase);

} // namespace onudesk
