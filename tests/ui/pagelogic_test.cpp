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
        const char* text;
        std::int64_t minimum;
        std::int64_t maximum;
        int base;
        bool passes;
    };
    const Case cases[] = {
        {"1", 1, 9, 10, true},
        {"9", 1, 9, 10, true},
        {"0", 1, 9, 10, false},
        {"10", 1, 9, 10, false},
        {"", 0, 9, 10, false},
        {"abc", 0, 9, 10, false},
        {"  5x", 1, 9, 10, true},
        {"+5", 1, 9, 10, true},
        {"+-5", -9, 9, 10, false},
        {"-5", -9, 9, 10, true},
        {"4294967295", 0, 4294967295, 10, true},
        {"4294967296", 0, 4294967295, 10, false},
        {"99999999999999999999", 0, 9223372036854775807, 10, false},
        {"ff", 0, 255, 16, true},
        {"100", 0, 255, 16, false},
        {"fg", 0, 255, 16, true},
        {"g", 0, 255, 16, false},
    };
    for (const Case& expected : cases) {
        const auto failure =
            checkRange(expected.text, expected.minimum, expected.maximum, expected.base);
        EXPECT_EQ(!failure, expected.passes) << expected.text;
        if (failure) {
            EXPECT_EQ(failure->textId, 11068);
            EXPECT_EQ(failure->captionId, 11054);
            EXPECT_EQ(failure->icon, PromptIcon::warning);
            EXPECT_EQ(failure->arguments,
                      (std::vector<std::string>{std::to_string(expected.minimum),
                                                std::to_string(expected.maximum)}));
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
    const Case cases[] = {
        {"00:1a:2b:3c:4d:5e", 0, "00:1a:2b:3c:4d:5e"},
        {"00:1A:2B:3C:4D:5E", 0, "00:1a:2b:3c:4d:5e"},
        {"0 :1a:  :3c:4d:5e", 0, "00:1a:00:3c:4d:5e"},
        {"00:1g:2b:3c:4d:5e", 3028, nullptr},
        {"00:1a:2b:3c:4d:5-", 3028, nullptr},
        {"  :  :  :  :  :  ", 3029, nullptr},
        {"00:00:00:00:00:00", 3029, nullptr},
    };
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

std::optional<CheckFailure> onlyX(std::string_view text) {
    return text == "x" ? std::nullopt : std::optional(CheckFailure{1});
}

TEST(FieldChecks, ApplyToWhatWouldBeWrittenOnly) {
    struct Case {
        Written written;
        bool enabled;
        bool ticked;
        bool isSent;
        bool checked;
    };
    const Case cases[] = {
        {Written::always, true, true, true, true},
        {Written::always, false, true, true, false},
        {Written::always, true, false, false, false},
        {Written::whileEnabled, true, true, true, true},
        {Written::whileEnabled, false, true, false, false},
        {Written::whileEnabled, true, false, false, false},
        {Written::never, true, true, false, false},
    };
    for (const Case& expected : cases) {
        const Field field{.control = "edit", .check = numberIn(1, 9), .written = expected.written};
        const FieldState state{"0", {}, expected.enabled, expected.ticked};
        EXPECT_EQ(isWritten(field, state), expected.isSent);
        EXPECT_EQ(checkField(field, state).has_value(), expected.checked);
    }
}

TEST(FieldChecks, EmptyTextComesBeforeRangeAndFunction) {
    const FieldState empty{"", {}};
    Field field{.control = "edit",
                .check = FieldCheck{.range = FieldCheck::Range{0, 9}, .function = &onlyX},
                .written = Written::always};
    EXPECT_EQ(checkField(field, empty)->textId, 11068);
    field.check->empty = EmptyText::takesFocus;
    EXPECT_EQ(checkField(field, empty)->textId, 0);
    field.check->empty = EmptyText::blankTakesFocus;
    EXPECT_EQ(checkField(field, empty)->textId, 0);
    EXPECT_EQ(checkField(field, {"  ", {}})->textId, 0);
    field.check->empty = EmptyText::takesFocus;
    EXPECT_EQ(checkField(field, {"  ", {}})->textId, 11068);
    EXPECT_EQ(checkField(field, {"99", {}})->textId, 11068);
    EXPECT_EQ(checkField(field, {"5", {}})->textId, 1);
    field.check->range.reset();
    EXPECT_FALSE(checkField(field, {"x", {}}));
    std::string taken = "y";
    field.check->function = [&taken](std::string_view text) {
        return text == taken ? std::optional(CheckFailure{2}) : std::nullopt;
    };
    EXPECT_FALSE(checkField(field, {"x", {}}));
    taken = "x";
    EXPECT_EQ(checkField(field, {"x", {}})->textId, 2) << "what a function knows can change";
}

TEST(FieldTexts, ShowByPositionThroughMapOrFunction) {
    const ValueMap map({{"on", "1"}, {"off", "0"}});
    ReadResult result;
    result.values = {"1", "2", std::string("a\0b", 3)};
    EXPECT_EQ(shownText({.control = "a", .position = 0, .codes = map}, result), "on");
    EXPECT_EQ(shownText({.control = "a", .position = 1, .codes = map}, result), "");
    EXPECT_EQ(shownText({.control = "a", .position = 1, .codes = map.keepingUnknown()}, result),
              std::nullopt);
    EXPECT_EQ(shownText({.control = "a", .position = 2}, result), "a");
    EXPECT_EQ(shownText({.control = "a", .position = 3}, result), std::nullopt);
    EXPECT_EQ(shownText({.control = "a"}, result), std::nullopt);
    EXPECT_EQ(writtenValue({.control = "a", .codes = map}, {"on", "1"}), "1");
    EXPECT_EQ(writtenValue({.control = "a", .codes = map}, {"", {}}), "");
    EXPECT_EQ(writtenValue({.control = "a"}, {"text", {}}), "text");
    EXPECT_EQ(writtenValue(constant({"row"}, "4"), {}), "4");
}

TEST(VlanLists, NameEveryVlanOnce) {
    struct Case {
        const char* text;
        std::set<int> vlans; // empty: no list
    };
    const Case cases[] = {
        {"8,9,11-15", {8, 9, 11, 12, 13, 14, 15}},
        {"9,8,8-9,8,", {8, 9}},
        {" 1 ,\n4093 - 4094 ", {1, 4093, 4094}},
        {"5-5", {5}},
        {"7,15-11", {7}},
        {"15-11", {}},
        {"", {}},
        {" , ", {}},
        {",", {}},
        {"1,,2", {}},
        {"1,0", {}},
        {"1,4095", {}},
        {"4094-4095", {}},
        {"0-2", {}},
        {"5-0", {}},
        {"5--3", {}},
        {"+5", {}},
        {"4095-1", {}},
        {"1-2000000000", {}},
        {"99999999999", {}},
        {"7x", {}},
        {"1 2", {}},
        {"1-", {}},
        {"-5", {}},
        {"1-2-3", {}},
        {"1;2", {}},
    };
    for (const Case& expected : cases) {
        EXPECT_EQ(parseVlanList(expected.text).value_or(std::set<int>()), expected.vlans)
            << expected.text;
    }
    EXPECT_EQ(vlanListText({11, 8, 4094}), "8,11,4094");
    EXPECT_EQ(vlanListText({}), "");
}

} // namespace
} // namespace onudesk
