// SPDX-License-Identifier: MIT
//
// SNMP values and the texts in which they cross the boundary.
#pragma once

#include "base/result.h"
#include "snmp/oid.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace onudesk::host {

// ASN.1 tags of values (RFC 3416), as the catalogue's `type` numbers them.
namespace tag {
inline constexpr std::uint8_t integer = 2;
inline constexpr std::uint8_t octets = 4;
inline constexpr std::uint8_t null = 5;
inline constexpr std::uint8_t oid = 6;
inline constexpr std::uint8_t ipAddress = 64;
inline constexpr std::uint8_t counter = 65;
inline constexpr std::uint8_t gauge = 66;
inline constexpr std::uint8_t timeTicks = 67;
inline constexpr std::uint8_t opaque = 68;
inline constexpr std::uint8_t counter64 = 70;
inline constexpr std::uint8_t noSuchObject = 128;
inline constexpr std::uint8_t noSuchInstance = 129;
inline constexpr std::uint8_t endOfMibView = 130;
} // namespace tag

struct SnmpValue {
    std::uint8_t tag = tag::null;
    std::uint64_t number = 0; // integer: sign-extended; counter, gauge, timeTicks, counter64
    Oid oid{};                // oid
    std::string octets{};     // octets, ipAddress (4 bytes), opaque and every other tag

    bool operator==(const SnmpValue&) const = default;
};

// A variable binding.
struct VarBind {
    Oid oid{};
    SnmpValue value{};
};
using VarBinds = std::vector<VarBind>;

// One of the three exceptions with which an agent says that there is no such value.
[[nodiscard]] bool isMissing(const SnmpValue& value);

// Numbers in decimal, OIDs dotted, addresses as dotted quads, octet strings as they are when they
// are text and `hex` is not asked for, otherwise in upper-case hexadecimal digits. Missing: empty.
[[nodiscard]] std::string valueText(const SnmpValue& value, bool hex);
// Bytes of the value as it travels in BER, tag and length left out.
[[nodiscard]] std::size_t valueLength(const SnmpValue& value);

// The value to write: octet strings as they are, everything else strictly from its text. Fails on
// tags that cannot be written.
[[nodiscard]] Result<SnmpValue> parseValue(std::uint32_t tag, const std::string& bytes);

} // namespace onudesk::host
