// SPDX-License-Identifier: MIT
//
// Module 611: VLANs come, change and go with their memberships.
#include "sim_fixture.h"

#include <gtest/gtest.h>

namespace onudesk::sim::test {
namespace {

std::string cell(int column, int vlan, int value) {
    return line("611.1.1", column, "1.2.5." + std::to_string(vlan), value);
}
std::string status(int vlan, int value) {
    return line("611.1.2.1.1.2.5." + std::to_string(vlan), value);
}

// The SET of the page: the VLAN, then membership of both sides, then their tags.
Lines change(int vlan, int pon, int uni, int ponTag, int uniTag) {
    return {status(vlan, 4),       cell(1, vlan, vlan),   cell(2, vlan, pon), cell(4, vlan, uni),
            cell(3, vlan, ponTag), cell(5, vlan, uniTag), status(vlan, 5)};
}
Lines onPon(int vlan, int tag) {
    return change(vlan, 1, 0, tag, 0);
}
Lines onUni(int vlan, int tag) {
    return change(vlan, 0, 1, 0, tag);
}

// "vlan:pon/tag,uni/tag" of each row.
std::string rows(const Store& store) {
    EXPECT_EQ(held(store, "611.1.2.1.1.2.5.100"), "") << "only written";
    std::string text;
    const Oid column = enterpriseOid("611.1.1.1.1.2.5");
    for (const auto& [oid, vlan] : below(store.values(), {}, column)) {
        const auto value = [&, row = oid.tail(column.size()).text()](int number) {
            return valueOf(store, "611.1.1." + std::to_string(number) + ".1.2.5." + row);
        };
        text += (text.empty() ? "" : " ") + value(1) + ":" + value(2) + "/" + value(3) + "," +
                value(4) + "/" + value(5);
    }
    return text;
}

TEST(Memberships, LeaveTheTable) {
    // VLAN 100 untagged on the PON side, 300 on both.
    const Lines initial = {cell(1, 100, 100), cell(2, 100, 1),   cell(3, 100, 1), cell(4, 100, 0),
                           cell(5, 100, 0),   cell(1, 300, 300), cell(2, 300, 1), cell(3, 300, 0),
                           cell(4, 300, 1),   cell(5, 300, 1)};
    const char* const before = "100:1/1,0/0 300:1/0,1/1";
    const std::vector<ModelCase> cases = {
        {"NewOnPon", {{onPon(200, 1), "ok"}}, "100:1/1,0/0 200:1/1,0/0 300:1/0,1/1"},
        {"NewOnUni", {{onUni(1, 0), "ok"}}, "1:0/0,1/0 100:1/1,0/0 300:1/0,1/1"},
        {"NewOnBothSidesInTwoSets",
         {{onUni(4094, 1), "ok"}, {onPon(4094, 0), "ok"}},
         "100:1/1,0/0 300:1/0,1/1 4094:1/0,1/1"},
        {"SecondSideKeepsTheFirst", {{onUni(100, 1), "ok"}}, "100:1/1,1/1 300:1/0,1/1"},
        {"OtherTag", {{onUni(300, 0), "ok"}}, "100:1/1,0/0 300:1/0,1/0"},
        {"LastMembershipTakesTheRow", {{onPon(100, 2), "ok"}}, "300:1/0,1/1"},
        {"FirstOfTwoMembershipsDoesNot", {{onPon(300, 2), "ok"}}, "100:1/1,0/0 300:0/0,1/1"},
        {"BothMembershipsOneByOne", {{onPon(300, 2), "ok"}, {onUni(300, 2), "ok"}}, "100:1/1,0/0"},
        {"BothMembershipsAtOnce", {{change(300, 1, 1, 2, 2), "ok"}}, "100:1/1,0/0"},
        {"TagAlone", {{{cell(3, 300, 1), cell(5, 100, 1)}, "ok"}}, "100:1/1,0/0 300:1/1,1/1"},
        {"EndOfNoMembership", {{onUni(100, 2), "ok"}}, before},
        {"EndOnANewRow", {{onPon(200, 2), "ok"}}, before},
        {"NewRowWithoutMembers", {{change(200, 0, 0, 1, 1), "ok"}}, before},
        {"OnlyWhatExistsAndFits",
         {{{cell(2, 200, 1)}, "noCreation 1"}, // without the frame
          {{status(100, 6)}, "wrongValue 1"},
          {{status(200, 4), cell(1, 200, 201)}, "wrongValue 2"},
          {{status(0, 4), cell(2, 0, 1)}, "noCreation 1"},
          {{status(4095, 4), cell(2, 4095, 1)}, "noCreation 1"},
          {onPon(4095, 0), "noCreation 1"},
          {onPon(200, 3), "wrongValue 5"}},
         before},
    };
    expectStates(cases, initial, rows);
}

} // namespace
} // namespace onudesk::sim::test
