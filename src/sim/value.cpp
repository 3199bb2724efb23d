// SPDX-License-Identifier: MIT
#include "sim/value.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>

namespace onudesk::sim {

namespace {

enum class Spelling { number, text, hex, dotted, nothing };

struct TagSpelling {
    std::string_view name;
    Tag tag;
    Spelling spelling;
};

constexpr std::array kTags = {
    TagSpelling{"2", Tag::integer, Spelling::number},
    TagSpelling{"4", Tag::octetString, Spelling::text},
    TagSpelling{"4x", Tag::octetString, Spelling::hex},
    TagSpelling{"5", Tag::null, Spelling::nothing},
    TagSpelling{"6", Tag::objectId, Spelling::dotted},
    TagSpelling{"64", Tag::ipAddress, Spelling::dotted},
    TagSpelling{"64x", Tag::ipAddress, Spelling::hex},
    TagSpelling{"65", Tag::counter32, Spelling::number},
    TagSpelling{"66", Tag::gauge32, Spelling::number},
    TagSpelling{"67", Tag::timeTicks, Spelling::number},
    TagSpelling{"68", Tag::opaque, Spelling::hex},
    TagSpelling{"68x", Tag::opaque, Spelling::hex},
    TagSpelling{"70", Tag::counter64, Spelling::number},
};

template <typename Number>
std::optional<Number> wholeNumber(std::string_view text, Number low, Number high) {
    Number number = 0;
    const char* const end = text.data() + text.size();
    const auto [next, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || next != end || number < low || number > high) {
        return std::nullopt;
    }
    return number;
}

Result<Value> parseNumber(Tag tag, std::string_view text) {
    if (tag == Tag::integer) {
        constexpr std::int64_t low = std::numeric_limits<std::int32_t>::min();
        constexpr std::int64_t high = std::numeric_limits<std::int32_t>::max();
        if (const auto number = wholeNumber<std::int64_t>(text, low, high)) {
            return integerValue(*number);
        }
        return Error{"value is no number from -2147483648 to 2147483647"};
    }
    const std::uint64_t high = tag == Tag::counter64 ? std::numeric_limits<std::uint64_t>::max()
                                                     : std::numeric_limits<std::uint32_t>::max();
    if (const auto number = wholeNumber<std::uint64_t>(text, 0, high)) {
        return Value{tag, *number};
    }
    return Error{"value is no number from 0 to " + std::to_string(high)};
}

int hexDigit(char c) {
    return c >= '0' && c <= '9'   ? c - '0'
           : c >= 'a' && c <= 'f' ? c - 'a' + 10
           : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                  : -1;
}

Result<Value> parseHex(Tag tag, std::string_view text) {
    if (text.size() % 2 != 0) {
        return Error{"odd number of hexadecimal digits"};
    }
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const int high = hexDigit(text[i]);
        const int low = hexDigit(text[i + 1]);
        if (high < 0 || low < 0) {
            return Error{"value is not hexadecimal"};
        }
        bytes += static_cast<char>(high * 16 + low);
    }
    if (tag == Tag::ipAddress && bytes.size() != 4) {
        return Error{"an address has 8 hexadecimal digits"};
    }
    return Value{tag, std::move(bytes)};
}

Result<Value> parseAddress(std::string_view text) {
    std::string bytes;
    for (int part = 0; part < 4; ++part) {
        const auto dot = std::min(text.find('.'), text.size());
        const auto number = wholeNumber<unsigned>(text.substr(0, dot), 0, 255);
        const bool dotFollows = dot < text.size();
        if (!number || dotFollows != (part < 3)) {
            return Error{"value is no address of the form 192.0.2.1"};
        }
        bytes += static_cast<char>(*number);
        text.remove_prefix(std::min(dot + 1, text.size()));
    }
    return Value{Tag::ipAddress, std::move(bytes)};
}

Result<Value> parseDotted(Tag tag, std::string_view text) {
    if (tag == Tag::ipAddress) {
        return parseAddress(text);
    }
    if (auto oid = Oid::parse(text)) {
        return Value{tag, std::move(*oid)};
    }
    return Error{"value is no OID"};
}

std::string hexText(const std::string& bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += {digits[byte >> 4], digits[byte & 15]};
    }
    return text;
}

std::string formatBytes(Tag tag, const std::string& bytes) {
    if (tag == Tag::ipAddress) {
        std::string text;
        for (const char c : bytes) {
            text += (text.empty() ? "" : ".") + std::to_string(static_cast<unsigned char>(c));
        }
        return "64|" + text;
    }
    if (tag == Tag::opaque) {
        return "68|" + hexText(bytes);
    }
    const bool printable = std::ranges::all_of(bytes, [](char c) { return c >= ' ' && c <= '~'; });
    return printable ? "4|" + bytes : "4x|" + hexText(bytes);
}

} // namespace

std::optional<std::int64_t> numberOf(const Value& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value.content)) {
        return *number;
    }
    if (const auto* number = std::get_if<std::uint64_t>(&value.content)) {
        return static_cast<std::int64_t>(std::min<std::uint64_t>(*number, INT64_MAX));
    }
    return std::nullopt;
}

Value integerValue(std::int64_t number) {
    return {Tag::integer, number};
}

Value octetsValue(std::string bytes) {
    return {Tag::octetString, std::move(bytes)};
}

Result<Value> parseValue(std::string_view tag, std::string_view text) {
    const auto* const known = std::ranges::find(kTags, tag, &TagSpelling::name);
    if (known == kTags.end()) {
        return Error{"unknown tag \"" + std::string(tag) + "\""};
    }
    if (text.size() > kMaxValueBytes * (known->spelling == Spelling::hex ? 2 : 1)) {
        return Error{"value is longer than " + std::to_string(kMaxValueBytes) + " bytes"};
    }
    switch (known->spelling) {
    case Spelling::number:
        return parseNumber(known->tag, text);
    case Spelling::text:
        return Value{known->tag, std::string(text)};
    case Spelling::hex:
        return parseHex(known->tag, text);
    case Spelling::dotted:
        return parseDotted(known->tag, text);
    case Spelling::nothing:
        break;
    }
    return text.empty() ? Result<Value>(Value{}) : Error{"a null has no value"};
}

std::string formatValue(const Value& value) {
    std::string tag = std::to_string(static_cast<int>(value.tag)) + "|";
    if (const auto* number = std::get_if<std::int64_t>(&value.content)) {
        return tag + std::to_string(*number);
    }
    if (const auto* number = std::get_if<std::uint64_t>(&value.content)) {
        return tag + std::to_string(*number);
    }
    if (const auto* oid = std::get_if<Oid>(&value.content)) {
        return tag + oid->text();
    }
    if (const auto* bytes = std::get_if<std::string>(&value.content)) {
        return formatBytes(value.tag, *bytes);
    }
    return tag;
}

} // namespace onudesk::sim
