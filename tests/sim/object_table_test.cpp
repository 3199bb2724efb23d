// SPDX-License-Identifier: MIT
#include "sim_fixture.h"

#include "env/xml_file.h"
#include "sim/models.h"

#include <gtest/gtest.h>

namespace onudesk::sim::test {
namespace {

Result<ObjectTable> tableOf(const std::string& groups) {
    const auto document = parseXml("<c><module name=\"900\">" + groups + "</module></c>", "test");
    return ObjectTable::build(readSchema(*(*document)->RootElement()).value(), isModel);
}

std::string errorOf(const std::string& groups) {
    const auto table = tableOf(groups);
    return table ? "" : table.error();
}

TEST(ObjectTable, FindsTheObjectOfAnInstance) {
    const ObjectTable table =
        tableOf("<group name=\"g\"><object name=\"outer\" oidstr=\"1.3.6.1.1\" type=\"2\"/>"
                "<object name=\"inner\" oidstr=\"1.3.6.1.1.5.2\" type=\"2\"/>"
                "<object name=\"nameless\" oidstr=\"\" type=\"2\"/></group>")
            .value();
    const auto nameOf = [&](const char* oid) {
        const ObjectRule* rule = table.find(Oid::parseWhole(oid).value());
        return rule == nullptr ? std::string() : rule->name;
    };
    EXPECT_EQ(nameOf("1.3.6.1.1.7"), "module 900, group g, object outer");
    EXPECT_EQ(nameOf("1.3.6.1.1.5.2"), "module 900, group g, object outer");
    EXPECT_EQ(nameOf("1.3.6.1.1.5.2.1"), "module 900, group g, object inner");
    EXPECT_EQ(nameOf("1.3.6.1.1.6.1.1"), "module 900, group g, object outer");
    EXPECT_EQ(nameOf("1.3.6.1.1"), "");
    EXPECT_EQ(nameOf("1.3.6.1.2.1"), "");
}

TEST(ObjectTable, RowStatusMayStandInAnotherGroup) {
    const ObjectTable table =
        tableOf(
            "<group name=\"columns\"><object name=\"a\" oidstr=\"1.3.6.1.1.1\" row=\"s\"/></group>"
            "<group name=\"rowstat\"><object name=\"s\" oidstr=\"1.3.6.1.1.2\" row=\"s\"/></group>")
            .value();
    EXPECT_EQ(table.find(Oid({1, 3, 6, 1, 1, 1, 7}))->rowStatus, Oid({1, 3, 6, 1, 1, 2}));
    EXPECT_EQ(table.rowObjects(Oid({1, 3, 6, 1, 1, 2})).size(), 2U);
}

TEST(ObjectTable, OneOidMayStandTwiceWhenItIsTheSame) {
    const std::string group =
        "<group name='a'><o name='x' oidstr='1.3.6.1.1' type='2' range='1..2'/></group>"
        "<group name='b'><o name='y' oidstr='1.3.6.1.1' type='2' ";
    EXPECT_EQ(errorOf(group + "range='1..2'/></group>"), "");
    EXPECT_EQ(errorOf(group + "range='1..3'/></group>"),
              "module 900, group b, object y: OID 1.3.6.1.1 is that of module 900, group a, object "
              "x, but other attributes are not the same");
    EXPECT_NE(errorOf("<group name='a'><o name='x' oidstr='1.3.6.1.1'/></group>"
                      "<group name='b' staged='s'><o name='x' oidstr='1.3.6.1.1'/>"
                      "<o name='s' oidstr='1.3.6.1.2' row='s'/></group>"),
              "");
}

TEST(ObjectTable, NamesWhatIsWrong) {
    const std::pair<const char*, const char*> cases[] = {
        {"<group name='g'><o name='x' oidstr='1.3.1' member='y'/></group>"
         "<group name='h'><o name='y' oidstr='1.3.2'/></group>",
         ", object x: no object y"},
        {"<group name='g' model='y'/>", ": no model y"},
        {"<group name='g'><o name='x' oidstr='1.x'/></group>", ", object x: bad OID \"1.x\""},
        {"<group name='g'><o name='x' oidstr='1.3.1' row='y'/></group>",
         ", object x: no row status y"},
        {"<group name='g' staged='y'><o name='x' oidstr='1.3.1'/><o name='y' oidstr='1.3.2'/>"
         "</group>",
         ", object x: no row status y"},
        {"<group name='g'><o name='x' oidstr='1.3.1' row='y'/><o name='y' oidstr='1.3.2'/></group>",
         ", object x: no row status y"},
    };
    for (const auto& [groups, reason] : cases) {
        EXPECT_EQ(errorOf(groups), std::string("module 900, group g") + reason);
    }
}

TEST(Store, WalksInOrderPastNulls) {
    const Store store(
        tableOf("<group name='g'><o name='w' oidstr='1.11' access='write-only'/></group>").value(),
        {{Oid{1, 10, 1}, integerValue(1)},
         {Oid{1, 9, 1}, integerValue(2)},
         {Oid{1, 9, 2}, {Tag::null, {}}},
         {Oid{1, 11, 1}, integerValue(1)}});
    const auto* first = store.next(Oid{1, 3}, false);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->first, Oid({1, 9, 1}));
    EXPECT_EQ(store.next(first->first, true), first);
    const auto* second = store.next(first->first, false);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->first, Oid({1, 10, 1}));
    EXPECT_EQ(store.next(second->first, false), nullptr) << "write-only values are not held";
}

} // namespace
} // namespace onudesk::sim::test
