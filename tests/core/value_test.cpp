// SPDX-License-Identifier: MIT
#include "base/endpoint.h"
#include "base/hexadecimal.h"
#include "base/numbers.h"
#include "base/text.h"
#include "snmp/value.h"

#include <gtest/gtest.h>

namespace onudesk {
namespace {

TEST(Texts, HaveLinesWithoutTheirEnds) {
    std::string seen;
    for (const auto& [number, line] : lines("a\r\n\nb")) {
        seen += std::to_string(number) + std::string(withoutReturn(line)) + ";";
    }
    EXPECT_EQ(seen, "1a;2;3b;");
    EXPECT_EQ(lines("a\n").begin()->text, "a");
    EXPECT_TRUE(++lines("a\n").begin() == std::default_sentinel);
    EXPECT_TRUE(lines("").begin() == std::default_sentinel);
    EXPECT_EQ(trimmed(" \t a b\r\n"), "a b");
    EXPECT_EQ(trimmed(" \n"), "");
}

TEST(Endpoints, NeedAPortOrHaveOneToTake) {
    EXPECT_EQ(parseEndpoint("olt.example:65535")->text(), "olt.example:65535");
    EXPECT_EQ(parseEndpoint("10.0.0.1", 161)->text(), "10.0.0.1:161");
    for (const char* text : {"10.0.0.1", "10.0.0.1:", "a:65536", "a:1x", "a:-1", "a:b:1"}) {
        EXPECT_FALSE(parseEndpoint(text)) << text;
    }
    EXPECT_FALSE(parseEndpoint("a:", 161));
    EXPECT_EQ(addressText(0xC0A80102U), "192.168.1.2");
}

TEST(Hexadecimal, BytesComeBack) {
    EXPECT_EQ(bytesFromHex("8000FFaB"), std::string("\x80\x00\xFF\xAB", 4));
    EXPECT_EQ(bytesFromHex(""), "");
    for (const char* text : {"8", "0x", "8g", "80 00", "-1", "80:00"}) {
        EXPECT_FALSE(bytesFromHex(text)) << text;
    }
}

TEST(Oids, AreNumbersJoinedBySingleDots) {
    EXPECT_EQ(Oid::parse("1.3.6"), (Oid{1, 3, 6}));
    EXPECT_EQ(Oid::parse(".1.4294967295"), (Oid{1, 4294967295U}));
    EXPECT_EQ(Oid::parse(""), Oid{});
    for (const char* text : {".", "1.", "1..3", "..1", "1.3 ", " 1", "-1", "+1", "1.4294967296",
                             "1.a", "1,3", "0x1"}) {
        EXPECT_FALSE(Oid::parse(text)) << text;
    }
    std::string longest = "1";
    for (int arc = 1; arc < 128; ++arc) {
        longest += ".1";
    }
    EXPECT_EQ(Oid::parse(longest)->text(), longest);
    EXPECT_FALSE(Oid::parse(longest + ".1"));
}

// Values as recordings spell them, their texts at the boundary and their lengths in BER.
TEST(Values, HaveTextsAndLengths) {
    struct Case {
        const char* tag;
        std::string recorded;
        std::string text;
        std::size_t length;
    };
    const Case cases[] = {
        {"4", "", "", 0},
        {"4", "ONU 5", "ONU 5", 5},
        {"4", "\xE4\xB8\xAD\xE6\x96\x87", "\xE4\xB8\xAD\xE6\x96\x87", 6}, // Chinese
        {"4", "\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80", 4},
        {"4", "a\tb\r\nc", "a\tb\r\nc", 6},
        {"4", "a\x0B", "610B", 2},
        {"4x", "6100", "6100", 2},
        {"4", "\x7F", "7F", 1},
        {"4", "\xC2\x85", "C285", 2},             // a control character beyond ASCII
        {"4", "\xC0\xAF", "C0AF", 2},             // overlong
        {"4", "\xE0\x80\xAF", "E080AF", 3},       // overlong
        {"4", "\xED\xA0\x80", "EDA080", 3},       // surrogate
        {"4", "\xF4\x90\x80\x80", "F4908080", 4}, // above the last character
        {"4", "\xF5\x80\x80\x80", "F5808080", 4},
        {"4", "a\xE4\xB8", "61E4B8", 3}, // cut
        {"4x", "E46263", "E46263", 3},
        {"4", "\x80", "80", 1},
        {"4x", "001a2b3c4d5e", "001A2B3C4D5E", 6},
        {"2", "0", "0", 1},
        {"2", "127", "127", 1},
        {"2", "128", "128", 2},
        {"2", "-128", "-128", 1},
        {"2", "-129", "-129", 2},
        {"2", "-2147483648", "-2147483648", 4},
        {"66", "255", "255", 2},
        {"65", "4294967295", "4294967295", 5},
        {"67", "100", "100", 1},
        {"70", "18446744073709551615", "18446744073709551615", 9},
        {"6", "1.3.6.128", "1.3.6.128", 4},
        {"64", "10.1.255.32", "10.1.255.32", 4},
        {"68", "6162", "6162", 2},
        {"5", "", "", 0},
    };
    for (const Case& known : cases) {
        const Value value = parseRecorded(known.tag, known.recorded).value();
        EXPECT_EQ(valueText(value, false), known.text);
        EXPECT_EQ(encodedLength(value), known.length) << known.text;
        if (value.tag == Tag::octetString) {
            EXPECT_EQ(valueText(value, true), hexDigits(*bytesOf(value)));
        }
    }
    for (const Tag tag : {Tag::noSuchObject, Tag::noSuchInstance, Tag::endOfMibView}) {
        EXPECT_TRUE(isMissing({tag, {}}));
        EXPECT_EQ(valueText({tag, {}}, false), "");
        EXPECT_EQ(encodedLength({tag, {}}), 0U);
    }
}

} // namespace
} // namespace onudesk
