// SPDX-License-Identifier: MIT
//
// Module 612: what is written to a port and its translation entries waits for the row status.
#include "sim_fixture.h"

#include <gtest/gtest.h>

namespace onudesk::sim::test {
namespace {

using Lines = std::vector<std::string>;

std::string portLine(int column, const std::string& port, int value) {
    return "612.1.1." + std::to_string(column) + ".1.2.5." + port + "|2|" + std::to_string(value);
}
std::string mode(const std::string& port, int value) {
    return portLine(2, port, value);
}
std::string status(const std::string& port, int value) {
    return portLine(6, port, value);
}
std::string entryLine(int column, const std::string& entry, int value) {
    return "612.1.3." + std::to_string(column) + ".1.2.5." + entry + "|2|" + std::to_string(value);
}
Lines vlans(const std::string& entry, int oldVlan, int newVlan) {
    return {entryLine(4, entry, oldVlan), entryLine(5, entry, newVlan)};
}

// Ports 1 and 2 of one ONU; port 1 has the entries 1 (10 to 1010) and 3 (30 to 1030).
class PortVlans : public testing::Test {
protected:
    static Lines initial() {
        Lines lines;
        for (const char* port : {"1", "2"}) {
            for (int column = 1; column <= 4; ++column) {
                lines.push_back(portLine(column, port, column == 1 ? *port - '0' : 0));
            }
            lines.push_back(status(port, 1));
        }
        for (const int entry : {1, 3}) {
            for (int column = 1; column <= 5; ++column) {
                const int values[] = {entry, 33024, 33024, 10 * entry, 1000 + 10 * entry};
                lines.push_back(
                    entryLine(column, "1." + std::to_string(entry), values[column - 1]));
            }
        }
        return lines;
    }
    // "entry:old>new" of each entry of the port.
    [[nodiscard]] std::string entries(const std::string& port) const {
        std::string text;
        for (int entry = 0; entry <= 9; ++entry) {
            const auto value = [&](int column) {
                const Value* held =
                    store_.find(enterpriseOid("612.1.3." + std::to_string(column) + ".1.2.5." +
                                              port + "." + std::to_string(entry)));
                return held == nullptr ? std::string() : formatValue(*held).substr(2);
            };
            if (!value(1).empty() || !value(4).empty()) {
                text += (text.empty() ? "" : " ") + value(1) + ":" + value(4) + ">" + value(5);
            }
        }
        return text;
    }

    Store store_ = storeOf(shippedTable(), initial());
};

struct StagingCase {
    const char* name;
    std::vector<Step> steps; // one SET each
    std::string first;       // entries of the two ports in the end
    std::string second;
};

class Staging : public PortVlans, public testing::WithParamInterface<StagingCase> {};

constexpr const char* kBoth = "1:10>1010 3:30>1030";

TEST_P(Staging, LeavesTheEntries) {
    carryOut(store_, GetParam().steps);
    EXPECT_EQ(entries("1"), GetParam().first);
    EXPECT_EQ(entries("2"), GetParam().second);
    for (const char* port : {"1", "2"}) {
        EXPECT_EQ(*store_.find(enterpriseOid(std::string("612.1.1.6.1.2.5.") + port)),
                  integerValue(1));
    }
}

const StagingCase kCases[] = {
    {"NothingBeforeTheStatus", {{vlans("1.1", 20, 1020), "ok"}}, kBoth, ""},
    {"AddTakesTheFreeNumber",
     {{vlans("1.1", 20, 1020), "ok"}, {{status("1", 4)}, "ok"}},
     "1:10>1010 2:20>1020 3:30>1030",
     ""},
    {"AddTwiceAddsTwo",
     {{vlans("2.1", 20, 1020), "ok"},
      {{status("2", 4)}, "ok"},
      {vlans("2.1", 21, 1020), "ok"},
      {{status("2", 4)}, "ok"}},
     kBoth,
     "1:20>1020 2:21>1020"},
    {"AddIsDoneOnce",
     {{vlans("2.1", 20, 1020), "ok"}, {{status("2", 4)}, "ok"}, {{status("2", 4)}, "ok"}},
     kBoth,
     "1:20>1020"},
    {"AddInOneSet",
     {{{entryLine(4, "2.5", 20), entryLine(5, "2.5", 21), status("2", 4)}, "ok"}},
     kBoth,
     "1:20>21"},
    {"WritesOfOneEntryAddUpWithinASet",
     {{{entryLine(4, "2.1", 20), entryLine(4, "2.1", 22), entryLine(5, "2.1", 21)}, "ok"},
      {{status("2", 4)}, "ok"}},
     kBoth,
     "1:22>21"},
    {"DeleteByNumber", {{vlans("1.3", 30, 1030), "ok"}, {{status("1", 6)}, "ok"}}, "1:10>1010", ""},
    {"DeleteNeedsAnEntry",
     {{{status("1", 6)}, "inconsistentValue 1"},
      {vlans("1.2", 30, 1030), "ok"},
      {{status("1", 6)}, "inconsistentValue 1"},
      {{mode("1", 2)}, "ok"},
      {{status("1", 6)}, "inconsistentValue 1"}},
     kBoth,
     ""},
    {"DeleteIsDoneOnce",
     {{vlans("1.3", 30, 1030), "ok"},
      {{status("1", 6)}, "ok"},
      {{status("1", 6)}, "inconsistentValue 1"}},
     "1:10>1010",
     ""},
    {"PortsAreIndependent",
     {{vlans("1.1", 20, 1020), "ok"},
      {vlans("2.1", 10, 1010), "ok"},
      {{status("2", 4)}, "ok"},
      {{status("1", 4)}, "ok"}},
     "1:10>1010 2:20>1020 3:30>1030",
     "1:10>1010"},
    {"OldVlanOnceInAPort",
     {{vlans("1.1", 30, 1), "ok"}, {{status("1", 4)}, "inconsistentValue 1"}},
     kBoth,
     ""},
    {"NewVlanAsOftenAsWanted",
     {{vlans("1.1", 20, 1010), "ok"}, {{status("1", 4)}, "ok"}},
     "1:10>1010 2:20>1010 3:30>1030",
     ""},
    {"OldVlanIsNeeded",
     {{{entryLine(5, "2.1", 21)}, "ok"}, {{status("2", 4)}, "inconsistentValue 1"}},
     kBoth,
     ""},
    {"NextSetStartsAfresh",
     {{vlans("1.1", 30, 1), "ok"},
      {{status("1", 4)}, "inconsistentValue 1"},
      {{mode("1", 1), status("1", 4)}, "ok"}},
     kBoth,
     ""},
    {"FailedSetLeavesWhatWaits",
     {{vlans("2.1", 20, 1020), "ok"},
      {{entryLine(4, "2.4", 99), entryLine(5, "2.4", 4095)}, "wrongValue 2"},
      {{mode("2", 1), mode("7", 1)}, "noCreation 2"},
      {{status("2", 4)}, "ok"}},
     kBoth,
     "1:20>1020"},
    {"OneEntryAtATime",
     {{{entryLine(4, "2.1", 20), entryLine(4, "2.2", 21)}, "inconsistentValue 2"},
      {{status("2", 4)}, "ok"}},
     kBoth,
     ""},
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
     kBoth,
     ""},
};

INSTANTIATE_TEST_SUITE_P(, Staging, testing::ValuesIn(kCases),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_F(PortVlans, APortHasEightEntries) {
    for (int entry = 1; entry <= 8; ++entry) {
        ASSERT_EQ(set(store_, vlans("2.1", entry, 100)), "ok");
        ASSERT_EQ(set(store_, {status("2", 4)}), "ok") << entry;
    }
    ASSERT_EQ(set(store_, vlans("2.1", 9, 100)), "ok");
    EXPECT_EQ(set(store_, {status("2", 4)}), "inconsistentValue 1");
    EXPECT_EQ(entries("2").substr(entries("2").rfind(' ')), " 8:8>100");
}

TEST_F(PortVlans, PortValuesWaitAndADeleteDropsThem) {
    const auto held = [&](int column) {
        return *store_.find(enterpriseOid("612.1.1." + std::to_string(column) + ".1.2.5.1"));
    };
    ASSERT_EQ(set(store_, {mode("1", 2), portLine(4, "1", 8100), entryLine(4, "1.3", 30)}), "ok");
    EXPECT_EQ(held(2), integerValue(0));
    ASSERT_EQ(set(store_, {status("1", 6)}), "ok");
    EXPECT_EQ(held(4), integerValue(0));
    ASSERT_EQ(set(store_, {status("1", 4)}), "ok");
    EXPECT_EQ(held(2), integerValue(0));
    ASSERT_EQ(set(store_, {mode("1", 1), portLine(3, "1", 100), status("1", 4)}), "ok");
    EXPECT_EQ(held(2), integerValue(1));
    EXPECT_EQ(held(3), integerValue(100));
}

TEST_F(PortVlans, NewEntriesAreComplete) {
    ASSERT_EQ(set(store_, {entryLine(4, "2.1", 20), status("2", 4)}), "ok");
    for (int column = 1; column <= 5; ++column) {
        const int expected[] = {1, 0, 0, 20, 0};
        const Oid oid = enterpriseOid("612.1.3." + std::to_string(column) + ".1.2.5.2.1");
        ASSERT_NE(store_.find(oid), nullptr) << column;
        EXPECT_EQ(*store_.find(oid), integerValue(expected[column - 1])) << column;
    }
}

// Whoever takes a change back, as the agent library may, gets what waited before.
TEST_F(PortVlans, UndoneChangesLeaveWhatWaited) {
    ASSERT_EQ(set(store_, vlans("2.1", 20, 1020)), "ok");
    auto outcome = store_.prepare({{enterpriseOid("612.1.1.6.1.2.5.2"), integerValue(4)}});
    ASSERT_TRUE(std::holds_alternative<Changes>(outcome));
    const Changes undo = store_.apply(std::get<Changes>(outcome));
    EXPECT_TRUE(store_.staged().empty());
    EXPECT_EQ(entries("2"), "1:20>1020");
    store_.apply(undo);
    EXPECT_EQ(entries("2"), "");
    ASSERT_EQ(set(store_, {status("2", 4)}), "ok");
    EXPECT_EQ(entries("2"), "1:20>1020");
}

} // namespace
} // namespace onudesk::sim::test
