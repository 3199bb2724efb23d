// SPDX-License-Identifier: MIT
//
// Requests as the host works with them, taken out of the records that the window posts.
#pragma once

#include "base/result.h"
#include "host/access.h"
#include "onudesk/code_para.h"
#include "snmp/oid.h"

#include <cstdint>
#include <string>
#include <vector>

namespace onudesk::host {

enum class RequestKind : std::uint8_t { read, write };

// One value to write.
struct Binding {
    std::string name{};     // in the catalogue
    std::string oid{};      // full OID, as text
    std::uint32_t type = 0; // ASN.1 tag; 0: not stated
    std::string value{};    // bytes, zero bytes included
};

struct HostRequest {
    RequestKind kind = RequestKind::read;
    std::int32_t itemType = 0;
    std::string suffix{};            // as the window wrote it, such as ".1.2.5"
    Oid instance{};                  // the same as numbers
    bool firstOfTwo = false;         // CP_FLAG_130: the reply goes nowhere
    std::vector<Binding> bindings{}; // writes only
    AgentAccess access;
};

// What the header of a record says, whatever its entries look like.
[[nodiscard]] RequestKind requestKind(const DllClientCodePara& para);

// The bindings of a record as far as they can be read, for showing.
[[nodiscard]] std::vector<Binding> readableBindings(const DllClientCodePara& para);

// The request in a record. SNMPv3 settings that the record leaves open (no user or no level) come
// from `v3Defaults`. Time-out and retries are brought into their range. The error names the
// entry that is missing or wrong; it never holds a community or a pass phrase.
[[nodiscard]] Result<HostRequest> decodeRequest(const DllClientCodePara& para,
                                                const V3Access& v3Defaults);

} // namespace onudesk::host
