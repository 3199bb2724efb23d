// SPDX-License-Identifier: MIT
//
// Module 611: VLANs come, change and go with their memberships.
#include "sim_fixture.h"

#include <gtest/gtest.h>

namespace onudesk::sim::test {
namespace {

using Lines = std::vector<std::string>;

std::string line(int column, int vlan, int value) {
    return "611.1.1." + std::to_string(column) + ".1.2.5." + std::to_string(vlan) + "|2|" +
           std::to_string(value);
}
std::string status(int vlan, int value) {
    return "611.1.2.1.1.2.5." + std::to_string(vlan) + "|2|" + std::to_string(value);
}

// The SET of the page: the VLAN, then membership of both sides, then their tags.
Lines change(int vlan, int pon, int uni, int ponTag, int uniTag) {
    return {status(vlan, 4),       line(1, vlan, vlan),   line(2, vlan, pon), line(4, vlan, uni),
            line(3, vlan, ponTag), line(5, vlan, uniTag), status(vlan, 5)};
}
Lines onPon(int vlan, int tag) {
    return change(vlan, 1, 0, tag, 0);
}
Lines onUni(int vlan, int tag) {
    return change(vlan, 0, 1, 0, tag);
}

// "vlan:pon/tag,uni/tag" of each row.
std::string rows(const Store& store) {
    std::string text;
    const Oid column = enterpriseOid("611.1.1.1.1.2.5");
    for (const auto& [oid, value] : below(store.values(), {}, column)) {
        const auto cell = [&](int number) {
            const Value* held = store.find(enterpriseOid(
                "611.1.1." + std::to_string(number) + ".1.2.5." + oid.tail(column.size()).text()));
            return held == nullptr ? std::string("none") : formatValue(*held).substr(2);
        };
        text += (text.empty() ? "" : " ") + cell(1) + ":" + cell(2) + "/" + cell(3) + "," +
                cell(4) + "/" + cell(5);
    }
    return text;
}

struct Case {
    const char* name;
    std::vector<Lines> sets;
    std::string outcome; // of the last; the others succeed
    std::string rows;
};

class Memberships : public testing::TestWithParam<Case> {};

TEST_P(Memberships, LeaveTheTable) {
    // VLAN 100 untagged on the PON side, 300 on both.
    Store store = storeOf(shippedTable(),
                          {line(1, 100, 100), line(2, 100, 1), line(3, 100, 1), line(4, 100, 0),
                           line(5, 100, 0), line(1, 300, 300), line(2, 300, 1), line(3, 300, 0),
                           line(4, 300, 1), line(5, 300, 1)});
    const std::vector<Lines>& sets = GetParam().sets;
    for (std::size_t at = 0; at < sets.size(); ++at) {
        EXPECT_EQ(set(store, sets[at]), at + 1 == sets.size() ? GetParam().outcome : "ok");
    }
    EXPECT_EQ(rows(store), GetParam().rows);
    EXPECT_EQ(store.find(enterpriseOid("611.1.2.1.1.2.5.100")), nullptr) << "only written";
}

constexpr const char* kBoth = "100:1/1,0/0 300:1/0,1/1";

const Case kCases[] = {
    {"NewOnPon", {onPon(200, 1)}, "ok", "100:1/1,0/0 200:1/1,0/0 300:1/0,1/1"},
    {"NewOnUni", {onUni(1, 0)}, "ok", "1:0/0,1/0 100:1/1,0/0 300:1/0,1/1"},
    {"NewOnBothSidesInTwoSets",
     {onUni(4094, 1), onPon(4094, 0)},
     "ok",
     "100:1/1,0/0 300:1/0,1/1 4094:1/0,1/1"},
    {"SecondSideKeepsTheFirst", {onUni(100, 1)}, "ok", "100:1/1,1/1 300:1/0,1/1"},
    {"OtherTag", {onUni(300, 0)}, "ok", "100:1/1,0/0 300:1/0,1/0"},
    {"LastMembershipTakesTheRow", {onPon(100, 2)}, "ok", "300:1/0,1/1"},
    {"FirstOfTwoMembershipsDoesNot", {onPon(300, 2)}, "ok", "100:1/1,0/0 300:0/0,1/1"},
    {"BothMembershipsOneByOne", {onPon(300, 2), onUni(300, 2)}, "ok", "100:1/1,0/0"},
    {"BothMembershipsAtOnce", {change(300, 1, 1, 2, 2)}, "ok", "100:1/1,0/0"},
    {"EndOfNoMembership", {onUni(100, 2)}, "ok", kBoth},
    {"EndOnANewRow", {onPon(200, 2)}, "ok", kBoth},
    {"NewRowWithoutMembers", {change(200, 0, 0, 1, 1)}, "ok", kBoth},
    {"TagAlone", {{line(3, 300, 1), line(5, 100, 1)}}, "ok", "100:1/1,0/0 300:1/1,1/1"},
    {"NothingWithoutTheFrame", {{line(2, 200, 1)}}, "noCreation 1", kBoth},
    {"FrameValues", {{status(100, 6)}}, "wrongValue 1", kBoth},
    {"VlanOfAnotherRow", {{status(200, 4), line(1, 200, 201)}}, "wrongValue 2", kBoth},
    {"VlanZero", {{status(0, 4), line(2, 0, 1)}}, "noCreation 1", kBoth},
    {"VlanBeyondTheLast", {{status(4095, 4), line(2, 4095, 1)}}, "noCreation 1", kBoth},
    {"VlanOutOfRange", {onPon(4095, 0)}, "noCreation 1", kBoth},
    {"TagOutOfRange", {onPon(200, 3)}, "wrongValue 5", kBoth},
};

INSTANTIATE_TEST_SUITE_P(, Memberships, testing::ValuesIn(kCases),
                         [](const auto& each) { return std::string(each.param.name); });

} // namespace
} // namespace onudesk::sim::test
