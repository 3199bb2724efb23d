// SPDX-License-Identifier: MIT
#include "ctl/script.h"

#include "support/client_tree.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace onudesk::ctl {
namespace {

TEST(Script, StepsKeepTheirLineTextAndWords) {
    const auto steps = parseScript("# names\n\n  open 606\t\r\n   # more\nset nameEdit \"a # b\" \n"
                                   "row mainTable none\nrow mainTable 0\nexpect writes 12\nwait\n"
                                   "screenshot p.png\nscreenshot /p.png");
    ASSERT_TRUE(steps) << steps.error();
    std::string all;
    for (const Step& step : *steps) {
        all += std::to_string(step.line) + ' ' + step.text + " = " + std::to_string(step.number);
        for (const std::string& argument : step.arguments) {
            all += '|' + argument;
        }
        all += '\n';
    }
    EXPECT_EQ(all, "3 open 606 = 606|606\n5 set nameEdit \"a # b\" = 0|nameEdit|a # b\n"
                   "6 row mainTable none = -1|mainTable|none\n7 row mainTable 0 = 0|mainTable|0\n"
                   "8 expect writes 12 = 12|writes|12\n9 wait = 0\n10 screenshot p.png = 0|" +
                       (std::filesystem::current_path() / "p.png").string() +
                       "\n11 screenshot /p.png = 0|/p.png\n");
}

TEST(Script, WordsAreSplitAtBlanksOutsideQuotesAndTellTheKind) {
    struct Case {
        const char* line;
        StepKind kind;
        const char* last;
    };
    const Case rows[] = {
        {"set e plain", StepKind::set, "plain"},
        {R"(set e "")", StepKind::set, ""},
        {R"(set   e	"two words" )", StepKind::set, "two words"},
        {R"(set e "say \"hi\" \\ \n.")", StepKind::set, "say \"hi\" \\ \n."},
        {R"(set e back\slash)", StepKind::set, "back\\slash"},
        {"set e 北", StepKind::set, "北"},
        {"set e #5", StepKind::set, "#5"},
        {"expect nameEdit text x", StepKind::expectControl, "x"},
        {"expect nameEdit editable true", StepKind::expectControl, "true"},
        {"expect mainTable row:12 \"a | b\"", StepKind::expectControl, "a | b"},
        {"expect box none c t", StepKind::expectBox, "t"},
        {"expect nobox", StepKind::expectNoBox, "nobox"},
        {"expect writes 0", StepKind::expectWrites, "0"},
    };
    for (const Case& row : rows) {
        const auto steps = parseScript(row.line);
        ASSERT_TRUE(steps) << row.line << ": " << steps.error();
        EXPECT_EQ(steps->front().kind, row.kind) << row.line;
        EXPECT_EQ(steps->front().arguments.back(), row.last) << row.line;
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
