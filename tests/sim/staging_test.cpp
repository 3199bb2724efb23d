// SPDX-License-Identifier: MIT
//
// Module 612: what is written to a port and its translation entries waits for the row status.
#include "sim_fixture.h"

#include <gtest/gtest.h>

namespace onudesk::sim::test {
namespace {

std::string portLine(int column, const std::string& port, int value) {
    return line("612.1.1", column, "1.2.5." + port, value);
}
std::string mode(const std::string& port, int value) {
    return portLine(2, port, value);
}
std::string status(const std::string& port, int value) {
    return portLine(6, port, value);
}
std::string entryLine(int column, const std::string& entry, int value) {
    return line("612.1.3", column, "1.2.5." + entry, value);
}
Lines vlans(const std::string& entry, int oldVlan, int newVlan) {
    return {entryLine(4, entry, oldVlan), entryLine(5, entry, newVlan)};
}

// Ports 1 and 2 of one ONU; port 1 has the entries 1 (10 to 1010) and 3 (30 to 1030).
Lines initial() {
    Lines lines;
    for (const int port : {1, 2}) {
        for (int column = 1; column <= 4; ++column) {
            lines.push_back(portLine(column, std::to_string(port), column == 1 ? port : 0));
        }
        lines.push_back(status(std::to_string(port), 1));
    }
    for (const int entry : {1, 3}) {
        for (int column = 1; column <= 5; ++column) {
            const int values[] = {entry, 33024, 33024, 10 * entry, 1000 + 10 * entry};
            lines.push_back(entryLine(column, "1." + std::to_string(entry), values[column - 1]));
        }
    }
    return lines;
}

// " entry:old>new" of each entry of the port.
std::string entries(const Store& store, const std::string& port) {
    std::string text;
    for (int entry = 0; entry <= 9; ++entry) {
        const auto value = [&](int column) {
            return valueOf(store, "612.1.3." + std::to_string(column) + ".1.2.5." + port + "." +
                                      std::to_string(entry));
        };
        if (!value(1).empty() || !value(4).empty()) {
            text += " " + value(1) + ":" + value(4) + ">" + value(5);
        }
    }
    return text;
}

const std::string kBoth = "port 1: 1:10>1010 3:30>1030, port 2:";

TEST(Staging, LeavesTheEntries) {
    const std::vector<ModelCase> cases = {
        {"NothingBeforeTheStatus", {{vlans("1.1", 20, 1020), "ok"}}, kBoth},
        {"AddTakesTheFreeNumber",
         {{vlans("1.1", 20, 1020), "ok"}, {{status("1", 4)}, "ok"}},
         "port 1: 1:10>1010 2:20>1020 3:30>1030, port 2:"},
        {"AddTwiceAddsTwo",
         {{vlans("2.1", 20, 1020), "ok"},
          {{status("2", 4)}, "ok"},
          {vlans("2.1", 21, 1020), "ok"},
          {{status("2", 4)}, "ok"}},
         kBoth + " 1:20>1020 2:21>1020"},
        {"AddIsDoneOnce",
         {{vlans("2.1", 20, 1020), "ok"}, {{status("2", 4)}, "ok"}, {{status("2", 4)}, "ok"}},
         kBoth + " 1:20>1020"},
        {"AddInOneSet",
         {{{entryLine(4, "2.5", 20), entryLine(5, "2.5", 21), status("2", 4)}, "ok"}},
         kBoth + " 1:20>21"},
        {"WritesOfOneEntryAddUpWithinASet",
         {{{entryLine(4, "2.1", 20), entryLine(4, "2.1", 22), entryLine(5, "2.1", 21)}, "ok"},
          {{status("2", 4)}, "ok"}},
         kBoth + " 1:22>21"},
        {"DeleteByNumberOnce",
         {{vlans("1.3", 30, 1030), "ok"},
          {{status("1", 6)}, "ok"},
          {{status("1", 6)}, "inconsistentValue 1"}},
         "port 1: 1:10>1010, port 2:"},
        {"DeleteNeedsAnEntry",
         {{{status("1", 6)}, "inconsistentValue 1"},
          {vlans("1.2", 30, 1030), "ok"},
          {{status("1", 6)}, "inconsistentValue 1"},
          {{mode("1", 2)}, "ok"},
          {{status("1", 6)}, "inconsistentValue 1"}},
         kBoth},
        {"PortsAreIndependent",
         {{vlans("1.1", 20, 1020), "ok"},
          {vlans("2.1", 10, 1010), "ok"},
          {{status("2", 4)}, "ok"},
          {{status("1", 4)}, "ok"}},
         "port 1: 1:10>1010 2:20>1020 3:30>1030, port 2: 1:10>1010"},
        {"OldVlanOnceInAPort",
         {{vlans("1.1", 30, 1), "ok"},
          {{status("1", 4)}, "inconsistentValue 1"},
          // the next SET starts afresh
          {{mode("1", 1), status("1", 4)}, "ok"}},
         kBoth},
        {"NewVlanAsOftenAsWanted",
         {{vlans("1.1", 20, 1010), "ok"}, {{status("1", 4)}, "ok"}},
         "port 1: 1:10>1010 2:20>1010 3:30>1030, port 2:"},
        {"OldVlanIsNeeded",
         {{{entryLine(5, "2.1", 21)}, "ok"}, {{status("2", 4)}, "inconsistentValue 1"}},
         kBoth},
        {"FailedSetLeavesWhatWaits",
         {{vlans("2.1", 20, 1020), "ok"},
          {{entryLine(4, "2.4", 99), entryLine(5, "2.4", 4095)}, "wrongValue 2"},
          {{mode("2", 1), mode("7", 1)}, "noCreation 2"},
          {{status("2", 4)}, "ok"}},
         kBoth + " 1:20>1020"},
        {"OneEntryAtATime",
         {{{entryLine(4, "2.1", 20), entryLine(4, "2.2", 21)}, "inconsistentValue 2"},
          {{status("2", 4)}, "ok"}},
         kBoth},
        {"OnlyWhatExistsAndFits",
         {{vlans("2.0", 20, 21), "noCreation 1"},
          {vlans("2.9", 20, 21), "noCreation 1"},
          {vlans("7.1", 20, 21), "noCreation 1"},
          {vlans("2", 20, 21), "noCreation 1"},
          {{mode("7", 1)}, "noCreation 1"},
          {{mode("2.1", 1)}, "noCreation 1"},
          {{status("7", 4)}, "noCreation 1"},
          {{status("7", 6)}, "inconsistentValue 1"},
          {{status("2", 2)}, "wrongValue 1"},
          {{status("2", 5)}, "wrongValue 1"},
          {{entryLine(1, "1.1", 2)}, "notWritable 1"}},
         kBoth},
    };
    expectStates(cases, initial(), [](const Store& store) {
        EXPECT_EQ(held(store, "612.1.1.6.1.2.5.1") + held(store, "612.1.1.6.1.2.5.2"), "2|12|1");
        return "port 1:" + entries(store, "1") + ", port 2:" + entries(store, "2");
    });
}

class PortVlans : public testing::Test {
protected:
    Store store_ = storeOf(shippedTable(), initial());
};

TEST_F(PortVlans, APortHasEightEntries) {
    for (int entry = 1; entry <= 8; ++entry) {
        ASSERT_EQ(set(store_, vlans("2.1", entry, 100)), "ok");
        ASSERT_EQ(set(store_, {status("2", 4)}), "ok") << entry;
    }
    ASSERT_EQ(set(store_, vlans("2.1", 9, 100)), "ok");
    EXPECT_EQ(set(store_, {status("2", 4)}), "inconsistentValue 1");
    EXPECT_TRUE(entries(store_, "2").ends_with(" 8:8>100"));
}

TEST_F(PortVlans, PortValuesWaitAndADeleteDropsThem) {
    ASSERT_EQ(set(store_, {mode("1", 2), portLine(4, "1", 8100), entryLine(4, "1.3", 30)}), "ok");
    expectHeld(store_, {portLine(2, "1", 0)});
    ASSERT_EQ(set(store_, {status("1", 6)}), "ok");
    expectHeld(store_, {portLine(4, "1", 0)});
    ASSERT_EQ(set(store_, {status("1", 4)}), "ok");
    expectHeld(store_, {portLine(2, "1", 0)});
    ASSERT_EQ(set(store_, {mode("1", 1), portLine(3, "1", 100), status("1", 4)}), "ok");
    expectHeld(store_, {portLine(2, "1", 1)});
    expectHeld(store_, {portLine(3, "1", 100)});
}

TEST_F(PortVlans, NewEntriesAreComplete) {
    ASSERT_EQ(set(store_, {entryLine(4, "2.1", 20), status("2", 4)}), "ok");
    expectHeld(store_, {entryLine(1, "2.1", 1), entryLine(2, "2.1", 0), entryLine(3, "2.1", 0),
                        entryLine(4, "2.1", 20), entryLine(5, "2.1", 0)});
}

// Whoever takes a change back, as the agent library may, gets what waited before.
TEST_F(PortVlans, UndoneChangesLeaveWhatWaited) {
    ASSERT_EQ(set(store_, vlans("2.1", 20, 1020)), "ok");
    const auto changes = store_.prepare({{enterpriseOid("612.1.1.6.1.2.5.2"), integerValue(4)}});
    ASSERT_TRUE(changes);
    const Changes undo = store_.apply(*changes);
    EXPECT_TRUE(store_.staged().empty());
    EXPECT_EQ(entries(store_, "2"), " 1:20>1020");
    store_.apply(undo);
    EXPECT_EQ(entries(store_, "2"), "");
    ASSERT_EQ(set(store_, {status("2", 4)}), "ok");
    EXPECT_EQ(entries(store_, "2"), " 1:20>1020");
}

} // namespace
} // namespace onudesk::sim::test
