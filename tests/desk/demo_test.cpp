// SPDX-License-Identifier: MIT
#include "desk/demo.h"

#include "support/client_tree.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

namespace onudesk::desk {

namespace {

namespace fs = std::filesystem;

const fs::path kClient = std::string(ONUDESK_SOURCE_DIR) + "/client";

CatalogueSchema catalogue() {
    return loadSchema(kClient / "CONF" / "snmp" / "snmpconfig.xml").value();
}

TEST(Demo, ListsTheOnusThatTheRecordingHas) {
    const test::TemporaryDirectory directory;
    const std::string base = "1.3.6.1.4.1.27315.606.1.1.";
    const fs::path file = directory.write(
        "some.snmprec", "# 1.1.9 is a comment\n" + base + "1.1.2.10|4x|001a2b3c4d5e\n" + base +
                            "19.1.2.10|4|Depot\r\n" + base + "19.3.1.1|4x|e6a5bc\n" + base +
                            "19.3.1.2|4x|ff\n" + base + "19.3.1|4|two levels\n" + base +
                            "190.3.1.7|4|other object\n" + "1.3.6.1.2.1.1.1.0|4|no ONU\n" +
                            "broken line\n");
    const auto onus = recordedOnus(catalogue(), file);
    ASSERT_TRUE(onus) << onus.error();
    EXPECT_EQ(*onus, (RecordedOnus{{"1.2.10", "Depot"}, {"3.1.1", "楼"}, {"3.1.2", ""}}));
}

TEST(Demo, EveryOnuGetsAnEntryWhateverItsName) {
    const RecordedOnus onus = {
        {"1.1.1", "Depot"}, {"1.1.2", "Depot"}, {"1.1.3", ""}, {"1.1.4", std::string(101, 'x')}};
    const Inventory inventory = demoInventory(onus, 4161);
    ASSERT_EQ(inventory.onus().size(), 4U);
    EXPECT_EQ(inventory.onus().at("Depot").onu, "1.1.1");
    for (const char* index : {"1.1.2", "1.1.3", "1.1.4"}) {
        const OnuEntry& onu = inventory.onus().at(std::string("ONU ") + index);
        EXPECT_EQ(onu.onu, index);
        EXPECT_EQ(onu.agent, "127.0.0.1:4161");
        EXPECT_EQ(onu.profile, "demo");
    }
    EXPECT_EQ(inventory.profiles().at("demo").version, host::SnmpVersion::v2c);
}

TEST(Demo, NamesWhatIsNotThere) {
    const auto recording = startDemo(ONUDESK_BUILD_CLIENT_DIR, "/no/such.snmprec");
    ASSERT_FALSE(recording);
    EXPECT_NE(recording.error().find("/no/such.snmprec"), std::string::npos) << recording.error();
    const auto client = startDemo("/no/client", std::nullopt);
    ASSERT_FALSE(client);
    EXPECT_NE(client.error().find("/no/client"), std::string::npos) << client.error();
}

} // namespace

} // namespace onudesk::desk
