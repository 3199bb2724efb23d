// SPDX-License-Identifier: MIT
#include "sim_fixture.h"

#include "base/file.h"
#include "sim/access.h"
#include "sim/recording.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

namespace onudesk::sim::test {
namespace {

constexpr const char* kDemo = ONUDESK_SOURCE_DIR "/client/demo/demo.snmprec";

// What an agent would refuse to take for the object; empty when nothing.
std::string misfit(const ObjectSchema& schema, const Value& value) {
    if (static_cast<int>(value.tag) != schema.object.type) {
        return "type";
    }
    if (const auto* bytes = std::get_if<std::string>(&value.content);
        bytes != nullptr && schema.size &&
        !schema.size->contains(static_cast<std::int64_t>(bytes->size()))) {
        return "size";
    }
    if (const auto* number = std::get_if<std::int64_t>(&value.content);
        number != nullptr && schema.range && !schema.range->contains(*number)) {
        return "range";
    }
    return {};
}

class DemoRecording : public testing::Test {
protected:
    Result<Recording> recording_ = loadRecording(kDemo);
    ObjectTable table_ = shippedTable();

    void SetUp() override { ASSERT_TRUE(recording_) << recording_.error(); }
    [[nodiscard]] const ObjectRule& rule(const ObjectSchema& object, const Oid& instance) const {
        return *table_.find(Oid::parseWhole(object.object.oidstr)->joined(instance));
    }
    [[nodiscard]] std::set<Oid> instancesOf(const GroupSchema& group) const {
        std::set<Oid> instances;
        for (const ObjectSchema& object : group.objects) {
            const Oid column = *Oid::parseWhole(object.object.oidstr);
            for (const auto& [oid, value] : below(recording_->values, {}, column)) {
                instances.insert(oid.tail(column.size()));
            }
        }
        return instances;
    }
    void expectAllObjects(const GroupSchema& group, const Oid& instance) const {
        for (const ObjectSchema& object : group.objects) {
            const ObjectRule& known = rule(object, instance);
            const bool needed = !known.rowStatus ||
                                (recording_->values.contains(known.rowStatus->joined(instance)));
            EXPECT_TRUE(!needed || recording_->values.contains(known.column.joined(instance)))
                << known.name << " of " << instance.text();
            // Slots are there without their row status, which is only written.
            if (known.stagedBy && !known.slots) {
                const Oid row = instance.head(instance.size() - (known.entries ? 1 : 0));
                EXPECT_TRUE(recording_->values.contains(known.stagedBy->joined(row)))
                    << known.name << " of " << instance.text();
            }
        }
    }
};

TEST_F(DemoRecording, AgreesWithTheCatalogue) {
    std::size_t checked = 0;
    for (const auto& [oid, value] : recording_->values) {
        if (!oid.startsWith(Oid{1, 3, 6, 1, 4, 1, 27315})) {
            continue;
        }
        const ObjectRule* rule = table_.find(oid);
        ASSERT_NE(rule, nullptr) << oid.text();
        EXPECT_EQ(misfit(rule->schema, value), "") << oid.text();
        ++checked;
    }
    EXPECT_GT(checked, 100U);
}

// Every ONU has every object of the groups that are there once per ONU, every row of a table every
// column. What has a row status may be missing together with it.
TEST_F(DemoRecording, IsComplete) {
    std::set<Oid> onus;
    const Oid group = enterpriseOid("606.1.1");
    for (const auto& [oid, value] : recording_->values) {
        if (oid.startsWith(group)) {
            onus.insert(oid.tail(group.size() + 1));
        }
    }
    EXPECT_EQ(onus.size(), 8U);
    EXPECT_TRUE(onus.contains(Oid({1, 2, 5})));
    const auto catalogue = loadSchema(ONUDESK_SOURCE_DIR "/client/CONF/snmp/snmpconfig.xml");
    ASSERT_TRUE(catalogue) << catalogue.error();
    for (const auto& [itemType, module] : *catalogue) {
        for (const GroupSchema& each : module) {
            const std::set<Oid> instances =
                each.read == ReadMode::scalar ? onus : instancesOf(each);
            EXPECT_EQ(instances.empty(), each.read == ReadMode::none) << itemType << each.name;
            for (const Oid& instance : instances) {
                expectAllObjects(each, instance);
            }
        }
    }
}

TEST_F(DemoRecording, IsSavedAsItIs) {
    EXPECT_EQ(formatRecording(recording_->values, recording_->layout), readFile(kDemo).value());
}

// Limits of the shipped catalogue, and what the recorded ONUs have no room for.
TEST_F(DemoRecording, TakesWhatFits) {
    const std::string low = "608.1.1.2.1.2.5|2|";
    const std::string high = "608.1.1.3.1.2.5|2|";
    const std::string port = "607.1.1.";
    const Step cases[] = {
        // bandwidth between the two writes of its row status
        {{"608.1.2.1.1.2.5|2|4", low + "0", high + "1000000", "608.1.2.1.1.2.5|2|5"}, "ok"},
        {{"608.1.2.1.1.2.5|2|4", low + "955001", "608.1.2.1.1.2.5|2|5"}, "wrongValue 2"},
        {{"608.1.2.1.1.2.5|2|6"}, "wrongValue 1"},
        {{"608.1.1.18.1.2.5|2|1"}, "notWritable 1"},
        // the address of an ONU without one; restart, rate to the CPU, version
        {{"500.1.1.2.1.1.4|64|10.20.1.14", "500.1.1.1.1.1.4|2|2", "500.1.1.5.1.1.4|2|4"}, "ok"},
        {{"500.1.1.1.1.2.5|2|3"}, "wrongValue 1"},
        {{"622.1.1.1.1.2.5|2|2"}, "wrongValue 1"},
        {{"915.1.1.1.1.2.5|2|10000"}, "ok"},
        {{"915.1.1.1.1.2.5|2|10001"}, "wrongValue 1"},
        {{"605.1.1.4.1.2.5|4|V9"}, "notWritable 1"},
        // the VLAN mode; a management VLAN, and of a place without an ONU; ports
        {{"767.1.1.1.1.2.5|2|2"}, "ok"},
        {{"767.1.1.1.1.2.5|2|3"}, "wrongValue 1"},
        {{"679.1.1.1.1.2.5|2|4094", "679.1.1.2.1.2.5|2|0", "679.1.1.4.1.2.5|2|4"}, "ok"},
        {{"679.1.1.1.1.2.5|2|0"}, "wrongValue 1"},
        {{"679.1.1.3.1.2.5|2|9"}, "wrongValue 1"},
        {{"679.1.1.4.1.1.4|2|4"}, "noCreation 1"},
        {{"612.1.1.2.1.2.5.4|2|4", "612.1.1.5.1.2.5.4|4x|000a"}, "wrongLength 2"},
        {{"612.1.3.4.1.2.1.3.1|2|30", "612.1.1.6.1.2.1.3|2|4"}, "inconsistentValue 2"},
        // rates of a port, off and on, and of a port that is not there
        {{"607.1.2.1.1.2.5.1|2|4", port + "1.1.2.5.1|2|0"}, "ok"},
        {{port + "3.1.2.5.1|2|1523", port + "4.1.2.5.1|2|1523"}, "wrongValue 2"},
        {{"607.1.2.2.1.2.5.1|2|4", port + "6.1.2.5.1|2|1024001"}, "wrongValue 2"},
        {{"607.1.2.2.1.2.5.5|2|4", port + "5.1.2.5.5|2|1"}, "noCreation 2"},
        {{"607.1.2.2.1.2.5.1|2|6"}, "wrongValue 1"},
        // weights of the queues, and the COS values, of which the last instance is 8
        {{"650.1.1.1.1.2.5|2|2", "650.1.1.2.1.2.5|4|15,15,15,15"}, "ok"},
        {{"650.1.1.1.1.2.5|2|2", "650.1.1.2.1.2.5|4|16,4,2,1"}, "wrongValue 2"},
        {{"651.1.1.1.1.2.5.8|2|3"}, "ok"},
        {{"651.1.1.1.1.2.5.8|2|4"}, "wrongValue 1"},
        {{"652.1.1.1.1.2.5.8|2|7"}, "ok"},
        {{"652.1.1.1.1.2.5.0|2|7"}, "noCreation 1"},
        {{"664.1.1.6.1.2.5|2|255"}, "ok"},
        {{"664.1.1.6.1.2.5|2|254"}, "wrongValue 1"},
        // one rule for any traffic; multicast and limits of MAC addresses
        {{"613.1.1.1.1.2.5.1.3|2|3", "613.1.1.16.1.2.5.1.3|2|1", "613.1.2.1.1.2.5.1.3|2|4"},
         "inconsistentValue 3"},
        {{"624.1.1.1.1.2.5|2|0", "624.1.1.2.1.2.5|2|1"}, "ok"},
        {{"625.1.1.1.1.2.5.4|2|1"}, "ok"},
        {{"626.1.2.1.1.2.5.4|2|255"}, "ok"},
        {{"626.1.2.2.1.2.5.4|4|1", "626.1.2.3.1.2.5.4|2|4"}, "inconsistentValue 1"},
        {{"620.1.1.1.1.2.5|2|0"}, "ok"},
        {{"620.1.1.1.1.2.5|2|1001"}, "wrongValue 1"},
        {{"643.1.1.1.1.2.5|2|1048576"}, "wrongValue 1"},
        {{"644.1.1.1.1.2.5.4|2|0"}, "ok"},
        {{"644.1.1.1.1.2.5.5|2|0"}, "noCreation 1"},
    };
    for (const Step& each : cases) {
        Store store(shippedTable(), recording_->values);
        carryOut(store, {each});
    }
}

TEST(DemoAccess, HasEverySecurityLevel) {
    const auto access = loadAccess(ONUDESK_SOURCE_DIR "/client/demo/demo.access");
    ASSERT_TRUE(access) << access.error();
    EXPECT_EQ(access->communities, defaultAccess().communities);
    std::set<std::pair<SecurityLevel, AuthProtocol>> kinds;
    for (const auto& [name, user] : access->users) {
        kinds.emplace(user.level, user.digest);
    }
    EXPECT_EQ(kinds.size(), 5U);
}

} // namespace
} // namespace onudesk::sim::test
