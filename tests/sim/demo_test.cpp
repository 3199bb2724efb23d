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
    for (const auto& [itemType, module] : shippedCatalogue()) {
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
