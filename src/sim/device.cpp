// SPDX-License-Identifier: MIT
#include "sim/device.h"

#include <utility>

namespace onudesk::sim {

namespace {

std::optional<std::int64_t> numberIn(const Value* value) {
    return value == nullptr ? std::nullopt : numberOf(*value);
}

std::optional<std::string> bytesIn(const Value* value) {
    const auto* bytes = value == nullptr ? nullptr : std::get_if<std::string>(&value->content);
    return bytes == nullptr ? std::nullopt : std::optional(*bytes);
}

} // namespace

DeviceGroup::DeviceGroup(const Store& store, Delta& changes, std::int32_t module,
                         std::string_view group)
    : store_(store), changes_(changes), columns_(store.objects().columns(module, group)) {}

const Oid& DeviceGroup::column(std::string_view object) const {
    return columns_.find(object)->second;
}

const Value* DeviceGroup::find(std::string_view object, const Oid& instance) const {
    return lookUp(store_.values(), changes_, column(object).joined(instance));
}

std::int64_t DeviceGroup::number(std::string_view object, const Oid& instance) const {
    return numberIn(find(object, instance)).value_or(0);
}

std::string DeviceGroup::bytes(std::string_view object, const Oid& instance) const {
    return bytesIn(find(object, instance)).value_or(std::string());
}

std::vector<Oid> DeviceGroup::instances(std::string_view object, const Oid& above) const {
    const Oid& top = column(object);
    std::vector<Oid> found;
    for (const auto& [oid, value] : below(store_.values(), changes_, top.joined(above))) {
        found.push_back(oid.tail(top.size()));
    }
    return found;
}

void DeviceGroup::put(std::string_view object, const Oid& instance, Value value) {
    changes_[column(object).joined(instance)] = std::move(value);
}

void DeviceGroup::putNumber(std::string_view object, const Oid& instance, std::int64_t number) {
    put(object, instance, integerValue(number));
}

void DeviceGroup::remove(const Oid& instance) {
    for (const auto& [object, column] : columns_) {
        changes_[column.joined(instance)] = std::nullopt;
    }
}

const Value* GroupWrite::find(std::string_view object) const {
    const auto found = values_.find(object);
    return found == values_.end() ? nullptr : &found->second;
}

std::optional<std::int64_t> GroupWrite::number(std::string_view object) const {
    return numberIn(find(object));
}

std::optional<std::string> GroupWrite::bytes(std::string_view object) const {
    return bytesIn(find(object));
}

} // namespace onudesk::sim
