// SPDX-License-Identifier: MIT
#include "env/xml_file.h"
#include "mainform/menu_catalogue.h"
#include "support/client_tree.h"
#include "support/test_desk.h"

#include <gtest/gtest.h>

namespace onudesk {
namespace {

using test::ClientTree;
using test::TemporaryDirectory;
using test::TestDesk;

constexpr const char* kMenu = R"(<anything type="File caption">
    <!-- comment --> text
    <config_item name="1"><CONFIG_ITEM name="2"/></config_item>
    <Other name="3"><x name="4"/></Other>
    <CONFIG_ITEM name=" +605 "/>
    <CONFIG_ITEM name="606">
        <any name="607"><deep name="608x"><deeper name="609"/></deep></any>
        text
        <CONFIG_ITEM name="words"/>
    </CONFIG_ITEM>
    <CONFIG_ITEM/>
</anything>)";

TEST(MenuFile, TakesThreeLevelsInTheOrderOfTheFile) {
    const auto document = parseXml(kMenu, "test");
    const Menu menu = readMenu(*(*document)->RootElement(), "");
    EXPECT_EQ(menu.caption, "File caption");
    ASSERT_EQ(menu.items.size(), 3U);
    EXPECT_EQ(menu.items[0].itemType, 605);
    EXPECT_TRUE(menu.items[0].children.empty());
    EXPECT_EQ(menu.items[1].itemType, 606);
    ASSERT_EQ(menu.items[1].children.size(), 2U);
    const MenuItem& second = menu.items[1].children[0];
    EXPECT_EQ(second.itemType, 607);
    ASSERT_EQ(second.children.size(), 1U);
    EXPECT_EQ(second.children[0].itemType, 608);
    EXPECT_TRUE(second.children[0].children.empty()) << "a fourth level is ignored";
    EXPECT_EQ(menu.items[1].children[1].itemType, 0);
    EXPECT_EQ(menu.items[2].itemType, 0);
}

TEST(MenuFile, SessionCaptionWinsAndBothMayBeMissing) {
    const auto named = parseXml("<m type='file'/>", "test");
    EXPECT_EQ(readMenu(*(*named)->RootElement(), "session").caption, "session");
    const auto bare = parseXml("<m/>", "test");
    EXPECT_EQ(readMenu(*(*bare)->RootElement(), "").caption, "");
}

struct LoadCase {
    const char* name;
    const char* hostNames;
    const char* hostFile;     // content, null: no such file
    const char* fallbackFile; // content, null: no such file
    const char* caption;      // null: no menu
    bool tells;
};

TEST(MenuLoading, FallsBackWhenTheFileIsMissingAndStaysSilentWhenItIsBroken) {
    const LoadCase cases[] = {
        {"host's file", "own.xml", "<m type='own'/>", "<m type='other'/>", "own", false},
        {"missing", "own.xml", nullptr, "<m type='other'/>", "other", false},
        {"not named", "", nullptr, "<m type='other'/>", "other", false},
        {"broken", "own.xml", "<m", "<m type='other'/>", nullptr, false},
        {"no file at all", "own.xml", nullptr, nullptr, nullptr, true}};
    for (const LoadCase& expected : cases) {
        SCOPED_TRACE(expected.name);
        const TemporaryDirectory directory;
        directory.write("CONF/snmp/keep", "");
        if (expected.hostFile != nullptr) {
            directory.write("CONF/snmp/own.xml", expected.hostFile);
        }
        if (expected.fallbackFile != nullptr) {
            directory.write("CONF/snmp/epononuother_menu.xml", expected.fallbackFile);
        }
        const ClientTree tree(directory.path());
        TestDesk desk;
        SessionContext context;
        context.menuFileName = expected.hostNames;
        const auto menu = loadMenu(context);
        ASSERT_EQ(menu.has_value(), expected.caption != nullptr);
        if (menu) {
            EXPECT_EQ(menu->caption, expected.caption);
        }
        if (expected.tells) {
            const auto box = desk.takeBox();
            EXPECT_EQ(box.text, "File ..\\CONF\\snmp\\epononuother_menu.xml not found!");
            EXPECT_EQ(box.icon, platform::PromptIcon::none);
        }
    }
}

} // namespace
} // namespace onudesk
