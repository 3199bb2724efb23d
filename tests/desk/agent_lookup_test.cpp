// SPDX-License-Identifier: MIT
#include "desk/agent_lookup.h"

#include "desk_test.h"

#include <optional>

#include <gtest/gtest.h>

namespace onudesk::desk {

namespace {

TEST(AgentLookup, AddressIsThereAtOnce) {
    AgentLookup lookup;
    std::optional<host::OnuTarget> found;
    lookup.start("10.0.0.7:1161", [&](const Result<host::OnuTarget>& target) {
        ASSERT_TRUE(target) << target.error();
        found = *target;
    });
    ASSERT_TRUE(found);
    EXPECT_EQ(found->agentAddress, "10.0.0.7");
    EXPECT_EQ(found->port, 1161);
}

TEST(AgentLookup, NameIsFoundFromTheEventLoop) {
    AgentLookup lookup;
    std::optional<host::OnuTarget> found;
    lookup.start("localhost", [&](const Result<host::OnuTarget>& target) {
        ASSERT_TRUE(target) << target.error();
        found = *target;
    });
    EXPECT_FALSE(found);
    ASSERT_TRUE(test::waitUntil([&] { return found.has_value(); }));
    EXPECT_EQ(found->agentAddress, "127.0.0.1");
    EXPECT_EQ(found->port, 161);
}

TEST(AgentLookup, NothingIsToldOnceItIsGone) {
    bool told = false;
    {
        AgentLookup lookup;
        lookup.start("localhost", [&](const Result<host::OnuTarget>&) { told = true; });
    }
    // A later one is answered, the earlier one is not.
    AgentLookup later;
    bool laterTold = false;
    later.start("localhost", [&](const Result<host::OnuTarget>&) { laterTold = true; });
    EXPECT_TRUE(test::waitUntil([&] { return laterTold; }));
    EXPECT_FALSE(told);
}

} // namespace

} // namespace onudesk::desk
