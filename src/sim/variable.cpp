// SPDX-License-Identifier: MIT
#include "sim/variable.h"

#include <cstdint>
#include <string>

namespace onudesk::sim {

namespace {

std::string bytesOf(const netsnmp_variable_list& variable) {
    return {variable.val.string, variable.val.string + variable.val_len};
}

std::uint64_t counter64Of(const netsnmp_variable_list& variable) {
    return static_cast<std::uint64_t>(variable.val.counter64->high) << 32 |
           (variable.val.counter64->low & 0xFFFFFFFFU);
}

struct ContentWriter {
    netsnmp_variable_list& variable;
    Tag tag;

    void store(const void* data, std::size_t size) const {
        snmp_set_var_typed_value(&variable, static_cast<u_char>(tag), data, size);
    }
    void operator()(std::monostate) const { store(nullptr, 0); }
    void operator()(std::int64_t number) const {
        const long plain = number;
        store(&plain, sizeof plain);
    }
    void operator()(std::uint64_t number) const {
        if (tag == Tag::counter64) {
            const counter64 halves{.high = number >> 32, .low = number & 0xFFFFFFFFU};
            store(&halves, sizeof halves);
        } else {
            const u_long plain = number;
            store(&plain, sizeof plain);
        }
    }
    void operator()(const std::string& bytes) const { store(bytes.data(), bytes.size()); }
    void operator()(const Oid& name) const {
        const std::vector<oid> parts = toNetSnmp(name);
        store(parts.data(), parts.size() * sizeof(oid));
    }
};

} // namespace

Oid fromNetSnmp(const oid* parts, std::size_t count) {
    std::vector<Oid::Part> copy;
    copy.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        copy.push_back(static_cast<Oid::Part>(parts[i]));
    }
    return Oid(std::move(copy));
}

std::vector<oid> toNetSnmp(const Oid& name) {
    return {name.parts().begin(), name.parts().end()};
}

Value valueOf(const netsnmp_variable_list& variable) {
    const auto tag = static_cast<Tag>(variable.type);
    switch (tag) {
    case Tag::integer:
        return integerValue(*variable.val.integer);
    case Tag::counter32:
    case Tag::gauge32:
    case Tag::timeTicks:
        return {tag, static_cast<std::uint64_t>(*variable.val.integer) & 0xFFFFFFFFU};
    case Tag::counter64:
        return {tag, counter64Of(variable)};
    case Tag::octetString:
    case Tag::opaque:
    case Tag::ipAddress:
        return {tag, bytesOf(variable)};
    case Tag::objectId:
        return {tag, fromNetSnmp(variable.val.objid, variable.val_len / sizeof(oid))};
    case Tag::null:
        break;
    }
    return {};
}

void setValue(netsnmp_variable_list& variable, const Value& value) {
    std::visit(ContentWriter{variable, value.tag}, value.content);
}

} // namespace onudesk::sim
