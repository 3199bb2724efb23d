// SPDX-License-Identifier: MIT
//
// What models of the ONU see and change: values by the names of the catalogue, as the SET that is
// being carried out leaves them.
//
//     DeviceGroup filter = device.group(619, "maintable");
//     for (const Oid& row : filter.instances("onuMacBlackHoleMac", onu)) …
#pragma once

#include "sim/store.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace onudesk::sim {

// The values of one group. The objects that are named are in the catalogue: a model and its group
// belong together.
class DeviceGroup {
public:
    // Both must outlive this object, which adds to the changes.
    DeviceGroup(const Store& store, Delta& changes, std::int32_t module, std::string_view group);

    // Null when there is no such instance.
    [[nodiscard]] const Value* find(std::string_view object, const Oid& instance) const;
    // The number held there; 0 when there is none.
    [[nodiscard]] std::int64_t number(std::string_view object, const Oid& instance) const;
    // The bytes held there; none when there is no octet string.
    [[nodiscard]] std::string bytes(std::string_view object, const Oid& instance) const;
    // The object's instances at and below an instance, in order.
    [[nodiscard]] std::vector<Oid> instances(std::string_view object, const Oid& above) const;

    void put(std::string_view object, const Oid& instance, Value value);
    void putNumber(std::string_view object, const Oid& instance, std::int64_t number);
    // Removes what the group's objects hold for the instance.
    void remove(const Oid& instance);

private:
    [[nodiscard]] const Oid& column(std::string_view object) const;

    const Store& store_;
    Delta& changes_;
    std::map<std::string, Oid, std::less<>> columns_; // by object
};

class Device {
public:
    // Both must outlive the device, which adds to the changes.
    Device(const Store& store, Delta& changes) : store_(store), changes_(changes) {}

    [[nodiscard]] DeviceGroup group(std::int32_t module, std::string_view name) const {
        return {store_, changes_, module, name};
    }

private:
    const Store& store_;
    Delta& changes_;
};

// What one SET writes to one instance of a group. Types, lengths and ranges were checked.
class GroupWrite {
public:
    explicit GroupWrite(Oid instance) : instance_(std::move(instance)) {}

    // As in 1.2.5.1: what follows the columns of the bindings.
    [[nodiscard]] const Oid& instance() const { return instance_; }
    // The ONU: the first three numbers.
    [[nodiscard]] Oid onu() const { return instance_.head(3); }

    void take(const std::string& object, const Value& value) { values_[object] = value; }
    // Null when the SET does not write the object.
    [[nodiscard]] const Value* find(std::string_view object) const;
    [[nodiscard]] std::optional<std::int64_t> number(std::string_view object) const;
    [[nodiscard]] std::optional<std::string> bytes(std::string_view object) const;

private:
    Oid instance_;
    std::map<std::string, Value, std::less<>> values_; // by object
};

} // namespace onudesk::sim
