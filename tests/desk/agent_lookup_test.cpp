// SPDX-License-Identifier: MIT
#include "desk/agent_lookup.h"

#include "desk_test.h"

namespace onudesk::desk {

namespace {

// Adds the address that was found.
AgentLookup::Done into(std::string& found) {
    return [&found](const Result<host::OnuTarget>& target) {
        found += target ? target->agentAddress + ':' + std::to_string(target->port) : "none";
    };
}

TEST(AgentLookup, FindsAddressesAtOnceAndNamesFromTheEventLoop) {
    AgentLookup lookup;
    std::string found;
    lookup.start("10.0.0.7:1161", into(found));
    EXPECT_EQ(found, "10.0.0.7:1161");
    found.clear();
    lookup.start("localhost", into(found));
    EXPECT_EQ(found, "");
    ASSERT_TRUE(test::waitFor([&] { return !found.empty(); }));
    EXPECT_EQ(found, "127.0.0.1:161");
}

TEST(AgentLookup, TellsNothingOnceItIsGone) {
    std::string gone;
    std::make_unique<AgentLookup>()->start("localhost", into(gone));
    // A later one is answered, the earlier one is not.
    AgentLookup later;
    std::string found;
    later.start("localhost", into(found));
    EXPECT_TRUE(test::waitFor([&] { return !found.empty(); }));
    EXPECT_EQ(gone, "");
}

} // namespace

} // namespace onudesk::desk
