// SPDX-License-Identifier: MIT
#include "platform/desktop.h"
#include "platform/files.h"
#include "support/client_tree.h"
#include "support/test_desk.h"

#include <gtest/gtest.h>

namespace onudesk::platform {
namespace {

using test::ClientTree;
using test::TemporaryDirectory;
using test::TestDesk;

TEST(ClientPaths, SeparatorsAndLetterCaseDoNotMatter) {
    const TemporaryDirectory directory;
    const auto file = directory.write("Conf/SNMP/Menu.xml", "x");
    const ClientTree tree(directory.path());
    for (const char* path : {"..\\CONF\\snmp\\menu.XML", "..\\conf\\snmp\\Menu.xml",
                             "../Conf/SNMP/Menu.xml", "..\\.\\Conf\\\\SNMP\\Menu.xml"}) {
        const auto found = resolveClientPath(path);
        ASSERT_TRUE(found) << path;
        EXPECT_TRUE(std::filesystem::equivalent(*found, file)) << path;
    }
    EXPECT_FALSE(resolveClientPath("..\\CONF\\snmp\\other.xml"));
    EXPECT_FALSE(resolveClientPath("..\\CONF\\none\\menu.xml"));
    EXPECT_TRUE(resolveClientPath(directory.path().string() + "\\conf"));
}

TEST(ClientPaths, TheNameAsWrittenWinsOverOtherLetterCase) {
    const TemporaryDirectory directory;
    directory.write("a.xml", "");
    const auto exact = directory.write("A.xml", "");
    const ClientTree tree(directory.path());
    EXPECT_EQ(resolveClientPath("..\\A.xml")->filename(), "A.xml");
    EXPECT_EQ(resolveClientPath("..\\a.xml")->filename(), "a.xml");
}

TEST(ModuleNames, AreFullPaths) {
    const std::string library = moduleFileName(reinterpret_cast<const void*>(&runCommand));
    EXPECT_TRUE(library.ends_with("/libonuplatform.so")) << library;
    EXPECT_EQ(moduleFileName(nullptr), "");
    EXPECT_TRUE(hostFileName().ends_with("/platform_test")) << hostFileName();
    setHostFileName("/opt/client/bin/onudesk");
    EXPECT_EQ(hostFileName(), "/opt/client/bin/onudesk");
    setHostFileName({});
    EXPECT_TRUE(hostFileName().ends_with("/platform_test"));
}

TEST(Locales, HaveTheirAbbreviations) {
    EXPECT_EQ(localeAbbreviation(1033), "ENU");
    EXPECT_EQ(localeAbbreviation(2052), "CHS");
    EXPECT_EQ(localeAbbreviation(0), "");
}

struct CommandCase {
    const char* line;
    bool understood;
    const char* book;
    const char* topic;
};

TEST(Commands, OnlyTheHelpCommandIsCarriedOut) {
    const CommandCase cases[] = {
        {R"(hh mk:@MSITStore:C:\Client\Help\confighelp.chm::/onuBasic.htm)", true,
         R"(C:\Client\Help\confighelp.chm)", "onuBasic.htm"},
        {"hh mk:@MSITStore:/a::/b.chm::/index.htm", true, "/a::/b.chm", "index.htm"},
        {"hh mk:@MSITStore:book.chm", false, "", ""},
        {"hh book.chm::/index.htm", false, "", ""},
        {"rm -rf /", false, "", ""},
        {"", false, "", ""},
    };
    for (const CommandCase& expected : cases) {
        TestDesk desk;
        EXPECT_EQ(runCommand(expected.line), expected.understood) << expected.line;
        EXPECT_EQ(desk.commands, std::vector<std::string>{expected.line});
        ASSERT_EQ(desk.help.size(), expected.understood ? 1U : 0U);
        if (expected.understood) {
            EXPECT_EQ(desk.help[0].book, expected.book);
            EXPECT_EQ(desk.help[0].topic, expected.topic);
        }
    }
    EXPECT_FALSE(runCommand("hh mk:@MSITStore:a.chm")); // and nothing happens without a desktop
}

TEST(Prompts, WithoutPrompterQuestionsAreAnsweredNo) {
    EXPECT_EQ(prompt({.text = "sure?", .buttons = PromptButtons::yesNo}), PromptAnswer::no);
    EXPECT_EQ(prompt({.text = "told"}), PromptAnswer::ok);
    TestDesk desk;
    desk.answer = PromptAnswer::yes;
    EXPECT_EQ(prompt({.text = "sure?", .buttons = PromptButtons::yesNo}), PromptAnswer::yes);
    EXPECT_EQ(desk.takeBox().text, "sure?");
}

} // namespace
} // namespace onudesk::platform
