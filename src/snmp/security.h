// SPDX-License-Identifier: MIT
//
// Versions of SNMP and the security of the third (RFC 3411, RFC 3414), under their numbers in
// requests and under their names in files and on command lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace onudesk {

enum class SnmpVersion : std::uint8_t { v1 = 0, v2c = 1, v3 = 3 };
// In rising order.
enum class SecurityLevel : std::uint8_t {
    notSet = 0,
    noAuthNoPriv = 1,
    authNoPriv = 2,
    authPriv = 3
};
enum class AuthProtocol : std::uint8_t { none = 1, md5 = 2, sha = 3 };
enum class PrivProtocol : std::uint8_t { none = 1, des = 2 };

inline constexpr std::size_t kMinPassphraseBytes = 8; // RFC 3414, 11.2
inline constexpr std::size_t kMaxUserBytes = 32;      // RFC 3414, 5: SnmpAdminString (1..32)

template <typename Value>
struct Named {
    Value value;
    const char* name;
};
inline constexpr Named<SnmpVersion> kSnmpVersions[] = {
    {SnmpVersion::v1, "v1"}, {SnmpVersion::v2c, "v2c"}, {SnmpVersion::v3, "v3"}};
inline constexpr Named<SecurityLevel> kSecurityLevels[] = {
    {SecurityLevel::noAuthNoPriv, "noAuthNoPriv"},
    {SecurityLevel::authNoPriv, "authNoPriv"},
    {SecurityLevel::authPriv, "authPriv"}};
inline constexpr Named<AuthProtocol> kAuthProtocols[] = {{AuthProtocol::md5, "MD5"},
                                                         {AuthProtocol::sha, "SHA"}};
inline constexpr Named<PrivProtocol> kPrivProtocols[] = {{PrivProtocol::des, "DES"}};

template <typename Value, std::size_t count>
[[nodiscard]] std::optional<Value> valueNamed(const Named<Value> (&names)[count],
                                              std::string_view name) {
    for (const Named<Value>& known : names) {
        if (name == known.name) {
            return known.value;
        }
    }
    return std::nullopt;
}

} // namespace onudesk
