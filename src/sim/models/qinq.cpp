// SPDX-License-Identifier: MIT
#include "sim/models/qinq.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace onudesk::sim {

namespace {

constexpr std::size_t kOnuLevels = 3; // numbers of an instance
constexpr std::size_t kPortLevels = 4;
constexpr std::size_t kRowLevels = 5;
constexpr std::size_t kMostRows = 150;
constexpr std::int64_t kLastVlan = 4094;

constexpr std::int64_t kOff = 0;
constexpr std::int64_t kFlexible = 2;

constexpr std::string_view kMode = "onuGlobalQinQMode";
constexpr std::string_view kTpid = "onuGlobalQinQOuterTpid";

// What the rows of the two lists call their objects, and how they tell the ONU's mode.
struct ListNames {
    std::int32_t module;
    std::string_view start;
    std::string_view end;
    std::string_view outer; // empty: ranges have no outer VLAN
    std::string_view rowStatus;
    std::string_view full;
    std::string_view blocked;
    std::string_view otherStart; // of the range that has the same number in the other list
    std::string_view otherEnd;
    std::string_view portNumber; // of the ONU
    std::string_view mode;
    std::int64_t (*modeValue)(std::int64_t mode);
};

constexpr ListNames kInsert = {647,
                               "QinQInsertCvlanStart",
                               "QinQInsertCvlanEnd",
                               "QinQInsertSvlan",
                               "QinQInsertRowStatus",
                               "QinQInsertFull",
                               "QinQInsertBlocked",
                               "QinQInsertOtherStart",
                               "QinQInsertOtherEnd",
                               "QinQInsertPortNumber",
                               "QinQInsertMode",
                               [](std::int64_t mode) { return mode; }};
constexpr ListNames kPass = {648, "QinQPassVlanStart", "QinQPassVlanEnd", "", "QinQPassRowStatus",
                             "QinQPassFull", "QinQPassBlocked", "QinQPassOtherStart",
                             "QinQPassOtherEnd", "QinQPassPortNumber", "QinQPassState",
                             // 0: ranges can be added; 1: static; 2: off.
                             [](std::int64_t mode) { return kFlexible - mode; }};

bool isVlan(std::optional<std::int64_t> number) {
    return number && *number >= 1 && *number <= kLastVlan;
}

Oid rowOf(const Oid& port, Oid::Arc number) {
    return port.joined(Oid{number});
}

// The number of a row, 0 for that of a port without ranges.
Oid::Arc numberOf(const Oid& row) {
    return row.last();
}

// One of the two lists.
class RangeList {
public:
    RangeList(const Device& device, const ListNames& names)
        : names_(names), group_(device.group(names.module, "maintable")) {}

    [[nodiscard]] const ListNames& names() const { return names_; }
    // In order, that of a port without ranges among them.
    [[nodiscard]] std::vector<Oid> rows(const Oid& above) const {
        return group_.instances(names_.start, above);
    }
    [[nodiscard]] bool has(const Oid& row) const {
        return numberOf(row) != 0 && group_.find(names_.start, row) != nullptr;
    }
    [[nodiscard]] bool isFull(const Oid& port) const { return rows(port).size() >= kMostRows; }
    [[nodiscard]] bool isBlocked(const Oid& port) const {
        return group_.number(names_.blocked, rows(port).front()) != 0;
    }
    [[nodiscard]] bool overlaps(const Oid& port, std::int64_t start, std::int64_t end) const {
        return std::ranges::any_of(rows(port), [&](const Oid& row) {
            return group_.number(names_.start, row) <= end &&
                   start <= group_.number(names_.end, row);
        });
    }

    // Rows take from another row of the port what they say of it.
    void add(const Oid& port, const GroupWrite& write) {
        const std::vector<Oid> known = rows(port);
        Oid::Arc number = 1;
        while (has(rowOf(port, number))) {
            ++number;
        }
        const Oid row = rowOf(port, number);
        putRow(row, known.front(), RowStatus::active);
        for (const std::string_view vlan : {names_.start, names_.end, names_.outer}) {
            if (!vlan.empty()) {
                group_.putNumber(vlan, row, *write.number(vlan));
            }
        }
        if (numberOf(known.front()) == 0) {
            group_.remove(known.front());
        }
    }
    void remove(const Oid& row) {
        const Oid port = row.head(kPortLevels);
        if (rows(port).size() == 1) {
            putRow(rowOf(port, 0), row, RowStatus::notReady);
        }
        group_.remove(row);
    }
    // What rows say of their port and of the other list.
    void settle(const Oid& port, const RangeList& other) {
        const bool full = isFull(port);
        for (const Oid& row : rows(port)) {
            group_.putNumber(names_.full, row, full ? 1 : 0);
            group_.putNumber(names_.otherStart, row, other.group_.number(other.names_.start, row));
            group_.putNumber(names_.otherEnd, row, other.group_.number(other.names_.end, row));
        }
    }
    void settleMode(const Oid& onu, std::int64_t mode) {
        for (const Oid& row : rows(onu)) {
            group_.putNumber(names_.mode, row, names_.modeValue(mode));
        }
    }

private:
    // A row without VLANs.
    void putRow(const Oid& row, const Oid& sibling, RowStatus status) {
        for (const std::string_view said : {names_.blocked, names_.portNumber, names_.mode}) {
            group_.putNumber(said, row, group_.number(said, sibling));
        }
        for (const std::string_view vlan : {names_.start, names_.end, names_.outer}) {
            if (!vlan.empty()) {
                group_.putNumber(vlan, row, 0);
            }
        }
        group_.putNumber(names_.rowStatus, row, rowStatusCode(status));
    }

    const ListNames& names_;
    DeviceGroup group_;
};

bool mayAdd(const GroupWrite& write, const Device& device, const RangeList& own,
            const RangeList& other) {
    const ListNames& names = own.names();
    const Oid port = write.instance().head(kPortLevels);
    const auto start = write.number(names.start);
    const auto end = write.number(names.end);
    return device.group(645, "maintable").number(kMode, write.onu()) == kFlexible &&
           isVlan(start) && isVlan(end) && *start <= *end &&
           (names.outer.empty() || isVlan(write.number(names.outer))) && !own.isFull(port) &&
           !own.isBlocked(port) && !own.overlaps(port, *start, *end) &&
           !other.overlaps(port, *start, *end);
}

SetResult writeRange(const GroupWrite& write, const Device& device, const ListNames& ownNames,
                     const ListNames& otherNames) {
    const Oid& row = write.instance();
    RangeList own(device, ownNames);
    RangeList other(device, otherNames);
    if (row.size() != kRowLevels || own.rows(row.head(kPortLevels)).empty()) {
        return SetStatus::noCreation;
    }
    const Oid port = row.head(kPortLevels);
    const auto status = static_cast<RowStatus>(write.number(ownNames.rowStatus).value_or(0));
    if (status == RowStatus::createAndGo && mayAdd(write, device, own, other)) {
        own.add(port, write);
    } else if (status == RowStatus::destroy && own.has(row)) {
        own.remove(row);
    } else {
        return SetStatus::inconsistentValue;
    }
    own.settle(port, other);
    other.settle(port, own);
    return {};
}

} // namespace

SetResult writeQinQMode(const GroupWrite& write, Device& device) {
    const Oid& onu = write.instance();
    DeviceGroup group = device.group(645, "maintable");
    if (onu.size() != kOnuLevels || group.find(kMode, onu) == nullptr) {
        return SetStatus::noCreation;
    }
    if (const auto mode = write.number(kMode)) {
        group.putNumber(kMode, onu, *mode);
        RangeList(device, kInsert).settleMode(onu, *mode);
        RangeList(device, kPass).settleMode(onu, *mode);
    }
    if (const auto tpid = write.number(kTpid)) {
        if (group.number(kMode, onu) == kOff) {
            return SetStatus::inconsistentValue;
        }
        group.putNumber(kTpid, onu, *tpid);
    }
    return {};
}

SetResult writeSVlanInsert(const GroupWrite& write, Device& device) {
    return writeRange(write, device, kInsert, kPass);
}

SetResult writeSVlanPass(const GroupWrite& write, Device& device) {
    return writeRange(write, device, kPass, kInsert);
}

} // namespace onudesk::sim
