// SPDX-License-Identifier: MIT
#include "desk/options.h"

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

TEST(Options, MistakesAreNamed) {
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"--simulate"}, "unknown argument --simulate"},
        {{"file.json"}, "unknown argument file.json"},
        {{"--sim", "my.snmprec"}, "unknown argument my.snmprec"},
        {{"--sim="}, "--sim: value missing"},
        {{"--client"}, "--client: value missing"},
        {{"--inventory", ""}, "--inventory: value missing"},
        {{"--help=me"}, "unknown argument --help"},
        {{"--locale", "en"}, "--locale en: must be the number of a language"},
        {{"--locale", "1"}, "--locale 1: must be the number of a language"},
        {{"--locale", "1033x"}, "--locale 1033x: must be"},
        {{"--sim", "--inventory", "f"}, "either --sim or --inventory"},
    };
    for (const auto& [arguments, reason] : cases) {
        const auto options = parseOptions(arguments);
        ASSERT_FALSE(options) << reason;
        EXPECT_NE(options.error().find(reason), std::string::npos) << options.error();
    }
}

} // namespace

} // namespace onudesk::desk
