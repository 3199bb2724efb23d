// SPDX-License-Identifier: MIT
#include "sim_fixture.h"

#include "sim/access.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>

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
};

TEST_F(DemoRecording, AgreesWithTheCatalogue) {
    std::size_t checked = 0;
    for (const auto& [oid, value] : recording_->values) {
        if (!oid.startsWith(Oid({1, 3, 6, 1, 4, 1, 27315}))) {
            continue;
        }
        const ObjectRule* rule = table_.find(oid);
        ASSERT_NE(rule, nullptr) << oid.text();
        EXPECT_EQ(misfit(rule->schema, value), "") << oid.text();
        ++checked;
    }
    EXPECT_GT(checked, 100U);
}

TEST_F(DemoRecording, GivesEveryOnuAllReadOnlyObjects) {
    std::set<Oid> onus;
    const Oid group = enterpriseOid("606.1.1");
    for (const auto& [oid, value] : recording_->values) {
        if (oid.startsWith(group)) {
            onus.insert(oid.tail(group.size() + 1));
        }
    }
    EXPECT_EQ(onus.size(), 8U);
    EXPECT_TRUE(onus.contains(Oid({1, 2, 5})));
    for (const Oid& onu : onus) {
        for (Oid::Part column = 1; column <= 22; ++column) {
            const ObjectRule* rule = table_.find(group.joined(Oid({column})).joined(onu));
            ASSERT_NE(rule, nullptr);
            if (!rule->isRowStatus()) {
                EXPECT_TRUE(recording_->values.contains(rule->column.joined(onu)))
                    << rule->name << " of " << onu.text();
            }
        }
    }
}

TEST_F(DemoRecording, IsSavedAsItIs) {
    std::ifstream file(kDemo, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(formatRecording(recording_->values, recording_->layout), text);
}

TEST_F(DemoRecording, HasASlotToBindAnAddressTo) {
    Store store(shippedTable(), recording_->values);
    EXPECT_EQ(store.find(enterpriseOid("606.1.1.21.1.1.4")), nullptr);
    ASSERT_EQ(set(store, {"606.1.1.20.1.1.4|4x|020000000001"}), "ok");
    ASSERT_EQ(set(store, {"606.1.1.21.1.1.4|2|4"}), "ok");
    EXPECT_EQ(*store.find(enterpriseOid("606.1.1.21.1.1.4")), integerValue(1));
}

TEST(DemoAccess, HasEverySecurityLevel) {
    const auto access = loadAccess(ONUDESK_SOURCE_DIR "/client/demo/demo.access");
    ASSERT_TRUE(access) << access.error();
    EXPECT_EQ(access->communities, defaultAccess().communities);
    std::set<std::pair<SecurityLevel, Digest>> kinds;
    for (const auto& [name, user] : access->users) {
        kinds.emplace(user.level, user.digest);
    }
    EXPECT_EQ(kinds.size(), 5U);
}

} // namespace
} // namespace onudesk::sim::test
