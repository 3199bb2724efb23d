// SPDX-License-Identifier: MIT
#include "sim/models/multicast.h"

#include "base/numbers.h"

#include <algorithm>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>
#include <string>

namespace onudesk::sim {

namespace {

constexpr auto kFill = rowStatusCode(RowStatus::createAndGo);
constexpr auto kEmpty = rowStatusCode(RowStatus::destroy);
constexpr std::size_t kMacBytes = 6;
constexpr int kLastVlan = 4094;

using Vlans = std::set<int>;

// Numbers and ranges between commas, with blanks around numbers; descending ranges add nothing.
// Nothing for anything else.
std::optional<Vlans> vlansOf(const std::string& list) {
    static const std::regex kPiece(R"(\s*(\d{1,9})\s*(-\s*(\d{1,9})\s*)?)");
    Vlans vlans;
    std::istringstream pieces(list);
    for (std::string piece; std::getline(pieces, piece, ',');) {
        std::smatch match;
        if (!std::regex_match(piece, match, kPiece)) {
            return std::nullopt;
        }
        const int first = leadingInteger(match[1].str());
        const int last = match[3].matched ? leadingInteger(match[3].str()) : first;
        if (std::min(first, last) < 1 || std::max(first, last) > kLastVlan) {
            return std::nullopt;
        }
        for (int vlan = first; vlan <= last; ++vlan) {
            vlans.insert(vlan);
        }
    }
    return vlans;
}

// Three and more VLANs in a row as a range: "8,9,11-15".
std::string textOf(const Vlans& vlans) {
    std::string text;
    for (auto at = vlans.begin(); at != vlans.end();) {
        const int first = *at;
        int last = first;
        while (++at != vlans.end() && *at == last + 1) {
            ++last;
        }
        if (last == first + 1) { // two are no range
            --at;
            last = first;
        }
        text += text.empty() ? "" : ",";
        text += std::to_string(first);
        text += last == first ? "" : "-" + std::to_string(last);
    }
    return text;
}

// True when another filled slot of the port has the address and VLAN.
bool isTaken(const DeviceGroup& slots, const GroupWrite& write) {
    const Oid port = write.instance().head(write.instance().size() - 1);
    return std::ranges::any_of(slots.instances("multiMac", port), [&](const Oid& other) {
        return other != write.instance() &&
               slots.bytes("multiMac", other) == write.bytes("multiMac") &&
               slots.number("multiVlan", other) == write.number("multiVlan");
    });
}

bool mayFill(const DeviceGroup& slots, const GroupWrite& write) {
    return slots.number("multiControllable", write.instance()) == 1 && write.find("multiMac") &&
           write.find("multiType") && write.number("multiVlan").value_or(0) != 0 &&
           !isTaken(slots, write);
}

// The port's VLANs after the write; nothing when it cannot be carried out.
std::optional<Vlans> changedVlans(const DeviceGroup& ports, const GroupWrite& write,
                                  std::int64_t status) {
    const auto written = vlansOf(write.bytes("lanMultiVlanList").value_or(std::string()));
    auto vlans = vlansOf(ports.bytes("lanMultiVlanList", write.instance()));
    if (!written || written->empty() || !vlans) {
        return std::nullopt;
    }
    if (status == kFill) {
        vlans->insert(written->begin(), written->end());
        return vlans;
    }
    if (status != kEmpty || !std::ranges::includes(*vlans, *written)) {
        return std::nullopt;
    }
    std::erase_if(*vlans, [&](int vlan) { return written->contains(vlan); });
    return vlans;
}

} // namespace

SetResult writeControllableMulticast(const GroupWrite& write, Device& device) {
    DeviceGroup slots = device.group(621, "maintable");
    const Oid& slot = write.instance();
    const std::int64_t status = write.number("multiRowStatus").value_or(0);
    if (slots.find("multiMac", slot) == nullptr) {
        return SetStatus::noCreation;
    }
    if (status == kFill) {
        if (!mayFill(slots, write)) {
            return SetStatus::inconsistentValue;
        }
        slots.put("multiMac", slot, *write.find("multiMac"));
        slots.put("multiVlan", slot, *write.find("multiVlan"));
        slots.put("multiType", slot, *write.find("multiType"));
        slots.putNumber("multiRowStatus", slot, rowStatusCode(RowStatus::active));
        return {};
    }
    if (status != kEmpty || slots.number("multiVlan", slot) == 0) {
        return SetStatus::inconsistentValue;
    }
    slots.put("multiMac", slot, octetsValue(std::string(kMacBytes, '\0')));
    slots.putNumber("multiVlan", slot, 0);
    slots.putNumber("multiType", slot, 0);
    slots.putNumber("multiRowStatus", slot, rowStatusCode(RowStatus::notInService));
    return {};
}

SetResult writeIgmpLimits(const GroupWrite& write, Device& device) {
    DeviceGroup ports = device.group(626, "maintable");
    const Oid& port = write.instance();
    if (ports.find("lanMultiMaxGrp", port) == nullptr) {
        return SetStatus::noCreation;
    }
    if (device.group(626, "group1").number("lanMultiLock", write.onu()) != 0) {
        return SetStatus::inconsistentValue;
    }
    const auto maximum = write.number("lanMultiMaxGrp");
    if (maximum) {
        ports.putNumber("lanMultiMaxGrp", port, *maximum);
    }
    auto vlans = vlansOf(ports.bytes("lanMultiVlanList", port));
    if (write.find("lanMultiVlanList") != nullptr || write.find("lanMultiRowStatus") != nullptr) {
        vlans = changedVlans(ports, write, write.number("lanMultiRowStatus").value_or(0));
    }
    if (!vlans || std::ssize(*vlans) > ports.number("lanMultiMaxGrp", port)) {
        return SetStatus::inconsistentValue;
    }
    ports.put("lanMultiVlanList", port, octetsValue(textOf(*vlans)));
    return {};
}

} // namespace onudesk::sim
