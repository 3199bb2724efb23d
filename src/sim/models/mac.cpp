// SPDX-License-Identifier: MIT
#include "sim/models/mac.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace onudesk::sim {

namespace {

constexpr std::size_t kMostEntries = 16;
constexpr std::size_t kRowParts = 4; // the ONU and the number of the entry

constexpr const char* kMac = "onuMacBlackHoleMac";
constexpr const char* kVlan = "onuMacBlackHoleVlan";
constexpr const char* kFull = "onuMacBlackHoleFull";
constexpr const char* kStatus = "onuMacBlackHoleRowStatus";

std::int64_t code(RowStatus status) {
    return rowStatusCode(status);
}

Oid entryOf(const Oid& onu, Oid::Arc number) {
    return onu.joined(Oid{number});
}

SetResult addEntry(const GroupWrite& write, DeviceGroup& list) {
    const Oid onu = write.onu();
    const auto mac = write.bytes(kMac);
    const auto vlan = write.number(kVlan);
    if (write.instance() != entryOf(onu, 1)) {
        return SetStatus::noCreation;
    }
    const std::vector<Oid> entries = list.instances(kMac, onu);
    const bool known = std::ranges::any_of(entries, [&](const Oid& entry) {
        return list.bytes(kMac, entry) == mac && list.number(kVlan, entry) == vlan;
    });
    if (!mac || !vlan || known || entries.size() >= kMostEntries) {
        return SetStatus::inconsistentValue;
    }
    Oid::Arc number = 1;
    while (list.find(kMac, entryOf(onu, number)) != nullptr) {
        ++number;
    }
    const Oid entry = entryOf(onu, number);
    list.put(kMac, entry, octetsValue(*mac));
    list.putNumber(kVlan, entry, *vlan);
    list.putNumber(kStatus, entry, code(RowStatus::active));
    return {};
}

SetResult removeEntry(const GroupWrite& write, DeviceGroup& list) {
    if (list.find(kMac, write.instance()) == nullptr) {
        return SetStatus::inconsistentValue;
    }
    list.remove(write.instance());
    return {};
}

} // namespace

SetResult filterMac(const GroupWrite& write, Device& device) {
    if (write.instance().size() != kRowParts) {
        return SetStatus::noCreation;
    }
    DeviceGroup list = device.group(619, "maintable");
    const auto status = write.number(kStatus);
    SetResult result = SetStatus::inconsistentValue;
    if (status == code(RowStatus::createAndGo)) {
        result = addEntry(write, list);
    } else if (status == code(RowStatus::destroy)) {
        result = removeEntry(write, list);
    }
    // Every row says whether the list is full.
    const std::vector<Oid> entries = list.instances(kMac, write.onu());
    for (const Oid& entry : entries) {
        list.putNumber(kFull, entry, entries.size() >= kMostEntries ? 1 : 0);
    }
    return result;
}

} // namespace onudesk::sim
