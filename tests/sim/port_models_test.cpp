// SPDX-License-Identifier: MIT
//
// Modules 616, 617, 649, 763 and 817: settings of ports and of the link.
#include "sim_fixture.h"

#include <gtest/gtest.h>

namespace onudesk::sim::test {
namespace {

struct PortCase {
    const char* name;
    Lines initial;
    std::vector<Step> steps;
    Lines held; // some of what is there in the end
};

Lines port(const char* state, const char* shutDown, const char* advertised) {
    return {std::string("617.1.1.1.1.2.5.3|2|") + state, "617.1.1.2.1.2.5.3|2|0",
            std::string("617.1.1.3.1.2.5.3|2|") + shutDown, "617.1.1.4.1.2.5.3|2|2",
            std::string("617.1.1.5.1.2.5.3|4|") + advertised};
}

// Port 3 with a session of that type.
Lines comPort(const char* type) {
    return {"763.1.1.1.1.2.5.3|2|3",  std::string("763.1.1.2.1.2.5.3|2|") + type,
            "763.1.1.3.1.2.5.3|2|80", "763.1.1.4.1.2.5.3|64|10.0.0.1",
            "763.1.1.9.1.2.5.3|2|1",  "763.1.1.10.1.2.5.3|65|7",
            "763.1.1.11.1.2.5.3|65|8"};
}
const std::string kType = "763.1.1.2.1.2.5.3|2|";
const std::string kPort = "763.1.1.3.1.2.5.3|2|";
const std::string kAddress = "763.1.1.4.1.2.5.3|64|";
const std::string kStatus = "763.1.1.9.1.2.5.3|2|";

const PortCase kCases[] = {
    {"FecWhereSupported",
     {"616.1.1.1.1.2.5|2|2", "616.1.1.2.1.2.5|2|3", "616.1.1.1.1.2.6|2|3", "616.1.1.2.1.2.6|2|3",
      "616.1.1.1.1.2.7|2|1", "616.1.1.2.1.2.7|2|3"},
     {{{"616.1.1.2.1.2.5|2|2"}, "ok"},
      {{"616.1.1.2.1.2.6|2|2"}, "inconsistentValue 1"},
      {{"616.1.1.2.1.2.7|2|2"}, "inconsistentValue 1"},
      {{"616.1.1.2.1.2.8|2|2"}, "noCreation 1"},
      {{"616.1.1.2.1.2.5|2|4"}, "wrongValue 1"}},
     {"616.1.1.2.1.2.5|2|2"}},
    {"WorkingPonPortWhereThereIsAChoice",
     {"817.1.1.1.1.2.5|2|1", "817.1.1.1.1.2.6|2|0"},
     {{{"817.1.1.1.1.2.5|2|2"}, "ok"},
      {{"817.1.1.1.1.2.5|2|0"}, "inconsistentValue 1"},
      {{"817.1.1.1.1.2.6|2|1"}, "inconsistentValue 1"},
      {{"817.1.1.1.1.2.7|2|1"}, "noCreation 1"}},
     {"817.1.1.1.1.2.5|2|2", "817.1.1.1.1.2.6|2|0"}},
    {"EncryptionOnInStateZeroOffAlways",
     {"649.1.1.1.1.2.5|2|0", "649.1.1.2.1.2.5|2|0", "649.1.1.1.1.2.6|2|1", "649.1.1.2.1.2.6|2|2"},
     {{{"649.1.1.1.1.2.5|2|1"}, "ok"},
      {{"649.1.1.1.1.2.6|2|1"}, "inconsistentValue 1"},
      {{"649.1.1.1.1.2.6|2|0"}, "ok"},
      {{"649.1.1.2.1.2.6|2|0"}, "notWritable 1"}},
     {"649.1.1.1.1.2.5|2|1", "649.1.1.1.1.2.6|2|0"}},
    {"ShutDownTakesTheLink",
     port("1", "1", "0000000E"),
     {{{"617.1.1.3.1.2.5.3|2|2", "617.1.1.2.1.2.5.3|2|1"}, "ok"},
      {{"617.1.1.3.1.2.5.4|2|2"}, "noCreation 1"}},
     {"617.1.1.1.1.2.5.3|2|0", "617.1.1.2.1.2.5.3|2|1", "617.1.1.3.1.2.5.3|2|2"}},
    {"OpeningGivesTheLinkBack",
     port("0", "2", "0000000E"),
     {{{"617.1.1.4.1.2.5.3|2|1"}, "ok"}, {{"617.1.1.3.1.2.5.3|2|1"}, "ok"}},
     {"617.1.1.1.1.2.5.3|2|1"}},
    {"NoLinkWithoutCapabilities",
     port("0", "2", "00000000"),
     {{{"617.1.1.3.1.2.5.3|2|1"}, "ok"}},
     {"617.1.1.1.1.2.5.3|2|0"}},
    {"SettingsLeaveTheLinkAsItIs",
     port("0", "1", "0000000E"),
     {{{"617.1.1.2.1.2.5.3|2|1", "617.1.1.3.1.2.5.3|2|1"}, "ok"}},
     {"617.1.1.1.1.2.5.3|2|0"}},
    {"SessionOnAFreePort",
     comPort("0"),
     {{{kType + "3", kPort + "9", kStatus + "4"}, "inconsistentValue 1"},
      {{kType + "3", kAddress + "10.0.0.2", kStatus + "4"}, "inconsistentValue 1"},
      {{kAddress + "10.0.0.2", kPort + "9", kStatus + "4"}, "inconsistentValue 1"},
      {{kType + "3", kAddress + "10.0.0.2", kPort + "9"}, "inconsistentValue 1"},
      {{"763.1.1.1.1.2.5.3|2|4", kStatus + "4"}, "wrongValue 1"},
      {{kStatus + "6"}, "inconsistentValue 1"},
      {{"763.1.1.9.1.2.5.9|2|6"}, "noCreation 1"},
      {{kType + "3", kAddress + "10.0.0.2", kPort + "9", kStatus + "4"}, "ok"}},
     {kType + "3", kAddress + "10.0.0.2", kPort + "9", "763.1.1.10.1.2.5.3|65|0",
      "763.1.1.11.1.2.5.3|65|0"}},
    {"ServersNeedNoAddress",
     comPort("0"),
     {{{kType + "2", kPort + "9", kStatus + "4"}, "ok"},
      {{kType + "2", kPort + "9", kStatus + "4"}, "inconsistentValue 1"}},
     {kType + "2", kPort + "9"}},
    {"EndingASession",
     comPort("1"),
     {{{"763.1.1.1.1.2.5.3|2|3", kStatus + "6"}, "ok"}},
     {kType + "0", kPort + "0", kAddress + "0.0.0.0", kStatus + "1"}},
};

TEST(PortModels, CarryWritesOut) {
    for (const PortCase& each : kCases) {
        SCOPED_TRACE(each.name);
        Store store = storeOf(shippedTable(), each.initial);
        carryOut(store, each.steps);
        expectHeld(store, each.held);
    }
}

} // namespace
} // namespace onudesk::sim::test
