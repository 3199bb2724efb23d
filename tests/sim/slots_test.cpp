// SPDX-License-Identifier: MIT
//
// Module 613: the rules of a port stand in slots, which are filled and emptied.
#include "sim_fixture.h"

#include <gtest/gtest.h>

namespace onudesk::sim::test {
namespace {

using Lines = std::vector<std::string>;

constexpr int kPrecedence = 1;
constexpr int kQueue = 2;
constexpr int kDscp = 8;
constexpr int kVlan = 15;
constexpr int kAny = 16;
constexpr int kAllPorts = 17;
constexpr int kPorts = 18;

std::string line(int column, const std::string& slot, int value) {
    return "613.1.1." + std::to_string(column) + ".1.2.5." + slot + "|2|" + std::to_string(value);
}
std::string status(const std::string& slot, int value) {
    return "613.1.2.1.1.2.5." + slot + "|2|" + std::to_string(value);
}
// A SET that fills a slot with a rule for a VLAN.
Lines rule(const std::string& slot, int precedence, int vlan) {
    return {line(kPrecedence, slot, precedence), line(kVlan, slot, vlan), status(slot, 4)};
}
Lines removal(const std::string& slot, int precedence) {
    return {line(kPrecedence, slot, precedence), status(slot, 6)};
}

// Two ports with three slots each, beside a port of another ONU; slot 2 of port 1 is filled.
class SlotRules : public testing::Test {
protected:
    static Lines initial() {
        Lines lines = {"613.1.1.1.1.2.6.1.1|2|0", "613.1.1.15.1.2.6.1.1|2|0"};
        for (const char* slot : {"1.1", "1.2", "1.3", "2.1", "2.2", "2.3"}) {
            for (const int column : {kPrecedence, kQueue, kDscp, kVlan, kAny, kAllPorts}) {
                lines.push_back(line(column, slot, 0));
            }
            lines.push_back(line(kPorts, slot, 2));
        }
        return lines;
    }
    SlotRules() { EXPECT_EQ(set(store_, rule("1.2", 2, 100)), "ok"); }
    [[nodiscard]] std::string value(int column, const std::string& slot) const {
        const Value* held =
            store_.find(enterpriseOid("613.1.1." + std::to_string(column) + ".1.2.5." + slot));
        return held == nullptr ? "none" : formatValue(*held).substr(2);
    }
    // "precedence:vlan" of each filled slot of the port, as in "2:100"; any traffic is "2:any".
    [[nodiscard]] std::string rules(const std::string& port) const {
        std::string text;
        for (const char* number : {"1", "2", "3"}) {
            const std::string slot = port + "." + number;
            if (value(kPrecedence, slot) != "0") {
                text += (text.empty() ? "" : " ") + value(kPrecedence, slot) + ":" +
                        (value(kAny, slot) == "1" ? "any" : value(kVlan, slot));
            }
        }
        return text;
    }

    Store store_ = storeOf(shippedTable(), initial());
};

struct SlotCase {
    const char* name;
    std::vector<Step> steps; // one SET each
    std::string first;       // rules of the two ports in the end
    std::string second;
};

class Slots : public SlotRules, public testing::WithParamInterface<SlotCase> {};

TEST_P(Slots, HoldRules) {
    carryOut(store_, GetParam().steps);
    EXPECT_EQ(rules("1"), GetParam().first);
    EXPECT_EQ(rules("2"), GetParam().second);
}

Lines anyRule(const std::string& slot, int precedence) {
    return {line(kPrecedence, slot, precedence), line(kAny, slot, 1), status(slot, 4)};
}
Lines everywhere(const std::string& slot, int precedence, int vlan) {
    return {line(kPrecedence, slot, precedence), line(kVlan, slot, vlan), line(kAllPorts, slot, 1),
            status(slot, 4)};
}

const SlotCase kCases[] = {
    {"Fill", {{rule("2.1", 1, 7), "ok"}}, "2:100", "1:7"},
    {"NothingBeforeTheStatus", {{{line(kPrecedence, "2.1", 1)}, "ok"}}, "2:100", ""},
    {"FillAgainReplaces", {{rule("1.2", 2, 7), "ok"}}, "2:7", ""},
    {"NothingTellsItApart",
     {{{line(kVlan, "2.1", 7), status("2.1", 4)}, "inconsistentValue 2"},
      {rule("2.1", 0, 7), "inconsistentValue 3"}},
     "2:100",
     ""},
    {"PrecedenceOnceInAPort",
     {{rule("1.1", 2, 7), "inconsistentValue 3"}, {rule("2.1", 2, 100), "ok"}},
     "2:100",
     "2:100"},
    {"RuleOnceInAPort",
     {{rule("1.1", 1, 100), "inconsistentValue 3"}, {rule("1.1", 1, 101), "ok"}},
     "1:101 2:100",
     ""},
    {"OneRuleForAnyTraffic",
     {{anyRule("1.1", 1), "ok"}, {anyRule("1.3", 3), "inconsistentValue 3"}},
     "1:any 2:100",
     ""},
    {"RemoveByPrecedence", {{removal("1.1", 2), "ok"}}, "", ""},
    {"RemoveFindsNothing",
     {{removal("1.2", 1), "inconsistentValue 2"},
      {removal("1.1", 0), "inconsistentValue 2"},
      {removal("2.1", 2), "inconsistentValue 2"},
      {{status("1.2", 6)}, "inconsistentValue 1"}},
     "2:100",
     ""},
    {"FillInAllPorts", {{everywhere("1.3", 3, 9), "ok"}}, "2:100 3:9", "3:9"},
    {"AllPortsOrNone",
     {{everywhere("2.1", 1, 100), "inconsistentValue 4"}, {everywhere("2.2", 2, 9), "ok"}},
     "2:9",
     "2:9"},
    {"OnlyWhatExistsAndFits",
     {{rule("1.4", 4, 9), "noCreation 1"},
      {{status("1.4", 4)}, "noCreation 1"},
      {{"613.1.2.1.1|2|4"}, "noCreation 1"},
      {rule("2.1", 1, 4095), "wrongValue 2"},
      {
          {status("2.1", 5)},
          "wrongValue 1",
      },
      {{line(kPorts, "2.1", 3)}, "notWritable 1"}},
     "2:100",
     ""},
};

INSTANTIATE_TEST_SUITE_P(, Slots, testing::ValuesIn(kCases),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_F(SlotRules, WhatIsNotWrittenGoesBackToNothing) {
    ASSERT_EQ(set(store_, {line(kPrecedence, "2.1", 1), line(kQueue, "2.1", 7),
                           line(kDscp, "2.1", 46), status("2.1", 4)}),
              "ok");
    EXPECT_EQ(value(kDscp, "2.1"), "46");
    ASSERT_EQ(set(store_, rule("2.1", 1, 7)), "ok");
    EXPECT_EQ(value(kDscp, "2.1") + value(kQueue, "2.1") + value(kVlan, "2.1"), "007");
    ASSERT_EQ(set(store_, removal("2.1", 1)), "ok");
    EXPECT_EQ(value(kVlan, "2.1"), "0");
    EXPECT_EQ(value(kPorts, "2.1"), "2") << "what is only read stays";
}

TEST_F(SlotRules, OtherOnusKeepTheirs) {
    ASSERT_EQ(set(store_, everywhere("1.1", 1, 9)), "ok");
    EXPECT_EQ(*store_.find(enterpriseOid("613.1.1.15.1.2.6.1.1")), integerValue(0));
}

} // namespace
} // namespace onudesk::sim::test
