// SPDX-License-Identifier: MIT
//
// SNMP values, and the texts that stand for them.
#pragma once

#include "base/result.h"
#include "snmp/oid.h"
#include "snmp/row_status.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace onudesk {

// ASN.1 tags of values (RFC 3416), as the catalogue's `type` numbers them.
enum class Tag : std::uint8_t {
    integer = 2,
    octetString = 4,
    null = 5,
    objectId = 6,
    ipAddress = 64,
    counter32 = 65,
    gauge32 = 66,
    timeTicks = 67,
    opaque = 68,
    counter64 = 70,
    noSuchObject = 128,
    noSuchInstance = 129,
    endOfMibView = 130,
};

inline constexpr std::size_t kMaxValueBytes = 65535;

// The content goes with the tag: int64 for integer, uint64 for counters, gauges and time ticks, an
// OID for an object identifier, nothing for null and the exceptions, bytes for all others (4 for
// addresses).
struct Value {
    Tag tag = Tag::null;
    std::variant<std::monostate, std::int64_t, std::uint64_t, std::string, Oid> content{};

    friend bool operator==(const Value& left, const Value& right) = default;
};

// A variable binding.
struct VarBind {
    Oid oid{};
    Value value{};
};
using VarBinds = std::vector<VarBind>;

[[nodiscard]] Value integerValue(std::int64_t number);
[[nodiscard]] Value octetsValue(std::string bytes);

// One of the three exceptions with which an agent says that there is no such value.
[[nodiscard]] bool isMissing(const Value& value);
// The number that an integer, counter, gauge or time value holds, at most 2^63 - 1; nothing for
// others.
[[nodiscard]] std::optional<std::int64_t> numberOf(const Value& value);
// The bytes of an octet string, address or opaque value; null for others.
[[nodiscard]] const std::string* bytesOf(const Value& value);
[[nodiscard]] Value rowStatusValue(RowStatus status);
// 0 for a value without a number; others than those of the convention stay what they are.
[[nodiscard]] RowStatus rowStatusOf(const Value& value);
// Whether a row status is held, or missing, as it is once `written` was carried out.
[[nodiscard]] bool isOutcome(const Value& held, const Value& written);

// Bytes of the value as it travels in BER, tag and length left out.
[[nodiscard]] std::size_t encodedLength(const Value& value);

// As values cross the boundary: numbers in decimal, OIDs dotted, addresses as dotted quads, octet
// strings as they are when they are text and `hex` is not asked for, otherwise in upper-case
// hexadecimal digits. Missing: empty.
[[nodiscard]] std::string valueText(const Value& value, bool hex);
// The value to write: octet strings as they are, everything else strictly from its text. Fails on
// types that cannot be written.
[[nodiscard]] Result<Value> parseValue(std::uint32_t type, const std::string& bytes);

// As recordings spell values: `tag` is "2", "4", "4x", "5", "6", "64", "64x", "65", "66", "67",
// "68", "68x" or "70"; the x forms and 68 take hexadecimal digits. The error says what is wrong.
[[nodiscard]] Result<Value> parseRecorded(std::string_view tag, std::string_view text);
// "tag|value". Octet strings are written as text when all bytes are printable ASCII, else as 4x
// with lower-case digits.
[[nodiscard]] std::string recordedText(const Value& value);

} // namespace onudesk
