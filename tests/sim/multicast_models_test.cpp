// SPDX-License-Identifier: MIT
//
// Modules 621 and 626: multicast entries and IGMP limits of ports.
#include "sim_fixture.h"

#include <gtest/gtest.h>

namespace onudesk::sim::test {
namespace {

constexpr const char* kMac = "01005e010203";

std::string entry(int column, const std::string& slot, const std::string& value) {
    return "1.9.6.3.1." + std::to_string(column) + ".1.2.5." + slot + "|" + value;
}
// A SET with all that the page binds.
Lines write(const std::string& slot, const std::string& mac, int vlan, int status) {
    return {entry(1, slot, "2|" + slot.substr(slot.find('.') + 1)), entry(2, slot, "4x|" + mac),
            entry(3, slot, "2|" + std::to_string(vlan)), entry(4, slot, "2|1"),
            entry(7, slot, "2|" + std::to_string(status))};
}

// Ports 1 and 2 with two slots each, and port 3, which cannot be configured, with one. Slot 2 of
// port 1 is filled.
class ControllableMulticast : public testing::Test {
protected:
    static Lines initial() {
        Lines lines;
        for (const std::string slot : {"1.1", "1.2", "2.1", "2.2", "3.1"}) {
            lines.push_back(entry(1, slot, "2|" + slot.substr(2)));
            lines.push_back(entry(2, slot, "4x|000000000000"));
            lines.push_back(entry(3, slot, "2|0"));
            lines.push_back(entry(4, slot, "2|0"));
            lines.push_back(entry(5, slot, "2|3"));
            lines.push_back(entry(6, slot, slot == "3.1" ? "2|0" : "2|1"));
            lines.push_back(entry(7, slot, "2|2"));
        }
        return lines;
    }
    ControllableMulticast() { EXPECT_EQ(set(store_, write("1.2", kMac, 100, 4)), "ok"); }
    // MAC address, VLAN, type and row status.
    [[nodiscard]] std::string slot(const std::string& slot) const {
        std::string text;
        for (const int column : {2, 3, 4, 7}) {
            text += held(store_, "1.9.6.3.1." + std::to_string(column) + ".1.2.5." + slot) + " ";
        }
        return text;
    }

    Store store_ = storeOf(shippedTable(), initial());
};

TEST_F(ControllableMulticast, FillsAndEmptiesSlots) {
    EXPECT_EQ(slot("1.2"), "4x|01005e010203 2|100 2|1 2|1 ");
    carryOut(store_, {
                         {write("1.1", kMac, 101, 4), "ok"},
                         {write("1.1", "01005e010204", 100, 4), "ok"}, // in place of what it held
                         {write("2.2", kMac, 100, 4), "ok"},           // another port
                         {write("1.2", kMac, 100, 4), "ok"},           // once more the same
                         {write("2.2", kMac, 100, 6), "ok"},
                     });
    EXPECT_EQ(slot("1.1"), "4x|01005e010204 2|100 2|1 2|1 ");
    EXPECT_EQ(slot("2.2"), slot("2.1"));
}

TEST_F(ControllableMulticast, RefusesWhatAPortCannotHold) {
    const Lines full = write("1.1", kMac, 101, 4);
    for (const int missing : {1, 2, 3, 4}) {
        Lines bindings = full;
        bindings.erase(bindings.begin() + missing);
        carryOut(store_, {{bindings, "inconsistentValue 1"}});
    }
    carryOut(store_, {
                         {write("1.1", kMac, 100, 4), "inconsistentValue 1"}, // slot 2 has it
                         {write("3.1", kMac, 100, 4), "inconsistentValue 1"}, // not controllable
                         {write("1.1", kMac, 0, 4), "inconsistentValue 1"},
                         {write("1.1", kMac, 101, 5), "inconsistentValue 1"},
                         {write("1.1", kMac, 100, 6), "inconsistentValue 1"}, // empty already
                         {write("1.1", kMac, 4095, 4), "wrongValue 3"},
                         {write("1.1", "01005e0102", 101, 4), "wrongLength 2"},
                         {write("1.3", kMac, 101, 4), "noCreation 1"},
                         {write("4.1", kMac, 101, 6), "noCreation 1"},
                         {{entry(1, "1.1", "2|2")}, "wrongValue 1"},
                         {{entry(6, "3.1", "2|1")}, "notWritable 1"},
                     });
}

TEST(IgmpLimits, ChangeTogether) {
    const auto lists = [](const std::string& list, int status, int onu = 5) {
        const std::string port = "1.2." + std::to_string(onu) + ".1";
        return Lines{"626.1.2.2." + port + "|4|" + list, line("626.1.2.3." + port, status)};
    };
    const auto maximum = [](int groups) { return Lines{line("626.1.2.1.1.2.5.1", groups)}; };
    const std::string before = "2|5 4|8,9,11";
    const std::vector<ModelCase> cases = {
        {"AddKeepsOrder", {{lists("1, 10 - 10 ", 4), "ok"}}, "2|5 4|1,8-11"},
        {"TwoAreNoRange", {{lists("4094,4093,", 4), "ok"}}, "2|5 4|8,9,11,4093,4094"},
        {"ListedAlready", {{lists("8-9", 4), "ok"}}, before},
        {"Remove", {{lists("9,8", 6), "ok"}, {lists("11", 6), "ok"}}, "2|5 4|"},
        {"RemoveWhatIsNotThere", {{lists("8,10", 6), "inconsistentValue 1"}}, before},
        {"TooMany",
         {{lists("1-3", 4), "inconsistentValue 1"},
          {maximum(2), "inconsistentValue 1"},
          {maximum(3), "ok"},
          {lists("1", 4), "inconsistentValue 1"},
          {maximum(256), "wrongValue 1"}},
         "2|3 4|8,9,11"},
        {"NoList",
         {{lists("", 4), "inconsistentValue 1"},
          {lists("1;2", 4), "inconsistentValue 1"},
          {lists("1,,2", 4), "inconsistentValue 1"},
          {lists("1 2", 4), "inconsistentValue 1"},
          {lists("5-", 4), "inconsistentValue 1"},
          {lists("2-1", 4), "inconsistentValue 1"},
          {lists("0", 4), "inconsistentValue 1"},
          {lists("4095", 4), "inconsistentValue 1"}},
         before},
        {"ListAndStatusTogether",
         {{{"626.1.2.2.1.2.5.1|4|8"}, "inconsistentValue 1"},
          {{"626.1.2.3.1.2.5.1|2|4"}, "inconsistentValue 1"},
          {lists("8", 5), "inconsistentValue 1"}},
         before},
        {"LockedOrNotThere",
         {{lists("1", 4, 6), "inconsistentValue 1"},
          {{"626.1.2.1.1.2.6.1|2|6"}, "inconsistentValue 1"},
          {{"626.1.2.1.1.2.5.2|2|6"}, "noCreation 1"},
          {{"626.1.1.1.1.2.6|2|0"}, "notWritable 1"}},
         before},
    };
    // A port with room for five VLANs and three of them, and one of an ONU that is locked.
    const Lines initial = {"626.1.1.1.1.2.5|2|0",        "626.1.1.1.1.2.6|2|1",
                           "626.1.2.1.1.2.5.1|2|5",      "626.1.2.1.1.2.6.1|2|5",
                           "626.1.2.2.1.2.5.1|4|8,9,11", "626.1.2.2.1.2.6.1|4|8",
                           "626.1.2.3.1.2.5.1|2|1",      "626.1.2.3.1.2.6.1|2|1"};
    expectStates(cases, initial, [](const Store& store) {
        return held(store, "626.1.2.1.1.2.5.1") + " " + held(store, "626.1.2.2.1.2.5.1");
    });
}

} // namespace
} // namespace onudesk::sim::test
