// SPDX-License-Identifier: MIT
#include "host/snmp_value.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace onudesk::host {

namespace {

constexpr std::size_t kIpAddressBytes = 4;

bool isNumber(std::uint8_t valueTag) {
    return valueTag == tag::integer || valueTag == tag::counter || valueTag == tag::gauge ||
           valueTag == tag::timeTicks || valueTag == tag::counter64;
}

template <typename Number>
std::optional<Number> strictNumber(std::string_view text) {
    Number number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return number;
}

std::optional<std::string> parseQuad(std::string_view text) {
    const std::optional<Oid> parts = parseOid(text);
    if (text.starts_with('.') || !parts || parts->size() != kIpAddressBytes ||
        std::ranges::any_of(*parts, [](std::uint32_t part) {
            return part > std::numeric_limits<std::uint8_t>::max();
        })) {
        return std::nullopt;
    }
    return std::string(parts->begin(), parts->end());
}

std::string quadText(std::string_view octets) {
    Oid parts;
    for (const char octet : octets) {
        parts.push_back(static_cast<std::uint8_t>(octet));
    }
    return formatOid(parts);
}

std::optional<SnmpValue> parseNumber(std::uint8_t valueTag, std::string_view text) {
    if (valueTag == tag::integer) {
        const auto number = strictNumber<std::int32_t>(text);
        return number ? std::optional(
                            SnmpValue{.tag = valueTag,
                                      .number = static_cast<std::uint64_t>(std::int64_t{*number})})
                      : std::nullopt;
    }
    const auto number = strictNumber<std::uint64_t>(text);
    const std::uint64_t limit = valueTag == tag::counter64
                                    ? std::numeric_limits<std::uint64_t>::max()
                                    : std::numeric_limits<std::uint32_t>::max();
    return number && *number <= limit ? std::optional(SnmpValue{.tag = valueTag, .number = *number})
                                      : std::nullopt;
}

std::string_view wantedText(std::uint8_t valueTag) {
    return valueTag == tag::ipAddress ? "a dotted address"
           : valueTag == tag::oid     ? "an object identifier"
                                      : "a number in range";
}

std::optional<SnmpValue> parseStrict(std::uint8_t valueTag, const std::string& text) {
    if (isNumber(valueTag)) {
        return parseNumber(valueTag, text);
    }
    if (valueTag == tag::ipAddress) {
        const auto quad = parseQuad(text);
        return quad ? std::optional(SnmpValue{.tag = valueTag, .octets = *quad}) : std::nullopt;
    }
    const auto oid = parseOid(text);
    return oid && oid->size() >= 2 ? std::optional(SnmpValue{.tag = valueTag, .oid = *oid})
                                   : std::nullopt;
}

// Bytes of the shortest two's complement form.
std::size_t integerLength(std::int64_t number) {
    std::size_t length = 1;
    while (length < sizeof number && (number < -128 || number > 127)) {
        number >>= 8;
        ++length;
    }
    return length;
}

std::size_t unsignedLength(std::uint64_t number) {
    std::size_t length = 1;
    for (; number > 127; number >>= 8) {
        ++length;
    }
    return length;
}

std::size_t oidLength(const Oid& oid) {
    const auto arcLength = [](std::uint32_t arc) {
        std::size_t length = 1;
        for (; arc > 127; arc >>= 7) {
            ++length;
        }
        return length;
    };
    // The first two arcs share one number.
    std::size_t length = oid.size() < 2 ? 1 : arcLength(oid[0] * 40 + oid[1]);
    for (std::size_t arc = 2; arc < oid.size(); ++arc) {
        length += arcLength(oid[arc]);
    }
    return length;
}

// Length of the UTF-8 sequence at the front, 0 when it is none.
std::size_t sequenceLength(std::string_view bytes) {
    const auto byteAt = [&](std::size_t at) { return static_cast<std::uint8_t>(bytes[at]); };
    const std::uint8_t lead = byteAt(0);
    const std::size_t length = lead < 0x80    ? 1
                               : lead < 0xC2  ? 0
                               : lead < 0xE0  ? 2
                               : lead < 0xF0  ? 3
                               : lead <= 0xF4 ? 4
                                              : 0;
    if (length == 0 || length > bytes.size()) {
        return 0;
    }
    for (std::size_t at = 1; at < length; ++at) {
        if ((byteAt(at) & 0xC0) != 0x80) {
            return 0;
        }
    }
    // Overlong forms, surrogates and numbers above U+10FFFF show in the second byte.
    const bool bad =
        length > 1 && ((lead == 0xE0 && byteAt(1) < 0xA0) || (lead == 0xED && byteAt(1) >= 0xA0) ||
                       (lead == 0xF0 && byteAt(1) < 0x90) || (lead == 0xF4 && byteAt(1) >= 0x90));
    return bad ? 0 : length;
}

constexpr std::string_view kBreaks = "\n\r\t";

bool isControl(std::string_view sequence) {
    const auto lead = static_cast<std::uint8_t>(sequence[0]);
    return (sequence.size() == 1 && (lead < 0x20 || lead == 0x7F)) ||
           (sequence.size() == 2 && lead == 0xC2 && static_cast<std::uint8_t>(sequence[1]) < 0xA0);
}

} // namespace

bool isMissing(const SnmpValue& value) {
    return value.tag == tag::noSuchObject || value.tag == tag::noSuchInstance ||
           value.tag == tag::endOfMibView;
}

std::string valueText(const SnmpValue& value, bool hex) {
    if (isMissing(value) || value.tag == tag::null) {
        return {};
    }
    if (value.tag == tag::integer) {
        return std::to_string(static_cast<std::int64_t>(value.number));
    }
    if (isNumber(value.tag)) {
        return std::to_string(value.number);
    }
    if (value.tag == tag::oid) {
        return formatOid(value.oid);
    }
    if (value.tag == tag::ipAddress) {
        return quadText(value.octets);
    }
    const bool asText = value.tag == tag::octets && !hex && isText(value.octets);
    return asText ? value.octets : hexDigits(value.octets);
}

std::size_t valueLength(const SnmpValue& value) {
    if (value.tag == tag::integer) {
        return integerLength(static_cast<std::int64_t>(value.number));
    }
    if (isNumber(value.tag)) {
        return unsignedLength(value.number);
    }
    return value.tag == tag::oid ? oidLength(value.oid) : value.octets.size();
}

Result<SnmpValue> parseValue(std::uint32_t wanted, const std::string& bytes) {
    const auto valueTag = static_cast<std::uint8_t>(wanted);
    if (wanted == tag::octets) {
        return SnmpValue{.tag = valueTag, .octets = bytes};
    }
    if (wanted != valueTag ||
        (!isNumber(valueTag) && valueTag != tag::oid && valueTag != tag::ipAddress)) {
        return Error{"values of type " + std::to_string(wanted) + " cannot be written"};
    }
    if (const auto value = parseStrict(valueTag, bytes)) {
        return *value;
    }
    return Error{"\"" + (isLine(bytes) ? bytes : hexDigits(bytes)) + "\" is not " +
                 std::string(wantedText(valueTag))};
}

bool isLine(std::string_view bytes) {
    return isText(bytes) && bytes.find_first_of(kBreaks) == std::string_view::npos;
}

bool isText(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t length = sequenceLength(bytes);
        const bool breaks = length == 1 && kBreaks.find(bytes.front()) != std::string_view::npos;
        if (length == 0 || (!breaks && isControl(bytes.substr(0, length)))) {
            return false;
        }
        bytes.remove_prefix(length);
    }
    return true;
}

std::string hexDigits(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const char byte : bytes) {
        const auto value = static_cast<std::uint8_t>(byte);
        text += kDigits[value >> 4];
        text += kDigits[value & 0x0F];
    }
    return text;
}

std::optional<std::string> bytesFromHex(std::string_view digits) {
    if (digits.starts_with("0x") || digits.starts_with("0X")) {
        digits.remove_prefix(2);
    }
    std::string bytes;
    for (; digits.size() >= 2; digits.remove_prefix(2)) {
        std::uint8_t value = 0;
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + 2, value, 16);
        if (error != std::errc() || end != digits.data() + 2) {
            return std::nullopt;
        }
        bytes += static_cast<char>(value);
    }
    return digits.empty() ? std::optional(bytes) : std::nullopt;
}

} // namespace onudesk::host
