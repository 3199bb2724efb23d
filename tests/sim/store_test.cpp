// SPDX-License-Identifier: MIT
#include "sim_fixture.h"

#include <gtest/gtest.h>

namespace onudesk::sim::test {
namespace {

using Lines = std::vector<std::string>;

// One active row 4, and the unit of ONU 1.2.5.
Store smallStore() {
    return storeOf(tableOf(kCatalogue),
                   {"900.1.1.1.4|4|four", "900.1.1.2.4|2|7", "900.1.1.3.4|66|44",
                    "900.1.1.4.4|65|9", "900.1.1.5.4|64|192.0.2.4", "900.1.1.7.4|2|1",
                    "900.2.1.1.1.2.5|2|0", "900.2.1.2.1.2.5|4|SN01", "900.2.1.5.1.2.5|67|1"});
}

struct SetCase {
    Lines bindings;
    std::string expected;
};

TEST(StoreSet, ChecksEveryBinding) {
    const std::vector<SetCase> cases = {
        // access
        {{"900.2.1.2.1.2.5|4|SN02"}, "notWritable 1"},
        {{"900.1.1.4.4|65|1"}, "notWritable 1"},
        {{"900.3.1.1|2|1"}, "notWritable 1"},
        {{"900.2.1.1|2|1"}, "notWritable 1"},
        {{"900.2.1.2.9.9.9|2|1"}, "notWritable 1"},
        // type comes before length and value, those before the instance
        {{"900.2.1.1.1.2.5|4|1"}, "wrongType 1"},
        {{"900.2.1.1.1.2.5|66|1"}, "wrongType 1"},
        {{"900.1.1.3.4|65|45"}, "wrongType 1"},
        {{"900.1.1.5.4|4x|c0000205"}, "wrongType 1"},
        {{"900.2.1.1.9.9.9|5|"}, "wrongType 1"},
        {{"900.2.1.5.1.2.5|2|1"}, "wrongType 1"},
        {{"900.1.1.1.4|4|123456789"}, "wrongLength 1"},
        {{"900.1.1.1.99|4|123456789"}, "wrongLength 1"},
        {{"900.2.1.1.1.2.5|2|4"}, "wrongValue 1"},
        {{"900.2.1.1.1.2.5|2|-1"}, "wrongValue 1"},
        {{"900.1.1.3.4|66|0"}, "wrongValue 1"},
        {{"900.1.1.2.99|2|11"}, "wrongValue 1"},
        {{"900.2.1.4.1.2.5|2|2"}, "wrongValue 1"},
        // instances that are not there
        {{"900.2.1.1.9.9.9|2|1"}, "noCreation 1"},
        {{"900.2.1.3.9.9.9|4|x"}, "noCreation 1"},
        {{"900.1.1.1.99|4|x"}, "noCreation 1"},
        {{"900.2.1.5.9.9.9|2|1"}, "noCreation 1"},
        // row status
        {{"900.1.1.7.4|2|3"}, "wrongValue 1"},
        {{"900.1.1.7.4|2|7"}, "wrongValue 1"},
        {{"900.1.1.7.4|2|0"}, "wrongValue 1"},
        {{"900.1.1.7.4|4|4"}, "wrongType 1"},
        {{"900.1.1.7.99|2|1"}, "inconsistentValue 1"},
        {{"900.1.1.7.99|2|2"}, "inconsistentValue 1"},
        // the failing binding, wherever it stands
        {{"900.2.1.1.1.2.5|2|1", "900.1.1.2.4|2|8", "900.2.1.2.1.2.5|4|SN02"}, "notWritable 3"},
        {{"900.2.1.1.1.2.5|2|9", "900.2.1.2.1.2.5|4|SN02"}, "wrongValue 1"},
        {{"900.1.1.7.9|2|4", "900.1.1.3.9|66|9", "900.1.1.1.8|4|x"}, "noCreation 3"},
        {{"900.1.1.7.4|2|6", "900.1.1.1.4|4|x"}, "noCreation 2"},
        {{"900.1.1.7.9|2|4", "900.1.1.7.9|2|6", "900.1.1.1.9|4|x"}, "noCreation 3"},
    };
    for (const SetCase& each : cases) {
        Store store = smallStore();
        const Lines before = linesOf(store);
        EXPECT_EQ(set(store, each.bindings), each.expected) << each.bindings.back();
        EXPECT_EQ(linesOf(store), before) << each.bindings.back();
    }
}

TEST(StoreSet, TakesListsOfNumbersThatFit) {
    const ObjectTable table = tableOf(R"(<c><module name="900"><group name="g" read="scalar">
        <object name="list" oidstr="1.3.6.1.4.1.27315.900.1.1.1" type="4" access="read-write"
                range="1..15" size="0..8" numbers="1..3"/></group></module></c>)");
    const std::pair<const char*, const char*> cases[] = {
        {"1", "ok"},
        {"15,1,15", "ok"},
        {"1,2,3,4", "wrongValue 1"},
        {"16", "wrongValue 1"},
        {"1,0", "wrongValue 1"},
        {"", "wrongValue 1"},
        {"1,", "wrongValue 1"},
        {",1", "wrongValue 1"},
        {"1,,2", "wrongValue 1"},
        {"1;2", "wrongValue 1"},
        {"1, 2", "wrongValue 1"},
        {"+1", "wrongValue 1"},
        {"15,15,150", "wrongLength 1"},
    };
    for (const auto& [list, outcome] : cases) {
        Store store = storeOf(table, {"900.1.1.1.1.2.5|4|1"});
        EXPECT_EQ(set(store, {std::string("900.1.1.1.1.2.5|4|") + list}), outcome) << list;
    }
}

TEST(StoreSet, WritesBoundsAndAbsentInstancesOfAUnitThatExists) {
    Store store = smallStore();
    EXPECT_EQ(set(store, {"900.2.1.1.1.2.5|2|3", "900.2.1.3.1.2.5|4|12345678",
                          "900.2.1.4.1.2.5|2|1", "900.2.1.5.1.2.5|67|8", "900.1.1.1.4|4|"}),
              "ok");
    EXPECT_EQ(
        linesOf(store),
        (Lines{"900.1.1.1.4|4|", "900.1.1.2.4|2|7", "900.1.1.3.4|66|44", "900.1.1.4.4|65|9",
               "900.1.1.5.4|64|192.0.2.4", "900.1.1.7.4|2|1", "900.2.1.1.1.2.5|2|3",
               "900.2.1.2.1.2.5|4|SN01", "900.2.1.3.1.2.5|4|12345678", "900.2.1.5.1.2.5|67|8"}));
}

TEST(StoreSet, ChangesComeBackWithWhatUndoesThem) {
    Store store = smallStore();
    const Lines before = linesOf(store);
    auto outcome = store.prepare({{enterpriseOid("900.2.1.1.1.2.5"), integerValue(3)},
                                  {enterpriseOid("900.1.1.7.4"), integerValue(6)},
                                  {enterpriseOid("900.2.1.3.1.2.5"), octetsValue("note")}});
    ASSERT_TRUE(std::holds_alternative<Changes>(outcome));
    EXPECT_EQ(linesOf(store), before);
    const Changes undo = store.apply(std::get<Changes>(outcome));
    EXPECT_EQ(linesOf(store), (Lines{"900.2.1.1.1.2.5|2|3", "900.2.1.2.1.2.5|4|SN01",
                                     "900.2.1.3.1.2.5|4|note", "900.2.1.5.1.2.5|67|1"}));
    store.apply(undo);
    EXPECT_EQ(linesOf(store), before);
}

struct RowCase {
    std::vector<Lines> sets; // one after the other, all of which succeed
    std::string status;      // of row 9 in the end; empty when the row is gone
};

TEST(RowStatus, FollowsTheWrites) {
    const std::string key = "900.1.1.3.9|66|9";
    const auto status = [](int value) { return "900.1.1.7.9|2|" + std::to_string(value); };
    const std::vector<RowCase> cases = {
        {{{status(4), key}}, "2|1"},
        {{{key, status(4)}}, "2|1"},
        {{{status(5)}}, "2|2"},
        {{{status(5), key}}, "2|2"},
        {{{status(4), key, status(5)}}, "2|1"},
        {{{status(5), key, status(4)}}, "2|1"},
        {{{status(5)}, {key}, {status(1)}}, "2|1"},
        {{{status(5)}, {key, status(4)}}, "2|1"},
        {{{status(5)}, {status(5)}}, "2|2"},
        {{{status(4), key}, {status(5)}}, "2|1"},
        {{{status(4), key}, {status(4)}}, "2|1"},
        {{{status(4), key}, {status(2)}}, "2|2"},
        {{{status(4), key, status(2)}}, "2|2"},
        {{{status(4), key}, {status(2)}, {status(1)}}, "2|1"},
        {{{status(4), key}, {status(6)}}, ""},
        {{{status(4), key, status(6)}}, ""},
        {{{status(6)}}, ""},
        {{{status(4), key}, {status(6), status(4), key}}, "2|1"},
        {{{status(4), key}, {status(6), status(5)}}, "2|2"},
        // without its key the row is not ready, whatever was asked for
        {{{status(4)}}, "2|3"},
        {{{status(4)}, {key}}, "2|3"},
        {{{status(4)}, {key}, {status(4)}}, "2|1"},
        {{{status(4)}, {key}, {status(1)}}, "2|1"},
    };
    for (const RowCase& each : cases) {
        Store store = smallStore();
        for (const Lines& bindings : each.sets) {
            ASSERT_EQ(set(store, bindings), "ok") << bindings.front();
        }
        const Value* value = store.find(enterpriseOid("900.1.1.7.9"));
        EXPECT_EQ(value == nullptr ? "" : formatValue(*value), each.status)
            << each.sets.back().front();
    }
}

TEST(RowStatus, NewRowsAreComplete) {
    Store store = storeOf(tableOf(kCatalogue), {});
    ASSERT_EQ(set(store, {"900.1.1.7.1.9|2|4", "900.1.1.3.1.9|66|9", "900.1.1.6.1.9|4|hush",
                          "900.1.1.7.1.9|2|5"}),
              "ok");
    EXPECT_EQ(linesOf(store),
              (Lines{"900.1.1.1.1.9|4|", "900.1.1.2.1.9|2|5", "900.1.1.3.1.9|66|9",
                     "900.1.1.4.1.9|65|0", "900.1.1.5.1.9|64|0.0.0.0", "900.1.1.7.1.9|2|1"}));
}

TEST(RowStatus, DestroysOnlyItsRow) {
    Store store = smallStore();
    ASSERT_EQ(set(store, {"900.1.1.7.4.1|2|4", "900.1.1.3.4.1|66|41"}), "ok");
    ASSERT_EQ(set(store, {"900.1.1.7.4|2|6"}), "ok");
    EXPECT_EQ(linesOf(store),
              (Lines{"900.1.1.1.4.1|4|", "900.1.1.2.4.1|2|5", "900.1.1.3.4.1|66|41",
                     "900.1.1.4.4.1|65|0", "900.1.1.5.4.1|64|0.0.0.0", "900.1.1.7.4.1|2|1",
                     "900.2.1.1.1.2.5|2|0", "900.2.1.2.1.2.5|4|SN01", "900.2.1.5.1.2.5|67|1"}));
}

TEST(RowStatus, UniqueValuesKeepRowsFromBecomingActive) {
    const auto statusOf = [](const Store& store, const std::string& row) {
        return formatValue(*store.find(enterpriseOid("900.1.1.7." + row)));
    };
    Store store = smallStore(); // row 4 holds 44
    ASSERT_EQ(set(store, {"900.1.1.7.9|2|4", "900.1.1.3.9|66|44", "900.1.1.7.9|2|5"}), "ok");
    EXPECT_EQ(statusOf(store, "9"), "2|3");
    EXPECT_EQ(statusOf(store, "4"), "2|1");
    // A row that is not active does not stand in the way.
    ASSERT_EQ(set(store, {"900.1.1.7.4|2|2"}), "ok");
    ASSERT_EQ(set(store, {"900.1.1.7.9|2|1"}), "ok");
    EXPECT_EQ(statusOf(store, "9"), "2|1");
    ASSERT_EQ(set(store, {"900.1.1.7.4|2|4"}), "ok");
    EXPECT_EQ(statusOf(store, "4"), "2|3");
    // Of two rows in one SET the first one wins.
    ASSERT_EQ(set(store, {"900.1.1.7.20|2|4", "900.1.1.7.10|2|4", "900.1.1.3.10|66|1",
                          "900.1.1.3.20|66|1"}),
              "ok");
    EXPECT_EQ(statusOf(store, "20"), "2|1");
    EXPECT_EQ(statusOf(store, "10"), "2|3");
}

TEST(Store, WalksInOrderPastNulls) {
    const Store store =
        storeOf(tableOf(kCatalogue), {"10.1|2|1", "9.1|2|2", "9.2|5|", "900.2.1.4.1.2.5|2|1"});
    const auto* first = store.next(Oid({1, 3, 6, 1}), false);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->first, enterpriseOid("9.1"));
    EXPECT_EQ(store.next(first->first, true), first);
    const auto* second = store.next(first->first, false);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->first, enterpriseOid("10.1"));
    EXPECT_EQ(store.next(second->first, false), nullptr) << "write-only values are not held";
}

// Module 606: a MAC address is bound to a slot in two writes.
class BindMac : public testing::Test {
protected:
    [[nodiscard]] std::string value(int column) const {
        const Value* held =
            store_.find(enterpriseOid("606.1.1." + std::to_string(column) + ".1.1.4"));
        return held == nullptr ? "none" : formatValue(*held);
    }

    Store store_ =
        storeOf(shippedTable(), {"606.1.1.1.1.1.4|4x|000000000000", "606.1.1.19.1.1.4|4|",
                                 "606.1.1.20.1.1.4|4x|000000000000",
                                 "606.1.1.20.1.1.1|4x|001a2b3c4d5e", "606.1.1.21.1.1.1|2|1"});
};

TEST_F(BindMac, InTwoWritesAndOut) {
    ASSERT_EQ(set(store_, {"606.1.1.20.1.1.4|4x|001a2b3c4d5f"}), "ok");
    EXPECT_EQ(value(21), "none");
    ASSERT_EQ(set(store_, {"606.1.1.21.1.1.4|2|4"}), "ok");
    EXPECT_EQ(value(20), "4x|001a2b3c4d5f");
    EXPECT_EQ(value(21), "2|1");
    ASSERT_EQ(set(store_, {"606.1.1.21.1.1.4|2|6"}), "ok");
    EXPECT_EQ(value(20), "none");
    EXPECT_EQ(value(21), "none");
    EXPECT_EQ(value(1), "4x|000000000000");
    // The slot without any onuBindMac takes one as well.
    ASSERT_EQ(set(store_, {"606.1.1.20.1.1.4|4x|001a2b3c4d60"}), "ok");
    ASSERT_EQ(set(store_, {"606.1.1.21.1.1.4|2|4"}), "ok");
    EXPECT_EQ(value(21), "2|1");
}

TEST_F(BindMac, IsRefusedForAnAddressInUseUntilItIsAnother) {
    ASSERT_EQ(set(store_, {"606.1.1.20.1.1.4|4x|001a2b3c4d5e"}), "ok");
    ASSERT_EQ(set(store_, {"606.1.1.21.1.1.4|2|4"}), "ok");
    EXPECT_EQ(value(21), "2|3");
    ASSERT_EQ(set(store_, {"606.1.1.20.1.1.4|4x|001a2b3c4d61"}), "ok");
    ASSERT_EQ(set(store_, {"606.1.1.21.1.1.4|2|4"}), "ok");
    EXPECT_EQ(value(21), "2|1");
}

TEST_F(BindMac, NeedsAnAddressAndAnOnu) {
    ASSERT_EQ(set(store_, {"606.1.1.21.1.1.4|2|4"}), "ok");
    EXPECT_EQ(value(21), "2|3");
    EXPECT_EQ(set(store_, {"606.1.1.20.9.9.9|4x|001a2b3c4d62"}), "noCreation 1");
    EXPECT_EQ(set(store_, {"606.1.1.21.9.9.9|2|4"}), "noCreation 1");
    EXPECT_EQ(set(store_, {"606.1.1.20.9.9.9|4x|001a2b3c4d62", "606.1.1.21.9.9.9|2|4"}),
              "noCreation 2");
    EXPECT_EQ(set(store_, {"606.1.1.20.1.1.4|4x|001a2b3c4d"}), "wrongLength 1");
}

} // namespace
} // namespace onudesk::sim::test
