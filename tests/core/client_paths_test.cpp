// SPDX-License-Identifier: MIT
#include "env/client_paths.h"
#include "env/help_index.h"

#include "support/client_tree.h"
#include "support/test_desk.h"

#include <gtest/gtest.h>

namespace onudesk {
namespace {

using test::ClientTree;
using test::TemporaryDirectory;
using test::TestDesk;

TEST(ClientRoot, DropsTheLastTwoComponents) {
    const std::pair<const char*, const char*> cases[] = {
        {R"(C:\Client\bin\host.exe)", R"(C:\Client)"},
        {R"(C:\host.exe)", "C:"},
        {"host.exe", "host.exe"},
        {"/opt/onudesk/bin/onudesk", "/opt/onudesk"},
        {"/onudesk", ""},
        {"/bin/onudesk", ""},
    };
    for (const auto& [program, root] : cases) {
        EXPECT_EQ(clientRoot(program), root) << program;
    }
}

TEST(HelpIndexFile, TakesTopicAndKeyAndSkipsOtherLines) {
    const TemporaryDirectory directory;
    const auto file = directory.write("help.txt", "6207=onuDba.htm\tx DBA\r\n"
                                                  "6204=onuBasic.htm\tx Basic information\n"
                                                  "no equals sign\tx key\n"
                                                  "6205=noTab x key\n"
                                                  "6206=noBlank.htm\tkey\n"
                                                  "\n"
                                                  "6208=second.htm\tx DBA\n"
                                                  "6209=last.htm\tx last");
    HelpIndex index;
    std::vector<std::string> duplicates;
    loadHelpIndex(index, file, [&](const std::string& key) { duplicates.push_back(key); });
    EXPECT_EQ(index, (HelpIndex{{"DBA", "onuDba.htm"},
                                {"Basic information", "onuBasic.htm"},
                                {"last", "last.htm"}}));
    EXPECT_EQ(duplicates, std::vector<std::string>{"DBA"});
    loadHelpIndex(index, directory.path() / "missing.txt", [](const std::string&) { FAIL(); });
    EXPECT_EQ(index.size(), 3U);
}

TEST(HelpIndexFile, CutsLinesAt1023Bytes) {
    const TemporaryDirectory directory;
    const std::string head = "1=t.htm\tx ";
    const auto file =
        directory.write("help.txt", head + std::string(2000, 'k') + "\n2=u.htm\tx b\n");
    HelpIndex index;
    loadHelpIndex(index, file, [](const std::string&) { FAIL(); });
    ASSERT_EQ(index.size(), 2U);
    EXPECT_TRUE(index.contains(std::string(1023 - head.size(), 'k')));
}

TEST(HelpIndexOnce, LoadsWhileEmptyAndShowsDuplicatesOnce) {
    const TemporaryDirectory directory;
    directory.write("Help/book.txt", "1=a.htm\tx A\n2=b.htm\tx A\n");
    const ClientTree tree(directory.path());
    TestDesk desk;
    clearHelpIndex();
    loadHelpIndexOnce("book");
    const auto box = desk.takeBox();
    EXPECT_EQ(box.text, "A");
    EXPECT_EQ(box.icon, platform::PromptIcon::none);
    loadHelpIndexOnce("book"); // a second session finds it loaded
    EXPECT_EQ(currentHelpIndex(), (HelpIndex{{"A", "a.htm"}}));
    clearHelpIndex();
    loadHelpIndexOnce("missing");
    EXPECT_TRUE(currentHelpIndex().empty());
}

TEST(PageHelp, OpensTheTopicOfAKnownKeyOnly) {
    const TemporaryDirectory directory;
    const ClientTree tree(directory.path());
    TestDesk desk;
    const HelpIndex index{{"A", "a.htm"}};
    openPageHelp("", index, "book");
    openPageHelp("B", index, "book");
    EXPECT_TRUE(desk.help.empty());
    openPageHelp("A", index, "book");
    ASSERT_EQ(desk.help.size(), 1U);
    EXPECT_EQ(desk.help[0].book, directory.path().string() + "\\Help\\book.chm");
    EXPECT_EQ(desk.help[0].topic, "a.htm");
}

} // namespace
} // namespace onudesk
