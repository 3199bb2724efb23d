// SPDX-License-Identifier: MIT
//
// Places in the client's directory tree.
#pragma once

#include <string>

namespace onudesk {

// The program's path less its last two components; with a single separator, less the file name.
[[nodiscard]] std::string clientRoot(const std::string& programPath);
// The same for the running program.
[[nodiscard]] std::string clientRoot();

inline constexpr const char* kMenuDirectory = "..\\CONF\\snmp\\";
inline constexpr const char* kCatalogueFile = "..\\conf\\snmp\\snmpconfig.xml";

} // namespace onudesk
