// SPDX-License-Identifier: MIT
//
// Who may read and write a simulated agent. The access file has one rule a line:
//
//     community read|write NAME
//     user NAME noAuthNoPriv [read|write]
//     user NAME authNoPriv MD5|SHA AUTHPHRASE [read|write]
//     user NAME authPriv MD5|SHA AUTHPHRASE DES PRIVPHRASE [read|write]
//
// Words are separated by blanks or tabs; a word in double quotes may contain them. Blank lines and
// lines that begin with "#" are comments. Writing includes reading; users read when nothing is
// said.
#pragma once

#include "base/result.h"
#include "snmp/security.h"

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace onudesk::sim {

struct User {
    SecurityLevel level = SecurityLevel::noAuthNoPriv; // the least a message must have
    AuthProtocol digest = AuthProtocol::md5;           // from authNoPriv on
    std::string authPhrase{};                          // from authNoPriv on, 8 bytes or more
    std::string privPhrase{};                          // authPriv (DES), 8 bytes or more
    bool mayWrite = false;
};

struct Access {
    std::map<std::string, bool> communities{}; // name, and whether it may write
    std::map<std::string, User> users{};       // by name, 1 to 32 bytes (RFC 3414)

    [[nodiscard]] bool allowsCommunity(const std::string& name, bool write) const;
    [[nodiscard]] bool allowsUser(const std::string& name, SecurityLevel level, bool write) const;
};

// Community "public" reads, "private" reads and writes, no users.
[[nodiscard]] Access defaultAccess();

// Errors are "name:line: reason" and never quote pass phrases.
[[nodiscard]] Result<Access> parseAccess(std::string_view bytes, const std::string& name);
[[nodiscard]] Result<Access> loadAccess(const std::filesystem::path& path);

} // namespace onudesk::sim
