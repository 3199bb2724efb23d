// SPDX-License-Identifier: MIT
#include "ctl/script.h"

#include "support/client_tree.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace onudesk::ctl {
namespace {

using Words = std::vector<std::string>;

TEST(Script, StepsKeepTheirLineTextAndWords) {
    const auto steps = parseScript("# names\n\n  open 606\t\r\n   # more\nset nameEdit \"a # b\" \n"
                                   "row mainTable none\nrow mainTable 0\nexpect writes 12\nwait");
    ASSERT_TRUE(steps) << steps.error();
    ASSERT_EQ(steps->size(), 6U);
    EXPECT_EQ((*steps)[0].kind, StepKind::open);
    EXPECT_EQ((*steps)[0].line, 3);
    EXPECT_EQ((*steps)[0].text, "open 606");
    EXPECT_EQ((*steps)[0].number, 606);
    EXPECT_EQ((*steps)[1].kind, StepKind::set);
    EXPECT_EQ((*steps)[1].line, 5);
    EXPECT_EQ((*steps)[1].arguments, (Words{"nameEdit", "a # b"}));
    EXPECT_EQ((*steps)[2].number, kNoRow);
    EXPECT_EQ((*steps)[3].number, 0);
    EXPECT_EQ((*steps)[4].kind, StepKind::expectWrites);
    EXPECT_EQ((*steps)[4].number, 12);
    EXPECT_EQ((*steps)[5].line, 9);
}

TEST(Script, WordsAreSplitAtBlanksOutsideQuotes) {
    const std::pair<const char*, const char*> texts[] = {
        {"set e plain", "plain"},
        {R"(set e "")", ""},
        {R"(set   e	"two words" )", "two words"},
        {R"(set e "say \"hi\" \\ \n.")", "say \"hi\" \\ \n."},
        {R"(set e back\slash)", "back\\slash"},
        {"set e 北", "北"},
        {"set e #5", "#5"},
    };
    for (const auto& [line, text] : texts) {
        const auto steps = parseScript(line);
        ASSERT_TRUE(steps) << line << ": " << steps.error();
        EXPECT_EQ(steps->front().arguments, (Words{"e", text})) << line;
    }
}

TEST(Script, ExpectationsAreToldApartByTheirFirstWord) {
    const std::pair<const char*, StepKind> lines[] = {
        {"expect nameEdit text x", StepKind::expectControl},
        {"expect mainTable row:12 \"a | b\"", StepKind::expectControl},
        {"expect box none c t", StepKind::expectBox},
        {"expect nobox", StepKind::expectNoBox},
        {"expect writes 0", StepKind::expectWrites},
    };
    for (const auto& [line, kind] : lines) {
        const auto steps = parseScript(line);
        ASSERT_TRUE(steps) << line << ": " << steps.error();
        EXPECT_EQ(steps->front().kind, kind) << line;
    }
}

TEST(Script, MistakesAreNamedWithTheirLineBeforeAnythingRuns) {
    const std::pair<const char*, const char*> cases[] = {
        {"wait\nwobble", "line 2: unknown step wobble"},
        {"\n\nOpen 606", "line 3: unknown step Open"},
        {"open", "line 1: wrong number of arguments, must be open ITEM"},
        {"open 606 607", "must be open ITEM"},
        {"open basic", "open: \"basic\" must be"},
        {"open -606", "open: \"-606\" must be"},
        {"open 99999999999", "open: \"99999999999\" must be"},
        {"set nameEdit two words", "must be set CONTROL TEXT"},
        {"set nameEdit \"open", "closing quote"},
        {"set nameEdit \"a\\t\"", "backslash"},
        {"set nameEdit \"a\\", "backslash"},
        {"set nameEdit \"a\"b", "blank must follow"},
        {"set nameEdit a\"b", "begin of a word"},
        {"check box yes", "check: \"yes\" must be on or off"},
        {"row mainTable -1", "row: \"-1\" must be"},
        {"row mainTable 1.5", "row: \"1.5\" must be"},
        {"doubleclick mainTable none", "doubleclick: \"none\" must be"},
        {"key Retrun", "key: \"Retrun\" must be"},
        {"key \"Ctrl+K, Ctrl+B\"", "must be a key"},
        {"key \"\"", "must be a key"},
        {"answer maybe", "answer: \"maybe\" must be"},
        {"wait 5", "must be wait"},
        {"screenshot \"\"", "no name"},
        {"expect", "must be expect CONTROL"},
        {"expect nameEdit colour red", "expect: \"colour\" must be a property"},
        {"expect mainTable row:x a", "\"row:x\" must be a property"},
        {"expect box error c t", "expect: \"error\" must be none"},
        {"expect box none c", "must be expect box ICON CAPTION TEXT"},
        {"expect nobox at all", "must be expect nobox"},
        {"expect writes some", "expect: \"some\" must be a number"},
    };
    for (const auto& [script, reason] : cases) {
        const auto steps = parseScript(script);
        ASSERT_FALSE(steps) << script;
        EXPECT_NE(steps.error().find(reason), std::string::npos) << script << ": " << steps.error();
    }
}

TEST(Script, PicturesGoBelowTheDirectoryInWhichTheScriptWasRead) {
    const auto steps = parseScript("screenshot p.png\nscreenshot /p.png");
    ASSERT_TRUE(steps);
    EXPECT_EQ((*steps)[0].arguments[0], (std::filesystem::current_path() / "p.png").string());
    EXPECT_EQ((*steps)[1].arguments[0], "/p.png");
}

TEST(Script, FilesAreNamedInErrors) {
    const test::TemporaryDirectory directory;
    const auto good = loadScript(directory.write("good.onu", "wait\n"));
    ASSERT_TRUE(good) << good.error();
    EXPECT_EQ(good->size(), 1U);
    EXPECT_NE(loadScript(directory.write("bad.onu", "wait\nfly")).error().find("bad.onu: line 2"),
              std::string::npos);
    EXPECT_NE(loadScript("/nowhere.onu").error().find("/nowhere.onu"), std::string::npos);
    const auto huge = directory.write("huge.onu", std::string(1024 * 1024 + 1, '\n'));
    EXPECT_FALSE(loadScript(huge));
}

} // namespace
} // namespace onudesk::ctl
