// SPDX-License-Identifier: MIT
//
// Module 613: the rules of a port stand in slots, which are filled and emptied.
#include "sim_fixture.h"

#include <gtest/gtest.h>

namespace onudesk::sim::test {
namespace {

constexpr int kPrecedence = 1;
constexpr int kQueue = 2;
constexpr int kDscp = 8;
constexpr int kVlan = 15;
constexpr int kAny = 16;
constexpr int kAllPorts = 17;
constexpr int kPorts = 18;

const std::string kOnu = "1.2.5.";

std::string cell(int column, const std::string& slot, int value) {
    return line("613.1.1", column, kOnu + slot, value);
}
std::string status(const std::string& slot, int value) {
    return line("613.1.2", 1, kOnu + slot, value);
}
// A SET that fills a slot with a rule for a VLAN.
Lines rule(const std::string& slot, int precedence, int vlan) {
    return {cell(kPrecedence, slot, precedence), cell(kVlan, slot, vlan), status(slot, 4)};
}
Lines removal(const std::string& slot, int precedence) {
    return {cell(kPrecedence, slot, precedence), status(slot, 6)};
}

// Two ports with three slots each, beside a port of another ONU; slot 2 of port 1 is filled.
Lines initial() {
    Lines lines = {"613.1.1.1.1.2.6.1.1|2|0", "613.1.1.15.1.2.6.1.1|2|0"};
    for (const char* slot : {"1.1", "1.2", "1.3", "2.1", "2.2", "2.3"}) {
        for (const int column : {kPrecedence, kQueue, kDscp, kVlan, kAny, kAllPorts}) {
            lines.push_back(cell(column, slot, 0));
        }
        lines.push_back(cell(kPorts, slot, 2));
    }
    Store store = storeOf(shippedTable(), lines);
    EXPECT_EQ(set(store, rule("1.2", 2, 100)), "ok");
    return linesOf(store);
}

std::string value(const Store& store, int column, const std::string& slot) {
    return valueOf(store, "613.1.1." + std::to_string(column) + "." + kOnu + slot);
}
// " precedence:vlan" of each filled slot of the port, as in " 2:100"; any traffic is " 2:any".
std::string rules(const Store& store, const std::string& port) {
    std::string text;
    for (const char* number : {".1", ".2", ".3"}) {
        const std::string slot = port + number;
        if (value(store, kPrecedence, slot) != "0") {
            text += " " + value(store, kPrecedence, slot) + ":" +
                    (value(store, kAny, slot) == "1" ? "any" : value(store, kVlan, slot));
        }
    }
    return text;
}

Lines anyRule(const std::string& slot, int precedence) {
    return {cell(kPrecedence, slot, precedence), cell(kAny, slot, 1), status(slot, 4)};
}
Lines everywhere(const std::string& slot, int precedence, int vlan) {
    return {cell(kPrecedence, slot, precedence), cell(kVlan, slot, vlan), cell(kAllPorts, slot, 1),
            status(slot, 4)};
}

TEST(Slots, HoldRules) {
    const char* const before = "port 1: 2:100, port 2:";
    const std::vector<ModelCase> cases = {
        {"Fill", {{rule("2.1", 1, 7), "ok"}}, "port 1: 2:100, port 2: 1:7"},
        {"NothingBeforeTheStatus", {{{cell(kPrecedence, "2.1", 1)}, "ok"}}, before},
        {"FillAgainReplaces", {{rule("1.2", 2, 7), "ok"}}, "port 1: 2:7, port 2:"},
        {"RemovalForgetsWhatWaited",
         {{removal("1.2", 2), "ok"}, {{status("1.2", 4)}, "inconsistentValue 1"}},
         "port 1:, port 2:"},
        {"NothingTellsItApart",
         {{{cell(kVlan, "2.1", 7), status("2.1", 4)}, "inconsistentValue 2"},
          {rule("2.1", 0, 7), "inconsistentValue 3"}},
         before},
        {"PrecedenceOnceInAPort",
         {{rule("1.1", 2, 7), "inconsistentValue 3"}, {rule("2.1", 2, 100), "ok"}},
         "port 1: 2:100, port 2: 2:100"},
        {"RuleOnceInAPort",
         {{rule("1.1", 1, 100), "inconsistentValue 3"}, {rule("1.1", 1, 101), "ok"}},
         "port 1: 1:101 2:100, port 2:"},
        {"OneRuleForAnyTraffic",
         {{anyRule("1.1", 1), "ok"}, {anyRule("1.3", 3), "inconsistentValue 3"}},
         "port 1: 1:any 2:100, port 2:"},
        {"RemoveByPrecedence", {{removal("1.1", 2), "ok"}}, "port 1:, port 2:"},
        {"RemoveFindsNothing",
         {{removal("1.2", 1), "inconsistentValue 2"},
          {removal("1.1", 0), "inconsistentValue 2"},
          {removal("2.1", 2), "inconsistentValue 2"},
          {{status("1.2", 6)}, "inconsistentValue 1"}},
         before},
        {"FillInAllPorts", {{everywhere("1.3", 3, 9), "ok"}}, "port 1: 2:100 3:9, port 2: 3:9"},
        {"AllPortsOrNone",
         {{everywhere("2.1", 1, 100), "inconsistentValue 4"}, {everywhere("2.2", 2, 9), "ok"}},
         "port 1: 2:9, port 2: 2:9"},
        {"OnlyWhatExistsAndFits",
         {{rule("1.4", 4, 9), "noCreation 1"},
          {{status("1.4", 4)}, "noCreation 1"},
          {{"613.1.2.1.1|2|4"}, "noCreation 1"},
          {rule("2.1", 1, 4095), "wrongValue 2"},
          {{status("2.1", 5)}, "wrongValue 1"},
          {{cell(kPorts, "2.1", 3)}, "notWritable 1"}},
         before},
    };
    expectStates(cases, initial(), [](const Store& store) {
        EXPECT_EQ(held(store, "613.1.1.15.1.2.6.1.1"), "2|0") << "other ONUs keep theirs";
        return "port 1:" + rules(store, "1") + ", port 2:" + rules(store, "2");
    });
}

TEST(Slots, WhatIsNotWrittenGoesBackToNothing) {
    Store store = storeOf(shippedTable(), initial());
    ASSERT_EQ(set(store, {cell(kPrecedence, "2.1", 1), cell(kQueue, "2.1", 7),
                          cell(kDscp, "2.1", 46), status("2.1", 4)}),
              "ok");
    EXPECT_EQ(value(store, kDscp, "2.1"), "46");
    ASSERT_EQ(set(store, rule("2.1", 1, 7)), "ok");
    EXPECT_EQ(value(store, kDscp, "2.1") + value(store, kQueue, "2.1") + value(store, kVlan, "2.1"),
              "007");
    ASSERT_EQ(set(store, removal("2.1", 1)), "ok");
    EXPECT_EQ(value(store, kVlan, "2.1"), "0");
    EXPECT_EQ(value(store, kPorts, "2.1"), "2") << "what is only read stays";
}

} // namespace
} // namespace onudesk::sim::test
