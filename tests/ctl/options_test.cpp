// SPDX-License-Identifier: MIT
#include "ctl/options.h"

#include <gtest/gtest.h>

namespace onudesk::ctl {
namespace {

using Words = std::vector<std::string>;

TEST(Options, AreReadWhole) {
    const auto options = parseOptions({"--agent", "192.0.2.7:1161", "-v", "3", "--onu", "1.2.5",
                                       "--menu", "epononu4470_menu.xml", "--locale", "2052",
                                       "--secrets", "/s", "--trace", "-", "--json", "show", "606"});
    ASSERT_TRUE(options) << options.error();
    EXPECT_EQ(options->command, Command::show);
    EXPECT_EQ(options->item, 606);
    EXPECT_EQ(options->target.agentAddress, "192.0.2.7");
    EXPECT_EQ(options->target.port, 1161);
    EXPECT_EQ(options->target.version, host::SnmpVersion::v3);
    EXPECT_EQ(options->target.oltNumber, 1);
    EXPECT_EQ(options->target.ponNumber, 2);
    EXPECT_EQ(options->target.onuNumber, 5);
    EXPECT_EQ(options->target.menuFileName, "epononu4470_menu.xml");
    EXPECT_EQ(options->target.localeId, 2052U);
    EXPECT_EQ(options->secretsFile, "/s");
    EXPECT_EQ(options->traceFile, kStandardOutput);
    EXPECT_TRUE(options->json);
    EXPECT_FALSE(options->simulate);
}

TEST(Options, SimTakesAnOptionalFileAndJsonMayFollowTheCommand) {
    const auto plain = parseOptions({"--sim", "--onu=1.2", "items", "--json"});
    ASSERT_TRUE(plain) << plain.error();
    EXPECT_TRUE(plain->simulate);
    EXPECT_FALSE(plain->recording);
    EXPECT_TRUE(plain->json);
    EXPECT_EQ(plain->target.ponNumber, 2);
    EXPECT_EQ(plain->target.onuNumber, -1);
    EXPECT_EQ(plain->target.port, 161);
    const auto named = parseOptions({"--sim=/r.snmprec", "screenshot", "606", "/p.png"});
    ASSERT_TRUE(named) << named.error();
    EXPECT_EQ(named->recording, "/r.snmprec");
    EXPECT_EQ(named->outputFile, "/p.png");
    const auto single = parseOptions({"--sim", "--sub", "7", "--item", "617", "show", "617"});
    ASSERT_TRUE(single) << single.error();
    EXPECT_EQ(single->target.subIndex, 7);
    EXPECT_EQ(single->target.subUnitItemType, 617);
}

TEST(Options, RelativeFileNamesBecomeAbsolute) {
    const auto options = parseOptions(
        {"--sim=demo.snmprec", "--trace", "trace.jsonl", "screenshot", "606", "p.png"});
    ASSERT_TRUE(options);
    EXPECT_TRUE(options->recording->is_absolute());
    EXPECT_TRUE(options->traceFile->is_absolute());
    EXPECT_TRUE(options->outputFile.is_absolute());
}

TEST(Options, ScriptsComeFromAFileOrStandardInput) {
    const auto file = parseOptions({"--sim", "--watch", "run", "s.onu"});
    ASSERT_TRUE(file) << file.error();
    EXPECT_EQ(file->command, Command::run);
    EXPECT_TRUE(file->scriptFile.is_absolute());
    EXPECT_TRUE(file->watch);
    const auto input = parseOptions({"--sim", "run", "-", "--watch", "--json"});
    ASSERT_TRUE(input) << input.error();
    EXPECT_EQ(input->scriptFile, kStandardInput);
    EXPECT_TRUE(input->watch);
    EXPECT_TRUE(input->json);
}

TEST(Options, MistakesAreNamed) {
    const std::pair<Words, const char*> cases[] = {
        {{}, "no command"},
        {{"--sim"}, "no command"},
        {{"show", "606"}, "either --sim or --agent"},
        {{"--sim", "--agent", "10.0.0.1", "show", "606"}, "either --sim or --agent"},
        {{"--sim", "show"}, "show"},
        {{"--sim", "show", "606", "607"}, "show"},
        {{"--sim", "show", "basic"}, "item basic"},
        {{"--sim", "show", "-606"}, "item -606"},
        {{"--sim", "paint", "606"}, "paint"},
        {{"--sim", "--onu", "1.2.x", "items"}, "--onu 1.2.x"},
        {{"--sim", "--onu", "1.2.3.4", "items"}, "--onu 1.2.3.4"},
        {{"--sim", "--onu", "1..3", "items"}, "--onu 1..3"},
        {{"--sim", "-v", "2", "items"}, "-v 2"},
        {{"--sim", "--locale", "english", "items"}, "--locale english"},
        {{"--sim", "--sub", "7", "items"}, "--sub and --item"},
        {{"--sim", "--item", "617", "items"}, "--sub and --item"},
        {{"--agent", "10.0.0.1:0", "items"}, "10.0.0.1:0"},
        {{"--agent", "10.0.0.1:99999", "items"}, "10.0.0.1:99999"},
        {{"--password", "x", "items"}, "unknown option"},
        {{"--agent"}, "missing value"},
        {{"--sim", "--secrets", "", "items"}, "empty value"},
        {{"--sim", "--trace=", "items"}, "empty value"},
        {{"--sim", "screenshot", "606", ""}, "no name"},
        {{"--sim", "run"}, "run"},
        {{"--sim", "run", ""}, "no name"},
        {{"--sim", "--watch", "show", "606"}, "--watch goes with run only"},
        {{"--sim", "--menu", std::string(101, 'm'), "items"}, "--menu"},
    };
    for (const auto& [arguments, reason] : cases) {
        const auto options = parseOptions(arguments);
        ASSERT_FALSE(options) << reason;
        EXPECT_NE(options.error().find(reason), std::string::npos) << options.error();
    }
}

TEST(Options, HelpAndVersionNeedNothingElse) {
    EXPECT_EQ(parseOptions({"--help"})->command, Command::help);
    EXPECT_EQ(parseOptions({"--version"})->command, Command::version);
}

} // namespace
} // namespace onudesk::ctl
