// SPDX-License-Identifier: MIT
#include "host/snmp_value.h"

#include "base/hexadecimal.h"
#include "snmp/oid.h"

#include <gtest/gtest.h>

namespace onudesk::host::test {

TEST(OidTest, OnlyNumbersJoinedBySingleDots) {
    EXPECT_EQ(parseOid("1.3.6"), (Oid{1, 3, 6}));
    EXPECT_EQ(parseOid(".1.4294967295"), (Oid{1, 4294967295U}));
    EXPECT_EQ(parseOid(""), Oid{});
    for (const char* text : {".", "1.", "1..3", "..1", "1.3 ", " 1", "-1", "+1", "1.4294967296",
                             "1.a", "1,3", "0x1"}) {
        EXPECT_FALSE(parseOid(text).has_value()) << text;
    }
}

TEST(OidTest, HasAtMost128Arcs) {
    std::string text = "1";
    for (int arc = 1; arc < 128; ++arc) {
        text += ".1";
    }
    EXPECT_EQ(parseOid(text)->size(), 128U);
    EXPECT_EQ(formatOid(*parseOid(text)), text);
    EXPECT_FALSE(parseOid(text + ".1").has_value());
}

TEST(ValueTextTest, OctetsAreTextWhenTheyAreAndDigitsOtherwise) {
    struct Case {
        std::string octets;
        std::string text;
    };
    const std::vector<Case> cases = {
        {"", ""},
        {"ONU 5", "ONU 5"},
        {"\xE4\xB8\xAD\xE6\x96\x87", "\xE4\xB8\xAD\xE6\x96\x87"}, // two Chinese characters
        {"\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80"},
        {"a\tb\r\nc", "a\tb\r\nc"},
        {"a\x0B", "610B"},
        {std::string("a\0", 2), "6100"},
        {"\x7F", "7F"},
        {"\xC2\x85", "C285"},             // a control character beyond ASCII
        {"\xC0\xAF", "C0AF"},             // overlong
        {"\xE0\x80\xAF", "E080AF"},       // overlong
        {"\xED\xA0\x80", "EDA080"},       // surrogate
        {"\xF4\x90\x80\x80", "F4908080"}, // above the last character
        {"\xF5\x80\x80\x80", "F5808080"},
        {"a\xE4\xB8", "61E4B8"}, // cut
        {"\xE4"
         "bc",
         "E46263"},
        {"\x80", "80"},
        {std::string("\x00\x1A\x2B\x3C\x4D\x5E", 6), "001A2B3C4D5E"},
    };
    for (const Case& known : cases) {
        const SnmpValue value{.tag = tag::octets, .octets = known.octets};
        EXPECT_EQ(valueText(value, false), known.text);
        EXPECT_EQ(valueText(value, true), hexDigits(known.octets));
        EXPECT_EQ(valueLength(value), known.octets.size());
    }
}

TEST(ValueTextTest, OtherTypesHaveTheirOwnTextsAndLengths) {
    struct Case {
        SnmpValue value;
        const char* text = nullptr;
        std::size_t length = 0;
    };
    const auto integer = [](std::int64_t number) {
        return SnmpValue{.tag = tag::integer, .number = static_cast<std::uint64_t>(number)};
    };
    for (const Case& known : {
             Case{integer(0), "0", 1},
             Case{integer(127), "127", 1},
             Case{integer(128), "128", 2},
             Case{integer(-128), "-128", 1},
             Case{integer(-129), "-129", 2},
             Case{integer(-2147483648LL), "-2147483648", 4},
             Case{{.tag = tag::gauge, .number = 255}, "255", 2},
             Case{{.tag = tag::counter, .number = 4294967295U}, "4294967295", 5},
             Case{{.tag = tag::timeTicks, .number = 100}, "100", 1},
             Case{{.tag = tag::counter64, .number = ~0ULL}, "18446744073709551615", 9},
             Case{{.tag = tag::oid, .oid = {1, 3, 6, 128}}, "1.3.6.128", 4},
             Case{{.tag = tag::ipAddress, .octets = "\x0A\x01\xFF\x20"}, "10.1.255.32", 4},
             Case{{.tag = tag::opaque, .octets = "ab"}, "6162", 2},
             Case{{.tag = tag::null}, "", 0},
             Case{{.tag = tag::noSuchInstance}, "", 0},
             Case{{.tag = tag::endOfMibView}, "", 0},
         }) {
        EXPECT_EQ(valueText(known.value, false), known.text);
        EXPECT_EQ(valueLength(known.value), known.length) << known.text;
    }
}

TEST(HexTest, BytesComeBack) {
    EXPECT_EQ(bytesFromHex("8000FFaB"), std::string("\x80\x00\xFF\xAB", 4));
    EXPECT_EQ(bytesFromHex(""), "");
    for (const char* text : {"8", "0x", "8g", "80 00", "-1", "80:00"}) {
        EXPECT_FALSE(bytesFromHex(text)) << text;
    }
}

} // namespace onudesk::host::test
