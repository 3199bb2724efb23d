// SPDX-License-Identifier: MIT
//
// Net-SNMP's messages and ours.
#pragma once

#include "host/snmp_session.h"

#include <cstddef>
#include <memory>
#include <string>

#include <net-snmp/net-snmp-config.h>
#include <net-snmp/net-snmp-includes.h>

namespace onudesk::host {

struct PduFree {
    void operator()(netsnmp_pdu* pdu) const noexcept { snmp_free_pdu(pdu); }
};
using PduPtr = std::unique_ptr<netsnmp_pdu, PduFree>;

// The library's form of a request; without bindings for a probe. Null when a value cannot be
// encoded or memory is short.
[[nodiscard]] PduPtr makeLibraryPdu(const Pdu& pdu, SnmpVersion version, Protection protection);
// Says for whom and how an SNMPv3 message is protected.
void setSecurity(netsnmp_pdu& pdu, const V3Access& access, const std::string& engineId,
                 Protection protection);

[[nodiscard]] AgentAnswer fromLibraryPdu(const netsnmp_pdu& pdu);

// The engine id in an SNMPv3 message (RFC 3412, 6; RFC 3414, 2.4); empty when it is none.
[[nodiscard]] std::string senderEngine(u_char* message, std::size_t length);

} // namespace onudesk::host
