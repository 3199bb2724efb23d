// SPDX-License-Identifier: MIT
//
// Module 667: thresholds of the optical module.
#include "sim_fixture.h"

#include <gtest/gtest.h>

namespace onudesk::sim::test {
namespace {

// A threshold by its column.
std::string threshold(int column, const std::string& value) {
    return "667.1.1." + std::to_string(column) + ".1.2.5|4|" + value;
}
const std::string kStatus = "667.1.1.21.1.2.5|2|";
constexpr int kTemperature = 1;
constexpr int kVoltage = 6;
constexpr int kBias = 9;
constexpr int kSent = 13;
constexpr int kReceived = 20;

TEST(OpticalThresholds, NeedTheirRowWhichStartsWithThoseOfTheFactory) {
    Store store = storeOf(shippedTable(), {kStatus + "0", "667.1.1.22.1.2.5|4|PX20"});
    carryOut(store, {{{threshold(kTemperature, "60")}, "noCreation 1"},
                     {{kStatus + "5"}, "inconsistentValue 1"},
                     {{kStatus + "6"}, "inconsistentValue 1"},
                     {{"667.1.1.21.1.2.6|2|4"}, "noCreation 1"},
                     {{threshold(kBias, "132"), kStatus + "4"}, "wrongValue 1"},
                     {{kStatus + "4", threshold(kBias, "70")}, "ok"},
                     {{kStatus + "4"}, "inconsistentValue 1"},
                     {{threshold(kTemperature, "60")}, "ok"}});
    EXPECT_EQ(linesOf(store).size(), 22U);
    expectHeld(store, {threshold(kTemperature, "60"), threshold(kBias, "70"),
                       threshold(kReceived, "0.0020"), kStatus + "1"});
}

TEST(OpticalThresholds, LieWithinTheRangesOfTheirQuantities) {
    struct Case {
        int column;
        const char* written;
        const char* held; // null: refused
    };
    Store store = storeOf(shippedTable(), {kStatus + "2"});
    for (const Case& known :
         {Case{kTemperature, "-128", "-128"},  Case{kTemperature, "128", "128"},
          Case{kTemperature, "-129", nullptr}, Case{kTemperature, "128.5", nullptr},
          Case{kTemperature, " 10 ", "10"},    Case{kTemperature, "  ", nullptr},
          Case{kTemperature, "1 0", nullptr},  Case{kTemperature, "nan", nullptr},
          Case{kVoltage, "6.55", "6.55"},      Case{kVoltage, "6.56", nullptr},
          Case{kVoltage, "-1", nullptr},       Case{kBias, "131", "131"},
          Case{kBias, "132", nullptr},         Case{kSent, "3", "1.9953"},
          Case{kSent, "0", "1.0000"},          Case{kSent, "-40", "0.0001"},
          Case{kSent, "8.1647", "6.5535"},     Case{kSent, "8.165", nullptr},
          Case{kReceived, "-30.0 ", "0.0010"}, Case{kReceived, "-40.1", nullptr},
          Case{kReceived, "low", nullptr}}) {
        carryOut(store, {{{threshold(known.column, known.written)},
                          known.held == nullptr ? "wrongValue 1" : "ok"}});
        if (known.held != nullptr) {
            expectHeld(store, {threshold(known.column, known.held)});
        }
    }
}

} // namespace
} // namespace onudesk::sim::test
