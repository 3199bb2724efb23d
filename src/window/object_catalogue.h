// SPDX-License-Identifier: MIT
//
// The name-to-OID catalogue, one module per configuration item type:
//
//     <snmpconfig>
//       <module name="606">
//         <group name="maintable" read="scalar">
//           <object name="onuName" oidstr="1.3.6.1.4.1.27315.606.1.1.19" type="4"
//                   access="read-write" size="0..32"/>
#pragma once

#include "snmp/config_oid.h"

#include <cstdint>
#include <map>
#include <string>

class TiXmlElement;

namespace onudesk {

// Group name to object name to object. A page owns its module's catalogue.
using ObjectCatalogue = std::map<std::string, std::map<std::string, CONFIG_OID_T>>;

// The module of an item type in a parsed catalogue file, empty when there is none or it has no
// groups. The first of equal modules, groups and objects holds.
[[nodiscard]] ObjectCatalogue catalogueModule(const TiXmlElement& root, std::int32_t itemType);

// Reads the client's catalogue file. When it cannot be read, or has nothing for the item type, the
// operator is warned (message 11140) and the catalogue is empty.
[[nodiscard]] ObjectCatalogue loadCatalogue(std::int32_t itemType);

// The object, or null. Names are compared exactly. Valid while the catalogue lives.
[[nodiscard]] const CONFIG_OID_T* lookup(const ObjectCatalogue& catalogue, const std::string& group,
                                         const std::string& object);

} // namespace onudesk
