// SPDX-License-Identifier: MIT
#include "snmp/value.h"

#include "base/hexadecimal.h"
#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace onudesk {

namespace {

constexpr std::size_t kAddressBytes = 4;

// What a value of a type is written in.
enum class Form { number, dotted, octets, other };

Form formOf(Tag tag) {
    switch (tag) {
    case Tag::integer:
    case Tag::counter32:
    case Tag::gauge32:
    case Tag::timeTicks:
    case Tag::counter64:
        return Form::number;
    case Tag::objectId:
    case Tag::ipAddress:
        return Form::dotted;
    case Tag::octetString:
        return Form::octets;
    default:
        return Form::other;
    }
}

std::uint64_t greatest(Tag tag) {
    return tag == Tag::integer     ? std::numeric_limits<std::int32_t>::max()
           : tag == Tag::counter64 ? std::numeric_limits<std::uint64_t>::max()
                                   : std::numeric_limits<std::uint32_t>::max();
}

std::optional<Value> parseCount(Tag tag, std::string_view text) {
    if (tag == Tag::integer) {
        const auto number = parseNumber<std::int32_t>(text);
        return number ? std::optional(integerValue(*number)) : std::nullopt;
    }
    const auto number = parseNumber<std::uint64_t>(text);
    return number && *number <= greatest(tag) ? std::optional(Value{tag, *number}) : std::nullopt;
}

std::optional<Value> parseAddress(std::string_view text) {
    const auto parts = Oid::parse(text);
    if (text.starts_with('.') || !parts || parts->size() != kAddressBytes ||
        std::ranges::any_of(parts->arcs(), [](Oid::Arc part) { return part > 255; })) {
        return std::nullopt;
    }
    return Value{Tag::ipAddress, std::string(parts->arcs().begin(), parts->arcs().end())};
}

std::string quadText(std::string_view bytes) {
    std::vector<Oid::Arc> parts;
    for (const char byte : bytes) {
        parts.push_back(static_cast<std::uint8_t>(byte));
    }
    return Oid(std::move(parts)).text();
}

// Numbers, OIDs and addresses.
std::string plainText(const Value& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value.content)) {
        return std::to_string(*number);
    }
    if (const auto* number = std::get_if<std::uint64_t>(&value.content)) {
        return std::to_string(*number);
    }
    if (const auto* oid = std::get_if<Oid>(&value.content)) {
        return oid->text();
    }
    const std::string* bytes = bytesOf(value);
    return bytes == nullptr ? std::string() : quadText(*bytes);
}

// Bytes of the shortest two's complement form.
std::size_t lengthOf(std::int64_t number) {
    std::size_t length = 1;
    for (; number < -128 || number > 127; number >>= 8) {
        ++length;
    }
    return length;
}

std::size_t lengthOf(std::uint64_t number) {
    std::size_t length = 1;
    for (; number > 127; number >>= 8) {
        ++length;
    }
    return length;
}

std::size_t lengthOf(Oid::Arc arc) {
    std::size_t length = 1;
    for (; arc > 127; arc >>= 7) {
        ++length;
    }
    return length;
}

std::size_t lengthOf(const Oid& oid) {
    const auto& arcs = oid.arcs();
    // The first two arcs share one number.
    std::size_t length = arcs.size() < 2 ? 1 : lengthOf(Oid::Arc{arcs[0] * 40 + arcs[1]});
    for (std::size_t at = 2; at < arcs.size(); ++at) {
        length += lengthOf(arcs[at]);
    }
    return length;
}

struct LengthOfContent {
    std::size_t operator()(std::monostate) const { return 0; }
    std::size_t operator()(const std::string& bytes) const { return bytes.size(); }
    template <typename Content>
    std::size_t operator()(const Content& content) const {
        return lengthOf(content);
    }
};

struct RecordedTag {
    std::string_view name;
    Tag tag;
    bool hex;
};

constexpr std::array kRecordedTags = {
    RecordedTag{"2", Tag::integer, false},     RecordedTag{"4", Tag::octetString, false},
    RecordedTag{"4x", Tag::octetString, true}, RecordedTag{"5", Tag::null, false},
    RecordedTag{"6", Tag::objectId, false},    RecordedTag{"64", Tag::ipAddress, false},
    RecordedTag{"64x", Tag::ipAddress, true},  RecordedTag{"65", Tag::counter32, false},
    RecordedTag{"66", Tag::gauge32, false},    RecordedTag{"67", Tag::timeTicks, false},
    RecordedTag{"68", Tag::opaque, true},      RecordedTag{"68x", Tag::opaque, true},
    RecordedTag{"70", Tag::counter64, false},
};

Result<Value> parseRecordedHex(Tag tag, std::string_view text) {
    if (text.size() % 2 != 0) {
        return Error{"odd number of hexadecimal digits"};
    }
    auto bytes = bytesFromHex(text);
    if (!bytes) {
        return Error{"value is not hexadecimal"};
    }
    if (tag == Tag::ipAddress && bytes->size() != kAddressBytes) {
        return Error{"an address has 8 hexadecimal digits"};
    }
    return Value{tag, std::move(*bytes)};
}

Result<Value> parseRecordedPlain(Tag tag, std::string_view text) {
    std::optional<Value> value;
    std::string wanted;
    if (tag == Tag::ipAddress) {
        value = parseAddress(text);
        wanted = "address of the form 192.0.2.1";
    } else if (tag == Tag::objectId) {
        const auto oid = Oid::parseWhole(text);
        value = oid ? std::optional(Value{tag, *oid}) : std::nullopt;
        wanted = "OID";
    } else {
        value = parseCount(tag, text);
        wanted = std::string("number from ") + (tag == Tag::integer ? "-2147483648" : "0") +
                 " to " + std::to_string(greatest(tag));
    }
    return value ? Result<Value>(*value) : Error{"value is no " + wanted};
}

} // namespace

Value integerValue(std::int64_t number) {
    return {Tag::integer, number};
}

Value octetsValue(std::string bytes) {
    return {Tag::octetString, std::move(bytes)};
}

bool isMissing(const Value& value) {
    return value.tag == Tag::noSuchObject || value.tag == Tag::noSuchInstance ||
           value.tag == Tag::endOfMibView;
}

std::optional<std::int64_t> numberOf(const Value& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value.content)) {
        return *number;
    }
    if (const auto* number = std::get_if<std::uint64_t>(&value.content)) {
        return static_cast<std::int64_t>(std::min<std::uint64_t>(*number, INT64_MAX));
    }
    return std::nullopt;
}

const std::string* bytesOf(const Value& value) {
    return std::get_if<std::string>(&value.content);
}

Value rowStatusValue(RowStatus status) {
    return integerValue(rowStatusCode(status));
}

RowStatus rowStatusOf(const Value& value) {
    return static_cast<RowStatus>(numberOf(value).value_or(0));
}

bool isOutcome(const Value& held, const Value& written) {
    const RowStatus state = rowStatusOf(held);
    switch (rowStatusOf(written)) {
    case RowStatus::createAndGo:
        return state == RowStatus::active;
    case RowStatus::createAndWait:
        return state == RowStatus::notInService || state == RowStatus::notReady;
    case RowStatus::destroy:
        return isMissing(held);
    default:
        return held == written;
    }
}

std::size_t encodedLength(const Value& value) {
    return std::visit(LengthOfContent{}, value.content);
}

std::string valueText(const Value& value, bool hex) {
    const std::string* bytes = bytesOf(value);
    if (bytes == nullptr || value.tag == Tag::ipAddress) {
        return plainText(value);
    }
    return value.tag == Tag::octetString && !hex && isText(*bytes) ? *bytes : hexDigits(*bytes);
}

Result<Value> parseValue(std::uint32_t type, const std::string& bytes) {
    const auto tag = static_cast<Tag>(type);
    const Form form = static_cast<std::uint32_t>(tag) == type ? formOf(tag) : Form::other;
    if (form == Form::octets) {
        return octetsValue(bytes);
    }
    if (form == Form::other) {
        return Error{"values of type " + std::to_string(type) + " cannot be written"};
    }
    std::optional<Value> value;
    const char* wanted = "a number in range";
    if (tag == Tag::ipAddress) {
        value = parseAddress(bytes);
        wanted = "a dotted address";
    } else if (tag == Tag::objectId) {
        const auto oid = Oid::parse(bytes);
        value = oid && oid->size() >= 2 ? std::optional(Value{tag, *oid}) : std::nullopt;
        wanted = "an object identifier";
    } else {
        value = parseCount(tag, bytes);
    }
    if (value) {
        return *value;
    }
    return Error{"\"" + (isLine(bytes) ? bytes : hexDigits(bytes)) + "\" is not " + wanted};
}

Result<Value> parseRecorded(std::string_view tag, std::string_view text) {
    const auto* const known = std::ranges::find(kRecordedTags, tag, &RecordedTag::name);
    if (known == kRecordedTags.end()) {
        return Error{"unknown tag \"" + std::string(tag) + "\""};
    }
    if (text.size() > kMaxValueBytes * (known->hex ? 2 : 1)) {
        return Error{"value is longer than " + std::to_string(kMaxValueBytes) + " bytes"};
    }
    if (known->hex) {
        return parseRecordedHex(known->tag, text);
    }
    if (known->tag == Tag::octetString) {
        return octetsValue(std::string(text));
    }
    if (known->tag == Tag::null) {
        return text.empty() ? Result<Value>(Value{}) : Error{"a null has no value"};
    }
    return parseRecordedPlain(known->tag, text);
}

std::string recordedText(const Value& value) {
    const std::string tag = std::to_string(static_cast<int>(value.tag));
    const std::string* bytes = bytesOf(value);
    if (bytes == nullptr || value.tag == Tag::ipAddress) {
        return tag + "|" + plainText(value);
    }
    if (value.tag == Tag::octetString &&
        std::ranges::all_of(*bytes, [](char c) { return c >= ' ' && c <= '~'; })) {
        return tag + "|" + *bytes;
    }
    return tag + (value.tag == Tag::octetString ? "x|" : "|") +
           hexDigits(*bytes, LetterCase::lower);
}

} // namespace onudesk
