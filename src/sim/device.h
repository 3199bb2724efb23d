// SPDX-License-Identifier: MIT
//
// What models of the ONU see and change: values by the names of the catalogue, as the SET that is
// being carried out leaves them.
//
//     DeviceGroup filter = device.group(619, "maintable");
//     for (const Oid& row : filter.instances("onuMacBlackHoleMac", onu)) …
#pragma once

#include "snmp/rules/agent_state.h"
#include "snmp/rules/group_write.h"
#include "snmp/rules/set_status.h"

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
    DeviceGroup(const AgentState& state, Delta& changes, std::int32_t module,
                std::string_view group);

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

    const AgentState& state_;
    Delta& changes_;
    std::map<std::string, Oid, std::less<>> columns_; // by object
};

class Device {
public:
    // Both must outlive the device, which adds to the changes.
    Device(const AgentState& state, Delta& changes) : state_(state), changes_(changes) {}

    [[nodiscard]] DeviceGroup group(std::int32_t module, std::string_view name) const {
        return {state_, changes_, module, name};
    }

private:
    const AgentState& state_;
    Delta& changes_;
};

} // namespace onudesk::sim
