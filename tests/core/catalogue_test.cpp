// SPDX-License-Identifier: MIT
#include "env/language_module.h"
#include "snmp/object_schema.h"
#include "support/client_tree.h"
#include "support/test_desk.h"
#include "window/object_catalogue.h"

#include <gtest/gtest.h>

namespace onudesk {
namespace {

using test::ClientTree;
using test::TemporaryDirectory;
using test::TestDesk;

constexpr const char* kFile = R"(<?xml version="1.0"?>
<conf>
  <module name=" 790"><group name="wrong"/></module>
  <module name="563"><group name="other"><o name="x" oidstr="1.1" type="2"/></group></module>
  <!-- comment -->
  <module name="790">
    text
    <Group name="notThis"><o name="x"/></Group>
    <group name="maintable">
      <object name="onuName" oidstr="1.3.6.1" type="4"/>
      <scalar name="bare"/>
      <object name="onuName" oidstr="9.9.9" type="9"/>
      <object name="odd" oidstr="1.3" type="many"/>
    </group>
    <group name="maintable"><object name="late" oidstr="1" type="1"/></group>
    <group name="rowstat"/>
  </module>
  <module name="790"><group name="late"/></module>
</conf>)";

TEST(Catalogue, TakesTheFirstModuleGroupAndObject) {
    const auto document = parseXml(kFile, "test");
    ASSERT_TRUE(document);
    const ObjectCatalogue catalogue = catalogueModule(*(*document)->RootElement(), 790);
    ASSERT_EQ(catalogue.size(), 2U);
    const CONFIG_OID_T* name = lookup(catalogue, "maintable", "onuName");
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(name->oidstr, "1.3.6.1");
    EXPECT_EQ(name->type, 4);
    const CONFIG_OID_T* bare = lookup(catalogue, "maintable", "bare");
    ASSERT_NE(bare, nullptr);
    EXPECT_EQ(bare->oidstr, "");
    EXPECT_EQ(bare->type, 0);
    EXPECT_EQ(lookup(catalogue, "maintable", "odd")->type, 0);
    EXPECT_EQ(lookup(catalogue, "maintable", "late"), nullptr);
    EXPECT_EQ(lookup(catalogue, "maintable", "onuname"), nullptr);
    EXPECT_EQ(lookup(catalogue, "Maintable", "onuName"), nullptr);
    EXPECT_EQ(lookup(catalogue, "notThis", "x"), nullptr);
    EXPECT_TRUE(catalogueModule(*(*document)->RootElement(), 79).empty());
}

TEST(Catalogue, WarnsOnceWhenThereIsNothingForTheItem) {
    const char* const cases[] = {
        kFile,
        nullptr, // no file
        "<conf><module name='790'>",
        "<conf><module name='563'><group name='g'/></module></conf>",
        "<conf><module name='790'/></conf>",
    };
    for (const char* content : cases) {
        SCOPED_TRACE(content == nullptr ? "no file" : content);
        const bool warns = content != kFile;
        const TemporaryDirectory directory;
        TestDesk desk;
        installLanguage(
            LanguageModule::load(directory.write("t", "<l><text id='11140'>unusable</text>"
                                                      "<text id='11001'>Notice</text></l>"))
                .value());
        if (content != nullptr) {
            directory.write("CONF/snmp/snmpconfig.xml", content);
        }
        const ClientTree tree(directory.path());
        EXPECT_EQ(loadCatalogue(790).empty(), warns);
        if (warns) {
            const auto box = desk.takeBox();
            EXPECT_EQ(box.text, "unusable");
            EXPECT_EQ(box.caption, "Notice");
            EXPECT_EQ(box.icon, platform::PromptIcon::warning);
        }
        installLanguage({});
    }
}

TEST(Schema, ReadsWhatHostAndSimulatorNeed) {
    const auto document = parseXml(R"(<c><module name="606"><group name="g" read="scalar">
        <object name="a" oidstr="1.1" type="2" access="read-write" range="-5..7"/>
        <object name="b" oidstr="1.2" type="4" size="6" numbers="2" format="hex" row="s" unique="yes"/>
        <object name="s" oidstr="1.3" type="2" access="read-create" row="s"/></group>
        <group name="w" per="onu"/>
        <group name="e" per="port" staged="s" entries="1..8">
        <object name="i" oidstr="1.4" index="yes" member="m"/></group>
        <group name="f" per="port" port="3" staged="s" slots="yes">
        <object name="j" oidstr="1.5" unique="together" spread="yes"/></group></module></c>)",
                                   "test");
    const auto schema = readSchema(*(*document)->RootElement());
    ASSERT_TRUE(schema) << schema.error();
    const ModuleSchema& module = schema->at(606);
    ASSERT_EQ(module.size(), 4U);
    EXPECT_EQ(module[0].read, ReadMode::scalar);
    EXPECT_EQ(module[0].per, ReadScope::always);
    EXPECT_FALSE(module[0].entries);
    EXPECT_EQ(module[1].read, ReadMode::none);
    EXPECT_EQ(module[1].per, ReadScope::onu);
    EXPECT_EQ(module[2].per, ReadScope::port);
    EXPECT_EQ(module[2].staged, "s");
    EXPECT_EQ(module[2].entries->low, 1);
    EXPECT_EQ(module[2].entries->high, 8);
    EXPECT_TRUE(module[2].objects.at(0).index);
    EXPECT_EQ(module[2].objects.at(0).member, "m");
    EXPECT_FALSE(module[2].port || module[2].slots || module[2].objects[0].spread);
    EXPECT_EQ(module[3].port, 3U);
    EXPECT_TRUE(module[3].slots && module[3].objects.at(0).spread);
    EXPECT_EQ(module[3].objects[0].unique, Uniqueness::together);
    const auto& objects = module[0].objects;
    ASSERT_EQ(objects.size(), 3U);
    EXPECT_EQ(objects[0].access, ObjectAccess::readWrite);
    EXPECT_TRUE(objects[0].range->contains(-5) && objects[0].range->contains(7));
    EXPECT_FALSE(objects[0].range->contains(8) || objects[0].range->contains(-6));
    EXPECT_EQ(objects[1].access, ObjectAccess::readOnly);
    EXPECT_TRUE(objects[1].hex && objects[1].unique == Uniqueness::alone &&
                objects[1].size->contains(6));
    EXPECT_FALSE(objects[1].size->contains(5));
    EXPECT_TRUE(objects[1].numbers->contains(2));
    EXPECT_FALSE(objects[0].numbers);
    EXPECT_FALSE(objects[1].isRowStatus());
    EXPECT_TRUE(objects[2].isRowStatus());
}

TEST(Schema, NamesTheBadAttribute) {
    const auto errorOf = [](const std::string& group) {
        const auto document =
            parseXml(R"(<c><module name="606"><group name="g")" + group + "</module></c>", "test");
        const auto schema = readSchema(*(*document)->RootElement());
        return schema ? "" : schema.error();
    };
    const std::pair<const char*, const char*> objectCases[] = {
        {R"(access="write")", "access"},  {R"(range="9..1")", "range"},
        {R"(range="1..x")", "range"},     {R"(size="many")", "size"},
        {R"(numbers="4..1")", "numbers"}, {R"(format="binary")", "format"},
        {R"(unique="no")", "unique"},     {R"(index="no")", "index"},
        {R"(spread="no")", "spread"},
    };
    for (const auto& [attributes, name] : objectCases) {
        const std::string error =
            errorOf("><object name='bad' " + std::string(attributes) + "/></group>");
        EXPECT_TRUE(
            error.starts_with(std::string("module 606, group g: object bad: bad value of ") + name))
            << attributes << ": " << error;
    }
    const std::pair<const char*, const char*> groupCases[] = {
        {R"(read="all")", "read: \"all\""},
        {R"(per="ONU")", "per: \"ONU\""},
        {R"(staged="s" entries="8")", ""},
        {R"(staged="s" entries="-1..8")", "entries: \"-1..8\""},
        {R"(staged="s" entries="8..1")", "entries: \"8..1\""},
        {R"(entries="1..8")", "entries: \"1..8\""},
        {R"(per="port" port="1")", ""},
        {R"(per="port" port="0")", "port: \"0\""},
        {R"(per="port" port="4294967296")", "port: \"4294967296\""},
        {R"(per="port" port="one")", "port: \"one\""},
        {R"(per="onu" port="1")", "port: \"1\""},
        {R"(staged="s" slots="no")", "slots: \"no\""},
        {R"(slots="yes")", "slots: \"yes\""},
        {R"(staged="s" entries="1..8" slots="yes")", "slots: \"yes\""},
    };
    for (const auto& [attributes, complaint] : groupCases) {
        const std::string expected = std::string("module 606, group g: bad value of ") + complaint;
        EXPECT_EQ(errorOf(" " + std::string(attributes) + "/>"),
                  *complaint == '\0' ? "" : expected);
    }
}

} // namespace
} // namespace onudesk
