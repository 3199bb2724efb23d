// SPDX-License-Identifier: MIT
//
// One SNMP value and its spelling in recordings.
#pragma once

#include "base/result.h"
#include "sim/oid.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace onudesk::sim {

// ASN.1 tags of SNMP values (RFC 3416).
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
};

inline constexpr std::size_t kMaxValueBytes = 65535;

// The content goes with the tag: int64 for integer, uint64 for counters, gauges and time ticks,
// bytes for octet strings, opaque values and addresses (4 bytes), monostate for null.
struct Value {
    Tag tag = Tag::null;
    std::variant<std::monostate, std::int64_t, std::uint64_t, std::string, Oid> content{};

    friend bool operator==(const Value& left, const Value& right) = default;
};

[[nodiscard]] Value integerValue(std::int64_t number);
[[nodiscard]] Value octetsValue(std::string bytes);

// The number that an integer, counter, gauge or time value holds, at most 2^63 - 1; nothing for
// others.
[[nodiscard]] std::optional<std::int64_t> numberOf(const Value& value);

// Reads a value as recordings spell it: `tag` is "2", "4", "4x", "5", "6", "64", "64x", "65", "66",
// "67", "68", "68x" or "70"; the x forms and 68 take hexadecimal digits. The error says what is
// wrong with it.
[[nodiscard]] Result<Value> parseValue(std::string_view tag, std::string_view text);

// "tag|value". Octet strings are written as text when all bytes are printable ASCII, else as 4x
// with lower-case digits.
[[nodiscard]] std::string formatValue(const Value& value);

} // namespace onudesk::sim
