// SPDX-License-Identifier: MIT
//
// Module 619: what the ONU does with entries of its MAC filter.
#include "sim_fixture.h"

#include <gtest/gtest.h>

namespace onudesk::sim::test {
namespace {

std::string mac(int last, const std::string& row) {
    return "1.9.5.2.1.1." + row + "|4x|0a00000000" + std::to_string(last);
}
std::string vlan(int number, const std::string& row) {
    return line("1.9.5.2.1.2." + row, number);
}
std::string status(int wanted, const std::string& row) {
    return line("1.9.5.2.1.4." + row, wanted);
}
Lines entry(const std::string& row, int last, int number) {
    return {mac(last, row), vlan(number, row), line("1.9.5.2.1.3." + row, 0), status(1, row)};
}
// A SET that adds an entry.
Lines addition(int last, int number) {
    return {mac(last, "1.2.5.1"), vlan(number, "1.2.5.1"), status(4, "1.2.5.1")};
}

// Entries 1 and 3, beside an entry of another ONU.
class MacFilter : public testing::Test {
protected:
    static Lines initial() {
        Lines lines = entry("1.2.5.1", 11, 1);
        for (const Lines& more : {entry("1.2.5.3", 13, 1), entry("1.2.6.1", 11, 1)}) {
            lines.insert(lines.end(), more.begin(), more.end());
        }
        return lines;
    }
    // "last byte:VLAN:full" of the row, as in "11:1:0"; empty when there is none.
    [[nodiscard]] std::string row(const std::string& index) const {
        const auto value = [&](int column) {
            return valueOf(store_, "1.9.5.2.1." + std::to_string(column) + "." + index);
        };
        if (value(1).empty()) {
            return value(2) + value(3) + value(4);
        }
        EXPECT_EQ(value(4), "1") << index;
        return value(1).substr(10) + ":" + value(2) + ":" + value(3);
    }

    Store store_ = storeOf(shippedTable(), initial());
};

TEST_F(MacFilter, NewEntriesGetTheLowestFreeNumber) {
    carryOut(store_, {{addition(12, 1), "ok"}, {addition(12, 2), "ok"}});
    EXPECT_EQ(row("1.2.5.1"), "11:1:0") << "not the row that is written to";
    EXPECT_EQ(row("1.2.5.2"), "12:1:0");
    EXPECT_EQ(row("1.2.5.4"), "12:2:0");
    carryOut(store_, {{{status(6, "1.2.5.1")}, "ok"}, {addition(14, 1), "ok"}});
    EXPECT_EQ(row("1.2.5.1"), "14:1:0");
}

TEST_F(MacFilter, RefusesWhatItCannotAdd) {
    const std::string at = "1.2.5.1";
    carryOut(store_,
             {{addition(13, 1), "inconsistentValue 1"},
              {{vlan(5, at), status(4, at)}, "inconsistentValue 1"},
              {{mac(15, at), status(4, at)}, "inconsistentValue 1"},
              {{mac(15, at), vlan(5, at)}, "inconsistentValue 1"},
              {{mac(15, at), vlan(5, at), status(5, at)}, "inconsistentValue 1"},
              {{mac(15, "1.2.5.2"), vlan(5, "1.2.5.2"), status(4, "1.2.5.2")}, "noCreation 1"},
              {{status(4, "1.2")}, "noCreation 1"},
              {{vlan(4095, at)}, "wrongValue 1"},
              {{"1.9.5.2.1.1.1.2.5.1|4x|0a"}, "wrongLength 1"},
              {{line("1.9.5.2.1.3." + at, 0)}, "notWritable 1"},
              {addition(13, 2), "ok"}});
}

TEST_F(MacFilter, RemovesTheRowThatIsNamed) {
    carryOut(store_, {{{mac(13, "1.2.5.3"), vlan(1, "1.2.5.3"), status(6, "1.2.5.3")}, "ok"},
                      {{status(6, "1.2.5.3")}, "inconsistentValue 1"},
                      {{status(6, "1.2.5")}, "noCreation 1"}});
    EXPECT_EQ(row("1.2.5.3"), "");
    EXPECT_EQ(row("1.2.5.1") + row("1.2.6.1"), "11:1:011:1:0");
}

TEST_F(MacFilter, EveryRowSaysWhetherTheListIsFull) {
    for (int number = 2; number <= 14; ++number) {
        carryOut(store_, {{addition(20, number), "ok"}});
        EXPECT_EQ(row("1.2.5.1"), "11:1:0");
    }
    carryOut(store_, {{addition(20, 15), "ok"}, {addition(20, 16), "inconsistentValue 1"}});
    EXPECT_EQ(row("1.2.5.1"), "11:1:1");
    EXPECT_EQ(row("1.2.5.16"), "20:15:1");
    EXPECT_EQ(row("1.2.6.1"), "11:1:0");
    carryOut(store_, {{{status(6, "1.2.5.9")}, "ok"}});
    EXPECT_EQ(row("1.2.5.1"), "11:1:0");
    carryOut(store_, {{addition(20, 16), "ok"}});
    EXPECT_EQ(row("1.2.5.9"), "20:16:1");
}

} // namespace
} // namespace onudesk::sim::test
