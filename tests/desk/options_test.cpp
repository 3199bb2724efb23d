// SPDX-License-Identifier: MIT
#include "host/desk/options.h"

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace onudesk::desk {

namespace {

TEST(Options, TakesEveryOptionInBothForms) {
    const auto options =
        parseOptions({"--client", "/c", "--inventory=/i/x=y.json", "--locale", "2052"});
    ASSERT_TRUE(options) << options.error();
    EXPECT_EQ(options->client, "/c");
    EXPECT_EQ(options->inventory, "/i/x=y.json");
    EXPECT_EQ(options->localeId, 2052U);
    EXPECT_FALSE(options->simulate);
}

TEST(Options, RecordingBelongsToSimOnlyBehindAnEqualsSign) {
    const auto plain = parseOptions({"--sim"});
    ASSERT_TRUE(plain) << plain.error();
    EXPECT_TRUE(plain->simulate);
    EXPECT_FALSE(plain->recording);
    const auto named = parseOptions({"--sim=my.snmprec"});
    ASSERT_TRUE(named) << named.error();
    // Absolute, for the current directory changes later.
    EXPECT_EQ(named->recording, std::filesystem::current_path() / "my.snmprec");
}

TEST(Options, NothingGivenIsNothingSet) {
    const auto options = parseOptions({});
    ASSERT_TRUE(options) << options.error();
    EXPECT_FALSE(options->help || options->version || options->simulate);
    EXPECT_FALSE(options->client || options->inventory || options->localeId);
}

struct BadArguments {
    const char* name;
    std::vector<std::string> arguments;
    const char* error;
};

const BadArguments kBadArguments[] = {
    {"Unknown", {"--simulate"}, "unknown argument --simulate"},
    {"Operand", {"file.json"}, "unknown argument file.json"},
    {"RecordingApart", {"--sim", "my.snmprec"}, "unknown argument my.snmprec"},
    {"EmptyRecording", {"--sim="}, "--sim: value missing"},
    {"ClientMissing", {"--client"}, "--client: value missing"},
    {"InventoryEmpty", {"--inventory", ""}, "--inventory: value missing"},
    {"HelpWithValue", {"--help=me"}, "unknown argument --help"},
    {"LocaleText", {"--locale", "en"}, "--locale en: must be the number of a language"},
    {"LocaleUnknown", {"--locale", "1"}, "--locale 1: must be the number of a language"},
    {"LocaleWithRest", {"--locale", "1033x"}, "--locale 1033x: must be"},
    {"SimAndInventory", {"--sim", "--inventory", "f"}, "either --sim or --inventory"},
};

class BadCommandLine : public testing::TestWithParam<BadArguments> {};

TEST_P(BadCommandLine, NamesTheArgument) {
    const auto options = parseOptions(GetParam().arguments);
    ASSERT_FALSE(options);
    EXPECT_NE(options.error().find(GetParam().error), std::string::npos) << options.error();
}

INSTANTIATE_TEST_SUITE_P(Table, BadCommandLine, testing::ValuesIn(kBadArguments),
                         [](const auto& param) { return param.param.name; });

} // namespace

} // namespace onudesk::desk
