// SPDX-License-Identifier: MIT
#include "sim/device.h"

#include <utility>

namespace onudesk::sim {

DeviceGroup::DeviceGroup(const AgentState& state, Delta& changes, std::int32_t module,
                         std::string_view group)
    : state_(state), changes_(changes), columns_(state.objects().columns(module, group)) {}

const Oid& DeviceGroup::column(std::string_view object) const {
    return columns_.find(object)->second;
}

const Value* DeviceGroup::find(std::string_view object, const Oid& instance) const {
    return lookUp(state_.values(), changes_, column(object).joined(instance));
}

std::int64_t DeviceGroup::number(std::string_view object, const Oid& instance) const {
    const Value* value = find(object, instance);
    return value == nullptr ? 0 : numberOf(*value).value_or(0);
}

std::string DeviceGroup::bytes(std::string_view object, const Oid& instance) const {
    const Value* value = find(object, instance);
    const std::string* bytes = value == nullptr ? nullptr : bytesOf(*value);
    return bytes == nullptr ? std::string() : *bytes;
}

std::vector<Oid> DeviceGroup::instances(std::string_view object, const Oid& above) const {
    const Oid& top = column(object);
    std::vector<Oid> found;
    for (const auto& [oid, value] : below(state_.values(), changes_, top.joined(above))) {
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

} // namespace onudesk::sim
