// SPDX-License-Identifier: MIT
#include "ber.h"

#include <stdexcept>

namespace onudesk::host::test {

namespace {

constexpr std::uint8_t kSequence = 0x30;

bool isUnsigned(std::uint8_t valueTag) {
    return valueTag == tag::counter || valueTag == tag::gauge || valueTag == tag::timeTicks ||
           valueTag == tag::counter64;
}

std::string numberBytes(std::uint64_t number, bool isSigned) {
    std::string bytes;
    for (std::size_t at = 0; at < sizeof number; ++at) {
        bytes.insert(bytes.begin(), static_cast<char>(number >> (8 * at)));
    }
    const auto redundant = [&] {
        const auto first = static_cast<std::uint8_t>(bytes[0]);
        const bool nextIsHigh = (static_cast<std::uint8_t>(bytes[1]) & 0x80) != 0;
        return (first == 0 && !nextIsHigh) || (isSigned && first == 0xFF && nextIsHigh);
    };
    if (!isSigned) {
        bytes.insert(bytes.begin(), '\0');
    }
    while (bytes.size() > 1 && redundant()) {
        bytes.erase(bytes.begin());
    }
    return bytes;
}

std::string arcBytes(std::uint32_t arc) {
    std::string bytes(1, static_cast<char>(arc & 0x7F));
    for (arc >>= 7; arc > 0; arc >>= 7) {
        bytes.insert(bytes.begin(), static_cast<char>(0x80 | (arc & 0x7F)));
    }
    return bytes;
}

std::string oidElement(const Oid& oid) {
    std::string content = arcBytes(oid.at(0) * 40 + oid.at(1));
    for (std::size_t at = 2; at < oid.size(); ++at) {
        content += arcBytes(oid[at]);
    }
    return berElement(tag::oid, content);
}

std::string valueElement(const SnmpValue& value) {
    if (value.tag == tag::integer || isUnsigned(value.tag)) {
        return berElement(value.tag, numberBytes(value.number, value.tag == tag::integer));
    }
    return value.tag == tag::oid ? oidElement(value.oid) : berElement(value.tag, value.octets);
}

Oid parseOidContent(std::string_view content) {
    Oid arcs;
    std::uint32_t arc = 0;
    for (const char byte : content) {
        arc = (arc << 7) | (static_cast<std::uint8_t>(byte) & 0x7F);
        if ((static_cast<std::uint8_t>(byte) & 0x80) == 0) {
            arcs.push_back(arc);
            arc = 0;
        }
    }
    const std::uint32_t both = arcs.at(0);
    arcs[0] = both % 40;
    arcs.insert(arcs.begin(), both / 40);
    return arcs;
}

std::uint64_t parseNumber(std::string_view content) {
    std::uint64_t number =
        !content.empty() && (static_cast<std::uint8_t>(content[0]) & 0x80) != 0 ? ~0ULL : 0;
    for (const char byte : content) {
        number = (number << 8) | static_cast<std::uint8_t>(byte);
    }
    return number;
}

} // namespace

std::string berElement(std::uint8_t tag, std::string_view content) {
    std::string element(1, static_cast<char>(tag));
    const std::size_t length = content.size();
    if (length < 0x80) {
        element += static_cast<char>(length);
    } else {
        element += {static_cast<char>(0x82), static_cast<char>(length >> 8),
                    static_cast<char>(length & 0xFF)};
    }
    return element.append(content);
}

std::string berInteger(std::int64_t number, std::uint8_t tag) {
    return berElement(tag, numberBytes(static_cast<std::uint64_t>(number), true));
}

std::string berOctets(std::string_view bytes) {
    return berElement(tag::octets, bytes);
}

std::string berSequence(std::string_view content) {
    return berElement(kSequence, content);
}

std::string berBindings(const VarBinds& bindings) {
    std::string content;
    for (const VarBind& binding : bindings) {
        content += berSequence(oidElement(binding.oid) + valueElement(binding.value));
    }
    return berSequence(content);
}

std::uint8_t BerReader::nextTag() const {
    if (bytes_.empty()) {
        throw std::runtime_error("element missing");
    }
    return static_cast<std::uint8_t>(bytes_[0]);
}

std::string_view BerReader::content() {
    static_cast<void>(nextTag());
    std::size_t at = 2;
    std::size_t length = static_cast<std::uint8_t>(bytes_.at(1));
    if (length >= 0x80) {
        const std::size_t count = length & 0x7F;
        length = 0;
        for (; at < 2 + count; ++at) {
            length = (length << 8) | static_cast<std::uint8_t>(bytes_.at(at));
        }
    }
    if (at + length > bytes_.size()) {
        throw std::runtime_error("element too short");
    }
    const std::string_view found = bytes_.substr(at, length);
    bytes_.remove_prefix(at + length);
    return found;
}

std::int64_t BerReader::integer() {
    return static_cast<std::int64_t>(parseNumber(content()));
}

SnmpValue BerReader::value() {
    SnmpValue found{.tag = nextTag()};
    const std::string_view bytes = content();
    if (found.tag == tag::integer || isUnsigned(found.tag)) {
        found.number = parseNumber(bytes);
    } else if (found.tag == tag::oid) {
        found.oid = parseOidContent(bytes);
    } else {
        found.octets = bytes;
    }
    return found;
}

VarBinds BerReader::bindings() {
    VarBinds found;
    BerReader list(content());
    while (!list.atEnd()) {
        BerReader pair(list.content());
        Oid oid = parseOidContent(pair.content());
        found.push_back({std::move(oid), pair.value()});
    }
    return found;
}

} // namespace onudesk::host::test
