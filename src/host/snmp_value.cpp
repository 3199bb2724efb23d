// SPDX-License-Identifier: MIT
#include "host/snmp_value.h"

#include "base/hexadecimal.h"
#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>
#include <limits>

namespace onudesk::host {

namespace {

constexpr std::size_t kIpAddressBytes = 4;

bool isNumber(std::uint8_t valueTag) {
    return valueTag == tag::integer || valueTag == tag::counter || valueTag == tag::gauge ||
           valueTag == tag::timeTicks || valueTag == tag::counter64;
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
        const auto number = onudesk::parseNumber<std::int32_t>(text);
        return number ? std::optional(
                            SnmpValue{.tag = valueTag,
                                      .number = static_cast<std::uint64_t>(std::int64_t{*number})})
                      : std::nullopt;
    }
    const auto number = onudesk::parseNumber<std::uint64_t>(text);
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

} // namespace onudesk::host
