// SPDX-License-Identifier: MIT
#include "host/read_plan.h"

#include "env/xml_file.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace onudesk::host::test {

namespace {

CatalogueSchema schemaOf(const std::string& groups) {
    const Result<XmlDocument> document =
        parseXml("<c><module name=\"700\">" + groups + "</module></c>", "test");
    return readSchema(*(*document)->RootElement()).value();
}

} // namespace

TEST(ReadPlanTest, FollowsTheOrderOfTheFile) {
    const CatalogueSchema schema = schemaOf(
        R"(<group name="z" read="table"><o name="c" oidstr="1.3.9"/><o name="a" oidstr="1.3.2"/></group>
           <group name="written"><o name="w" oidstr="nonsense"/></group>
           <group name="empty" read="scalar"/>
           <group name="a" read="scalar"><o name="x" oidstr="1.3.1" type="4" format="hex"/></group>)");
    const Result<ReadPlan> plan = makeReadPlan(schema, 700, {1, 2, 5});
    ASSERT_TRUE(plan.ok()) << plan.error();
    ASSERT_EQ(plan->size(), 2U);
    EXPECT_EQ(plan->front().name, "z");
    EXPECT_EQ(plan->front().mode, ReadMode::table);
    ASSERT_EQ(plan->front().objects.size(), 2U);
    EXPECT_EQ(plan->front().objects[0].name, "c");
    EXPECT_EQ(plan->front().objects[0].oid, (Oid{1, 3, 9, 1, 2, 5}));
    EXPECT_EQ(plan->front().objects[1].oid, (Oid{1, 3, 2, 1, 2, 5}));
    EXPECT_EQ(plan->back().name, "a");
    EXPECT_TRUE(plan->back().objects[0].hex);
}

TEST(ReadPlanTest, InstanceDecidesWhichGroupsAreRead) {
    const CatalogueSchema shipped =
        loadSchema(std::string(ONUDESK_SOURCE_DIR) + "/client/CONF/snmp/snmpconfig.xml").value();
    const CatalogueSchema portsOnly =
        schemaOf(R"(<group name="p" read="table" per="port"><o name="x" oidstr="1.3.1"/></group>)");
    struct Case {
        const CatalogueSchema* catalogue;
        int item;
        Oid instance;
        std::string groups; // with a blank behind each
    };
    for (const Case& known :
         {Case{&shipped, 612, {1, 2}, "group1 vlan mode "},
          Case{&shipped, 612, {1, 2, 5}, "group1 vlan mode "},
          Case{&shipped, 612, {1, 2, 5, 3}, "group2 "},
          Case{&shipped, 612, {1, 2, 5, 3, 1}, "group2 "},
          Case{&shipped, 605, {1, 2, 5}, "maintable "},
          Case{&shipped, 605, {1, 2, 5, 3}, "maintable "}, Case{&shipped, 613, {1, 2}, ""},
          Case{&shipped, 613, {1, 2, 5}, "maingroup "}, Case{&portsOnly, 700, {1, 2, 5, 3}, "p "},
          Case{&portsOnly, 700, {1, 2, 5}, ""}}) {
        const Result<ReadPlan> plan = makeReadPlan(*known.catalogue, known.item, known.instance);
        ASSERT_TRUE(plan.ok());
        std::string groups;
        for (const PlannedGroup& group : *plan) {
            groups += group.name + " ";
        }
        EXPECT_EQ(groups, known.groups) << known.item << " " << known.instance.text();
    }
}

TEST(ReadPlanTest, AGroupCanHaveAPortOfItsOwn) {
    const CatalogueSchema schema = schemaOf(R"(<group name="p" read="table" per="port" port="7">
                    <o name="x" oidstr="1.3.1"/></group>)");
    struct Case {
        Oid instance;
        Oid read;
    };
    for (const Case& known :
         {Case{{1, 2, 5}, {1, 3, 1, 1, 2, 5, 7}}, Case{{1, 2, 5, 3}, {1, 3, 1, 1, 2, 5, 3}},
          Case{{1, 2, 5, 3, 1}, {1, 3, 1, 1, 2, 5, 3, 1}}}) {
        const Result<ReadPlan> plan = makeReadPlan(schema, 700, known.instance);
        ASSERT_TRUE(plan.ok() && plan->size() == 1);
        EXPECT_EQ(plan->front().objects.front().oid, known.read);
    }
}

TEST(ReadPlanTest, ARequestCanNameOneRowOfATable) {
    const CatalogueSchema schema = schemaOf(R"(
        <group name="t" read="table"><o name="x" oidstr="1.3.1"/></group>
        <group name="p" read="table" per="port"><o name="y" oidstr="1.3.2"/></group>)");
    const Result<ReadPlan> row = makeReadPlan(schema, 700, {1, 2, 5, 3});
    ASSERT_TRUE(row.ok() && row->size() == 2);
    EXPECT_EQ(row->front().mode, ReadMode::scalar);
    EXPECT_EQ(row->front().objects.front().oid, (Oid{1, 3, 1, 1, 2, 5, 3}));
    EXPECT_EQ(row->back().mode, ReadMode::table);
    const Result<ReadPlan> all = makeReadPlan(schema, 700, {1, 2, 5});
    ASSERT_TRUE(all.ok() && all->size() == 1);
    EXPECT_EQ(all->front().mode, ReadMode::table);
}

TEST(ReadPlanTest, UnusableOidIsNamed) {
    for (const char* oid : {"", "1", "1.3.x", "1.3."}) {
        const CatalogueSchema schema =
            schemaOf(std::string(R"(<group name="g" read="scalar"><o name="bad" oidstr=")") + oid +
                     R"("/></group>)");
        const Result<ReadPlan> plan = makeReadPlan(schema, 700, {1});
        ASSERT_FALSE(plan.ok());
        EXPECT_EQ(plan.error(),
                  "item 700, group g: object bad has no usable OID: \"" + std::string(oid) + "\"");
    }
}

TEST(ReadPlanTest, ShippedCatalogueHasAPlanForEveryReadableItem) {
    const Result<CatalogueSchema> schema =
        loadSchema(std::string(ONUDESK_SOURCE_DIR) + "/client/CONF/snmp/snmpconfig.xml");
    ASSERT_TRUE(schema.ok()) << schema.error();
    for (const auto& [item, groups] : *schema) {
        const bool readable = std::ranges::any_of(
            groups, [](const GroupSchema& group) { return group.read != ReadMode::none; });
        const Result<ReadPlan> plan = makeReadPlan(*schema, item, {1, 2, 5});
        ASSERT_TRUE(plan.ok()) << item;
        EXPECT_EQ(plan->empty(), !readable) << item;
    }
}

} // namespace onudesk::host::test
