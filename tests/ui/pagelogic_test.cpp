// SPDX-License-Identifier: MIT
#include "pages/framework/checks.h"
#include "pages/framework/fields.h"
#include "pages/framework/value_map.h"
#include "pages/framework/vlan_list.h"

#include <set>

#include <gtest/gtest.h>

namespace onudesk {
namespace {

using platform::PromptIcon;

TEST(ValueMaps, SortByDisplayBytesAndTellTextsOfCodes) {
    const ValueMap map(
        {{"no", "0"}, {"Yes", "1"}, {"\xE5\x85\xB3", "2"}, {"maybe", "10"}, {"", "3"}, {"", "4"}});
    std::string values;
    for (const ValuePair& pair : map.pairs()) {
        values += pair.value + " ";
    }
    EXPECT_EQ(values, "3 4 1 10 0 2 ");
    EXPECT_EQ(map.textOf("0"), "no");
    EXPECT_EQ(map.textOf("no"), "");
    EXPECT_TRUE(map.hasValue("4"));
    EXPECT_FALSE(map.hasValue("maybe"));
    const ValueMap numbers = ValueMap::numbers(8, 10);
    ASSERT_EQ(numbers.pairs().size(), 3U);
    EXPECT_EQ(numbers.pairs()[2].value, "10");
    EXPECT_EQ(numbers.textOf("8"), "8");
    EXPECT_TRUE(ValueMap().empty());
}

TEST(RangeCheck, IsInclusiveReadsLeadingDigitsAndRefusesTheRest) {
    struct Case {
        std::int64_t minimum;
        std::int64_t maximum;
        int base;
        std::vector<const char*> good;
        std::vector<const char*> bad;
    };
    const Case cases[] = {{1, 9, 10, {"1", "9", "  5x", "+5"}, {"0", "10"}},
                          {0, 9, 10, {}, {"", "abc"}},
                          {-9, 9, 10, {"-5"}, {"+-5"}},
                          {0, 4294967295, 10, {"4294967295"}, {"4294967296"}},
                          {0, 9223372036854775807, 10, {}, {"99999999999999999999"}},
                          {0, 255, 16, {"ff", "fg"}, {"100", "g"}}};
    for (const auto& [minimum, maximum, base, good, bad] : cases) {
        for (const char* text : good) {
            EXPECT_FALSE(checkRange(text, minimum, maximum, base)) << text;
        }
        for (const char* text : bad) {
            const auto failure = checkRange(text, minimum, maximum, base);
            ASSERT_TRUE(failure) << text;
            EXPECT_EQ(failure->textId, 11068);
            EXPECT_EQ(failure->captionId, 11054);
            EXPECT_EQ(failure->icon, PromptIcon::warning);
            EXPECT_EQ(failure->arguments,
                      (std::vector<std::string>{std::to_string(minimum), std::to_string(maximum)}));
        }
    }
}

TEST(DottedQuadCheck, IsNoStricterThanLengthDigitsAndGroups) {
    for (const char* good :
         {"1.2.3.4", "999.999.999.999", "1.2.3.4.5", "1..2.3.4", "123.456", "255.255.255.255"}) {
        EXPECT_FALSE(checkDottedQuad(good)) << good;
    }
    for (const char* bad :
         {"", "1.2.3", "1234.1.1.1", "1.2.3.a", "1.2.3.4 ", "255.255.255.2555", "-1.2.3.4"}) {
        const auto failure = checkDottedQuad(bad);
        ASSERT_TRUE(failure) << bad;
        EXPECT_EQ(failure->textId, 11069);
        EXPECT_EQ(failure->captionId, 11054);
    }
}

TEST(MacCheck, NormalisesAndRefuses) {
    struct Case {
        const char* text;
        int failureId; // 0: passes
        const char* address;
    };
    const Case cases[] = {{"00:1a:2b:3c:4d:5e", 0, "00:1a:2b:3c:4d:5e"},
                          {"00:1A:2B:3C:4D:5E", 0, "00:1a:2b:3c:4d:5e"},
                          {"0 :1a:  :3c:4d:5e", 0, "00:1a:00:3c:4d:5e"},
                          {"00:1g:2b:3c:4d:5e", 3028, nullptr},
                          {"00:1a:2b:3c:4d:5-", 3028, nullptr},
                          {"  :  :  :  :  :  ", 3029, nullptr},
                          {"00:00:00:00:00:00", 3029, nullptr}};
    for (const Case& expected : cases) {
        const MacCheck check = checkMac(expected.text, 3028, PromptIcon::none);
        EXPECT_EQ(check.failure ? check.failure->textId : 0, expected.failureId) << expected.text;
        if (check.failure) {
            EXPECT_EQ(check.failure->captionId, 113);
            EXPECT_EQ(check.failure->icon, PromptIcon::none);
        } else {
            EXPECT_EQ(check.address, expected.address);
        }
    }
}

TEST(Conversions, OfMacsAndNumbers) {
    EXPECT_EQ(bytesOfHex("00:1a:2B:3c:4d:5E"), std::string("\x00\x1A\x2B\x3C\x4D\x5E", 6));
    EXPECT_EQ(bytesOfHex("abc"), "\xAB");
    EXPECT_EQ(colonSeparated("001a2b3c4d5e"), "00:1a:2b:3c:4d:5e");
    EXPECT_EQ(colonSeparated("001a2"), "001a2");
    EXPECT_EQ(colonSeparated(""), "");
    EXPECT_EQ(macText(std::string("\0\x1A\x2B\xFC\x4D\x5E", 6)), "00:1a:2b:fc:4d:5e");
    EXPECT_EQ(macText("001A2BFC4D5E"), "00:1a:2b:fc:4d:5e");
    EXPECT_EQ(macText("0Ag4"), "0A:g4");
    EXPECT_EQ(macText(""), "");
    EXPECT_EQ(instanceBelow("1.3.6.1", "1.3.6.1.2.5"), "2.5");
    EXPECT_EQ(instanceBelow("1.3.6.1", ".1.3.6.1.2"), "2");
    for (const char* other : {"1.3.6.1", "1.3.6.12.5", "1.3.6", "", "x"}) {
        EXPECT_EQ(instanceBelow("1.3.6.1", other), "") << other;
    }
    EXPECT_EQ(hexOfDecimal("26", 2), "1A");
    EXPECT_EQ(hexOfDecimal("3", 4), "0003");
    EXPECT_EQ(hexOfDecimal("4294967295", 4), "FFFFFFFF");
    EXPECT_EQ(hexOfDecimal("-1", 4), "FFFFFFFF");
    EXPECT_EQ(hexOfDecimal("many", 2), "00");
}

TEST(FieldChecks, ApplyToWhatWouldBeWrittenOnly) {
    struct Case {
        Written written;
        bool enabled;
        bool ticked;
        bool isSent;
        bool checked;
    };
    const Case cases[] = {{Written::always, true, true, true, true},
                          {Written::always, false, true, true, false},
                          {Written::always, true, false, false, false},
                          {Written::whileEnabled, true, true, true, true},
                          {Written::whileEnabled, false, true, false, false},
                          {Written::whileEnabled, true, false, false, false},
                          {Written::never, true, true, false, false}};
    for (const Case& expected : cases) {
        const Field field{.control = "edit", .check = numberIn(1, 9), .written = expected.written};
        const FieldState state{"0", {}, expected.enabled, expected.ticked};
        EXPECT_EQ(isWritten(field, state), expected.isSent);
        EXPECT_EQ(checkField(field, state).has_value(), expected.checked);
    }
}

TEST(FieldChecks, EmptyTextComesBeforeRangeAndFunction) {
    struct Case {
        EmptyText empty;
        const char* text;
        std::optional<int> textId; // 0: only the focus moves
    };
    const Case cases[] = {
        {EmptyText::fails, "", 11068},        {EmptyText::takesFocus, "", 0},
        {EmptyText::blankTakesFocus, "", 0},  {EmptyText::blankTakesFocus, "  ", 0},
        {EmptyText::takesFocus, "  ", 11068}, {EmptyText::takesFocus, "99", 11068},
        {EmptyText::takesFocus, "5", 1},      {EmptyText::takesFocus, "7", {}}};
    std::string taken = "7";
    Field field{.control = "edit",
                .check = FieldCheck{.range = FieldCheck::Range{0, 9},
                                    .function =
                                        [&taken](std::string_view text) {
                                            return text == taken ? std::nullopt
                                                                 : std::optional(CheckFailure{1});
                                        }},
                .written = Written::always};
    for (const auto& [empty, text, textId] : cases) {
        field.check->empty = empty;
        const auto failure = checkField(field, {text, {}});
        EXPECT_EQ(failure ? std::optional(failure->textId) : std::nullopt, textId) << text;
    }
    taken = "5";
    EXPECT_FALSE(checkField(field, {"5", {}})) << "what a function knows can change";
}

TEST(FieldTexts, EndAtAZeroByteAndAreWrittenAsCodes) {
    const ValueMap map({{"on", "1"}, {"off", "0"}});
    ReadResult result;
    result.values = {std::string("a\0b", 3)};
    EXPECT_EQ(shownText({.control = "a", .position = 0}, result), "a");
    EXPECT_EQ(shownText({.control = "a"}, result), std::nullopt);
    EXPECT_EQ(writtenValue({.control = "a", .codes = map}, {"on", "1"}), "1");
    EXPECT_EQ(writtenValue({.control = "a", .codes = map}, {"", {}}), "");
}

TEST(VlanLists, NameEveryVlanOnce) {
    const std::pair<const char*, std::set<int>> lists[] = {
        {"8,9,11-15", {8, 9, 11, 12, 13, 14, 15}},
        {"9,8,8-9,8,", {8, 9}},
        {" 1 ,\n4093 - 4094 ", {1, 4093, 4094}},
        {"5-5", {5}},
        {"7,15-11", {7}}};
    for (const auto& [text, vlans] : lists) {
        EXPECT_EQ(parseVlanList(text), vlans) << text;
    }
    for (const char* text : {"15-11",       "",    " , ", ",",    "1,,2", "1,0",    "1,4095",
                             "4094-4095",   "0-2", "5-0", "5--3", "+5",   "4095-1", "1-2000000000",
                             "99999999999", "7x",  "1 2", "1-",   "-5",   "1-2-3",  "1;2"}) {
        EXPECT_EQ(parseVlanList(text).value_or(std::set<int>()), std::set<int>()) << text;
    }
    EXPECT_EQ(vlanListText({11, 8, 4094}), "8,11,4094");
    EXPECT_EQ(vlanListText({}), "");
}

} // namespace
} // namespace onudesk
