// SPDX-License-Identifier: MIT
#include "snmp/wire/variable.h"

#include <cstdint>
#include <string>
#include <utility>

namespace onudesk {

namespace {

constexpr std::uint64_t kLowHalf = 0xFFFFFFFFU;

struct ContentWriter {
    netsnmp_variable_list& variable;
    Tag tag;

    [[nodiscard]] bool store(const void* data, std::size_t size) const {
        return snmp_set_var_typed_value(&variable, static_cast<u_char>(tag), data, size) == 0;
    }
    bool operator()(std::monostate) const { return store(nullptr, 0); }
    bool operator()(std::int64_t number) const {
        const long plain = number;
        return store(&plain, sizeof plain);
    }
    bool operator()(std::uint64_t number) const {
        if (tag == Tag::counter64) {
            const counter64 halves{.high = number >> 32, .low = number & kLowHalf};
            return store(&halves, sizeof halves);
        }
        const u_long plain = number;
        return store(&plain, sizeof plain);
    }
    bool operator()(const std::string& bytes) const { return store(bytes.data(), bytes.size()); }
    bool operator()(const Oid& name) const {
        const std::vector<oid> arcs = toNetSnmp(name);
        return store(arcs.data(), arcs.size() * sizeof(oid));
    }
};

} // namespace

Oid fromNetSnmp(const oid* arcs, std::size_t count) {
    std::vector<Oid::Arc> copy;
    copy.reserve(count);
    for (std::size_t at = 0; at < count; ++at) {
        copy.push_back(static_cast<Oid::Arc>(arcs[at]));
    }
    return Oid(std::move(copy));
}

std::vector<oid> toNetSnmp(const Oid& name) {
    return {name.arcs().begin(), name.arcs().end()};
}

Value valueOf(const netsnmp_variable_list& variable) {
    const auto tag = static_cast<Tag>(variable.type);
    switch (tag) {
    case Tag::integer:
        return integerValue(*variable.val.integer);
    case Tag::counter32:
    case Tag::gauge32:
    case Tag::timeTicks:
        return {tag, static_cast<std::uint64_t>(*variable.val.integer) & kLowHalf};
    case Tag::counter64:
        return {tag, std::uint64_t{variable.val.counter64->high} << 32 |
                         (variable.val.counter64->low & kLowHalf)};
    case Tag::objectId:
        return {tag, fromNetSnmp(variable.val.objid, variable.val_len / sizeof(oid))};
    case Tag::null:
    case Tag::noSuchObject:
    case Tag::noSuchInstance:
    case Tag::endOfMibView:
        return {tag, {}};
    default:
        break;
    }
    std::string bytes;
    if (variable.val.string != nullptr) {
        bytes.assign(reinterpret_cast<const char*>(variable.val.string), variable.val_len);
    }
    return {tag, std::move(bytes)};
}

VarBind bindingOf(const netsnmp_variable_list& variable) {
    return {fromNetSnmp(variable.name, variable.name_length), valueOf(variable)};
}

bool setValue(netsnmp_variable_list& variable, const Value& value) {
    return std::visit(ContentWriter{variable, value.tag}, value.content);
}

} // namespace onudesk
