// SPDX-License-Identifier: MIT
//
// Modules 645, 647 and 648: the mode of double tagging and the VLAN ranges of the ports.
#include "sim_fixture.h"

#include <gtest/gtest.h>

namespace onudesk::sim::test {
namespace {

std::string mode(int value) {
    return line("645.1.1.1.1.2.5", value);
}
// The SETs of the two pages.
Lines insert(const std::string& row, int start, int end, int outer = 1000, int status = 4) {
    return {line("647.1.1", 2, row, start), line("647.1.1", 3, row, end),
            line("647.1.1", 4, row, outer), line("647.1.1", 6, row, status)};
}
Lines pass(const std::string& row, int start, int end, int status = 4) {
    return {line("648.1.1", 2, row, start), line("648.1.1", 3, row, end),
            line("648.1.1", 8, row, status)};
}

// Flexible QinQ, two ports without ranges, of which the second one is blocked.
class QinQModels : public testing::Test {
protected:
    static Lines initial() {
        Lines lines = {mode(2), "645.1.1.2.1.2.5|2|34984", "645.1.1.1.1.2.6|2|2"};
        for (int port = 1; port <= 2; ++port) {
            const std::string row = "1.2.5." + std::to_string(port) + ".0";
            const int blocked = port - 1;
            const auto fill = [&](const std::string& group, const std::vector<int>& values) {
                int column = 0;
                for (const int value : values) {
                    lines.push_back(line(group, ++column, row, value));
                }
            };
            fill("647.1.1", {0, 0, 0, 0, blocked, 3, 0, 0, 2, 2});
            fill("648.1.1", {0, 0, 0, 0, 0, 0, blocked, 3, 2});
        }
        return lines;
    }
    // The rows of the first port, as in "1:100,199" with all values of the columns after the row's
    // number.
    [[nodiscard]] Lines rows(const std::string& item, const std::vector<int>& columns) const {
        Lines all;
        const Oid first = enterpriseOid(item + ".1.1.2.1.2.5.1");
        for (const auto& [oid, value] : below(store_.values(), {}, first)) {
            const std::string row = std::to_string(oid.last());
            std::string text = row;
            for (const int column : columns) {
                text +=
                    (text == row ? ":" : ",") +
                    valueOf(store_, item + ".1.1." + std::to_string(column) + ".1.2.5.1." + row);
            }
            all.push_back(text);
        }
        return all;
    }
    [[nodiscard]] Lines inserted() const { return rows("647", {2, 3, 4, 6}); }
    [[nodiscard]] Lines passing() const { return rows("648", {2, 3, 8}); }

    Store store_ = storeOf(shippedTable(), initial());
};

TEST_F(QinQModels, RangesGetTheLowestFreeNumberAndGoByTheirs) {
    carryOut(store_, {{insert("1.2.5.1.1", 100, 199), "ok"},
                      {insert("1.2.5.1.1", 300, 300), "ok"},
                      {insert("1.2.5.1.1", 1, 1, 4094), "ok"},
                      {insert("1.2.5.1.2", 7, 7, 7, 6), "ok"}, // whatever its values
                      {insert("1.2.5.1.2", 300, 300, 1000, 6), "inconsistentValue 1"}});
    EXPECT_EQ(inserted(), (Lines{"1:100,199,1000,1", "3:1,1,4094,1"}));
    carryOut(store_, {{insert("1.2.5.1.77", 300, 310), "ok"}});
    EXPECT_EQ(inserted()[1], "2:300,310,1000,1");
}

TEST_F(QinQModels, APortWithoutRangesKeepsOneRow) {
    const Lines none = inserted();
    EXPECT_EQ(none, Lines{"0:0,0,0,3"});
    carryOut(store_, {{{"647.1.1.6.1.2.5.1.0|2|6"}, "inconsistentValue 1"},
                      {insert("1.2.5.1.1", 100, 199), "ok"}});
    EXPECT_EQ(inserted(), Lines{"1:100,199,1000,1"});
    const std::vector<int> flags = {1, 5, 7, 8, 9, 10};
    EXPECT_EQ(rows("647", flags), Lines{"1:0,0,0,0,2,2"});
    carryOut(store_, {{{"647.1.1.6.1.2.5.1.1|2|6"}, "ok"}});
    EXPECT_EQ(inserted(), none);
    EXPECT_EQ(rows("647", flags), Lines{"0:0,0,0,0,2,2"});
}

TEST_F(QinQModels, RefuseWhatThePortCannotHave) {
    carryOut(store_, {{insert("1.2.5.1.1", 100, 199), "ok"}, {pass("1.2.5.1.1", 10, 19), "ok"}});
    const std::string row = "1.2.5.1.1";
    const std::string blocked = "1.2.5.2.1";
    const Lines refused[] = {insert(row, 50, 250),    insert(row, 199, 199),
                             insert(row, 19, 20),     insert(row, 30, 29),
                             insert(row, 0, 5),       insert(row, 30, 30, 0),
                             insert(blocked, 30, 30), insert(row, 30, 30, 1000, 5),
                             pass(row, 1, 10),        pass(row, 199, 300),
                             pass(blocked, 30, 30),   pass(row, 30, 0)};
    for (const Lines& bindings : refused) {
        carryOut(store_, {{bindings, "inconsistentValue 1"}});
    }
    for (std::size_t missing = 0; missing < 4; ++missing) {
        Lines bindings = insert("1.2.5.1.1", 30, 30);
        bindings.erase(bindings.begin() + static_cast<std::ptrdiff_t>(missing));
        carryOut(store_, {{bindings, "inconsistentValue 1"}});
    }
    carryOut(store_, {{insert("1.2.5.3.1", 30, 30), "noCreation 1"},
                      {insert("1.2.6.1.1", 30, 30), "noCreation 1"},
                      {{"647.1.1.6.1.2.5.1|2|6"}, "noCreation 1"},
                      {insert("1.2.5.1.1", 30, 4095), "wrongValue 2"},
                      {{"647.1.1.1.1.2.5.1.1|2|0"}, "notWritable 1"},
                      {insert("1.2.5.1.1", 200, 4094), "ok"},
                      {pass("1.2.5.1.1", 1, 9), "ok"}});
}

TEST_F(QinQModels, AListTakes150Ranges) {
    const auto fullFlags = [this](const char* item) {
        const Lines flags = rows(item, {1});
        return std::pair(flags.size(), flags.front() + " " + flags.back());
    };
    for (int vlan = 1; vlan < 150; ++vlan) {
        ASSERT_EQ(set(store_, pass("1.2.5.1.1", vlan, vlan)), "ok") << vlan;
    }
    EXPECT_EQ(fullFlags("648"), std::pair(std::size_t{149}, std::string("1:0 149:0")));
    carryOut(store_, {{pass("1.2.5.1.1", 150, 150), "ok"},
                      {pass("1.2.5.1.1", 151, 151), "inconsistentValue 1"},
                      {insert("1.2.5.1.1", 151, 151), "ok"}}); // a list of its own
    EXPECT_EQ(fullFlags("648"), std::pair(std::size_t{150}, std::string("1:1 150:1")));
    EXPECT_EQ(fullFlags("647"), std::pair(std::size_t{1}, std::string("1:0 1:0")));
    carryOut(store_, {{pass("1.2.5.1.9", 9, 9, 6), "ok"}});
    EXPECT_EQ(fullFlags("648"), std::pair(std::size_t{149}, std::string("1:0 150:0")));
}

TEST_F(QinQModels, RowsTellTheRangeOfTheirNumberInTheOtherList) {
    carryOut(store_, {{insert("1.2.5.1.1", 100, 199), "ok"},
                      {insert("1.2.5.1.1", 200, 299), "ok"},
                      {pass("1.2.5.1.1", 10, 19), "ok"}});
    EXPECT_EQ(rows("647", {7, 8}), (Lines{"1:10,19", "2:0,0"}));
    EXPECT_EQ(rows("648", {4, 5}), Lines{"1:100,199"});
    carryOut(store_, {{insert("1.2.5.1.1", 100, 199, 1000, 6), "ok"}});
    EXPECT_EQ(rows("648", {4, 5}), Lines{"1:0,0"});
}

TEST_F(QinQModels, RowsTellTheModeAndOnlyFlexibleTakesRanges) {
    carryOut(store_, {{insert("1.2.5.1.1", 100, 199), "ok"}});
    struct Case {
        int mode;
        const char* insertMode;
        const char* passState;
        const char* outcome;
    };
    for (const Case& each :
         {Case{1, "1:1", "0:1", "inconsistentValue 1"},
          Case{0, "1:0", "0:2", "inconsistentValue 1"}, Case{2, "1:2", "0:0", "ok"}}) {
        carryOut(store_, {{{mode(each.mode)}, "ok"}});
        EXPECT_EQ(rows("647", {10}), Lines{each.insertMode});
        EXPECT_EQ(rows("648", {6}), Lines{each.passState});
        carryOut(store_, {{pass("1.2.5.1.1", 10, 19), each.outcome}});
    }
    carryOut(store_, {{{mode(0)}, "ok"}, {insert("1.2.5.1.1", 100, 199, 1000, 6), "ok"}});
}

TEST_F(QinQModels, TheOuterTpidCanBeWrittenUnlessQinQIsOff) {
    const auto tpid = [](int value) { return line("645.1.1.2.1.2.5", value); };
    carryOut(store_, {{{tpid(65535)}, "ok"},
                      {{mode(0)}, "ok"},
                      {{tpid(1501)}, "inconsistentValue 1"},
                      {{tpid(1500)}, "wrongValue 1"},
                      {{tpid(1501), mode(1)}, "ok"},
                      {{mode(3)}, "wrongValue 1"},
                      {{"645.1.1.1.1.2.7|2|1"}, "noCreation 1"},
                      {{"645.1.1.1.1.2|2|1"}, "noCreation 1"}});
    EXPECT_EQ(valueOf(store_, "645.1.1.2.1.2.5"), "1501");
}

} // namespace
} // namespace onudesk::sim::test
