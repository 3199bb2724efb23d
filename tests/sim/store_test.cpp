// SPDX-License-Identifier: MIT
#include "sim_fixture.h"

#include <gtest/gtest.h>

namespace onudesk::sim::test {
namespace {

// One active row 4, and the unit of ONU 1.2.5.
Store smallStore() {
    return storeOf(tableOf(kCatalogue),
                   {"900.1.1.1.4|4|four", "900.1.1.2.4|2|7", "900.1.1.3.4|66|44",
                    "900.1.1.4.4|65|9", "900.1.1.5.4|64|192.0.2.4", "900.1.1.7.4|2|1",
                    "900.2.1.1.1.2.5|2|0", "900.2.1.2.1.2.5|4|SN01", "900.2.1.5.1.2.5|67|1"});
}

TEST(StoreSet, ChecksEveryBinding) {
    const std::vector<Step> cases = {
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
    Store store = smallStore();
    carryOut(store, cases);
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
        carryOut(store, {{{std::string("900.1.1.1.1.2.5|4|") + list}, outcome}});
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
    const auto changes = store.prepare({{enterpriseOid("900.2.1.1.1.2.5"), integerValue(3)},
                                        {enterpriseOid("900.1.1.7.4"), integerValue(6)},
                                        {enterpriseOid("900.2.1.3.1.2.5"), octetsValue("note")}});
    ASSERT_TRUE(changes);
    EXPECT_EQ(linesOf(store), before);
    const Changes undo = store.apply(*changes);
    EXPECT_EQ(linesOf(store), (Lines{"900.2.1.1.1.2.5|2|3", "900.2.1.2.1.2.5|4|SN01",
                                     "900.2.1.3.1.2.5|4|note", "900.2.1.5.1.2.5|67|1"}));
    store.apply(undo);
    EXPECT_EQ(linesOf(store), before);
}

TEST(RowStatus, FollowsTheWrites) {
    const std::string key = "900.1.1.3.9|66|9";
    const auto status = [](int value) { return line("900.1.1.7.9", value); };
    // SETs one after the other, and the status of row 9 in the end; empty when the row is gone.
    const std::pair<std::vector<Lines>, const char*> cases[] = {
        {{{status(4), key}}, "1"},
        {{{key, status(4)}}, "1"},
        {{{status(5)}}, "2"},
        {{{status(5), key}}, "2"},
        {{{status(4), key, status(5)}}, "1"},
        {{{status(5), key, status(4)}}, "1"},
        {{{status(5)}, {key}, {status(1)}}, "1"},
        {{{status(5)}, {key, status(4)}}, "1"},
        {{{status(5)}, {status(5)}}, "2"},
        {{{status(4), key}, {status(5)}}, "1"},
        {{{status(4), key}, {status(4)}}, "1"},
        {{{status(4), key}, {status(2)}}, "2"},
        {{{status(4), key, status(2)}}, "2"},
        {{{status(4), key}, {status(2)}, {status(1)}}, "1"},
        {{{status(4), key}, {status(6)}}, ""},
        {{{status(4), key, status(6)}}, ""},
        {{{status(6)}}, ""},
        {{{status(4), key}, {status(6), status(4), key}}, "1"},
        {{{status(4), key}, {status(6), status(5)}}, "2"},
        // without its key the row is not ready, whatever was asked for
        {{{status(4)}}, "3"},
        {{{status(4)}, {key}}, "3"},
        {{{status(4)}, {key}, {status(4)}}, "1"},
        {{{status(4)}, {key}, {status(1)}}, "1"},
    };
    for (const auto& [sets, outcome] : cases) {
        Store store = smallStore();
        for (const Lines& bindings : sets) {
            ASSERT_EQ(set(store, bindings), "ok") << bindings.front();
        }
        EXPECT_EQ(valueOf(store, "900.1.1.7.9"), outcome) << sets.back().front();
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
    Store store = smallStore(); // row 4 holds 44
    ASSERT_EQ(set(store, {"900.1.1.7.9|2|4", "900.1.1.3.9|66|44", "900.1.1.7.9|2|5"}), "ok");
    expectHeld(store, {"900.1.1.7.9|2|3", "900.1.1.7.4|2|1"});
    // A row that is not active does not stand in the way.
    carryOut(store, {{{"900.1.1.7.4|2|2"}, "ok"}, {{"900.1.1.7.9|2|1"}, "ok"}});
    expectHeld(store, {"900.1.1.7.9|2|1"});
    ASSERT_EQ(set(store, {"900.1.1.7.4|2|4"}), "ok");
    expectHeld(store, {"900.1.1.7.4|2|3"});
    // Of two rows in one SET the first one wins.
    ASSERT_EQ(set(store, {"900.1.1.7.20|2|4", "900.1.1.7.10|2|4", "900.1.1.3.10|66|1",
                          "900.1.1.3.20|66|1"}),
              "ok");
    expectHeld(store, {"900.1.1.7.20|2|1", "900.1.1.7.10|2|3"});
}

TEST(Store, WalksInOrderPastNulls) {
    const Store store =
        storeOf(tableOf(kCatalogue), {"10.1|2|1", "9.1|2|2", "9.2|5|", "900.2.1.4.1.2.5|2|1"});
    const auto* first = store.next(Oid{1, 3, 6, 1}, false);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->first, enterpriseOid("9.1"));
    EXPECT_EQ(store.next(first->first, true), first);
    const auto* second = store.next(first->first, false);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->first, enterpriseOid("10.1"));
    EXPECT_EQ(store.next(second->first, false), nullptr) << "write-only values are not held";
}

// Module 606: a MAC address is bound to a slot in two writes.
TEST(BindMac, InTwoWritesAndOut) {
    Store store =
        storeOf(shippedTable(), {"606.1.1.1.1.1.4|4x|000000000000", "606.1.1.19.1.1.4|4|",
                                 "606.1.1.20.1.1.4|4x|000000000000",
                                 "606.1.1.20.1.1.1|4x|001a2b3c4d5e", "606.1.1.21.1.1.1|2|1"});
    const auto slot = [&] {
        return held(store, "606.1.1.20.1.1.4") + " " + held(store, "606.1.1.21.1.1.4");
    };
    const Lines create = {"606.1.1.21.1.1.4|2|4"};
    // It needs an ONU, a whole address, and one that is not zero or in use.
    carryOut(store, {{{"606.1.1.20.9.9.9|4x|001a2b3c4d62"}, "noCreation 1"},
                     {{"606.1.1.21.9.9.9|2|4"}, "noCreation 1"},
                     {{"606.1.1.20.9.9.9|4x|001a2b3c4d62", "606.1.1.21.9.9.9|2|4"}, "noCreation 2"},
                     {{"606.1.1.20.1.1.4|4x|001a2b3c4d"}, "wrongLength 1"},
                     {create, "ok"}});
    EXPECT_EQ(slot(), "4x|000000000000 2|3");
    carryOut(store, {{{"606.1.1.20.1.1.4|4x|001a2b3c4d5e"}, "ok"}, {create, "ok"}});
    EXPECT_EQ(slot(), "4x|001a2b3c4d5e 2|3");
    carryOut(store, {{{"606.1.1.20.1.1.4|4x|001a2b3c4d61"}, "ok"}, {create, "ok"}});
    EXPECT_EQ(slot(), "4x|001a2b3c4d61 2|1");
    carryOut(store, {{{"606.1.1.21.1.1.4|2|6"}, "ok"}});
    EXPECT_EQ(slot(), " ");
    EXPECT_EQ(held(store, "606.1.1.1.1.1.4"), "4x|000000000000");
    // The slot without any onuBindMac takes one as well.
    carryOut(store, {{{"606.1.1.20.1.1.4|4x|001a2b3c4d60"}, "ok"}});
    EXPECT_EQ(slot(), "4x|001a2b3c4d60 ");
    carryOut(store, {{create, "ok"}});
    EXPECT_EQ(slot(), "4x|001a2b3c4d60 2|1");
}

} // namespace
} // namespace onudesk::sim::test
