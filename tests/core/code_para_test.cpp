// SPDX-License-Identifier: MIT
#include "bridge/code_para_access.h"
#include "onudesk/messages.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace onudesk {
namespace {

using Texts = std::vector<std::string>;

TEST(CodePara, StartsEmptyWithZeroHeaderAndPayload) {
    const CodeParaPtr para = createCodePara();
    ASSERT_TRUE(para);
    EXPECT_TRUE(para->entries->empty());
    const auto* bytes = reinterpret_cast<const unsigned char*>(para.get());
    EXPECT_TRUE(std::all_of(bytes + 32, bytes + 4126, [](unsigned char b) { return b == 0; }));
}

TEST(CodePara, HeaderFieldsLieWhereTheHostReadsThem) {
    const CodeParaPtr para = createCodePara();
    setServiceCode(*para, CP_SERVICE_ONU);
    setTag(*para, "0000");
    setRequestKind(*para, CP_KIND_READ);
    setItemType(*para, 563);
    const auto* bytes = reinterpret_cast<const unsigned char*>(para.get());
    EXPECT_EQ(bytes[32], 5);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(bytes) + 36, 4), "0000");
    EXPECT_EQ(bytes[40], 3);
    EXPECT_EQ(bytes[41], 63);
    EXPECT_EQ(bytes[42], 0);
    EXPECT_EQ(itemTypeOf(*para), 563);
    setItemType(*para, 915);
    EXPECT_EQ(bytes[41], 415 & 0xFF);
    EXPECT_EQ(bytes[42], 415 >> 8);
}

TEST(CodePara, SettingAnIdTwiceKeepsTheFirst) {
    const CodeParaPtr para = createCodePara();
    EXPECT_TRUE(setInteger(*para, CP_SNMP_PORT, 161));
    EXPECT_TRUE(setInteger(*para, CP_SNMP_PORT, 162));
    EXPECT_TRUE(setText(*para, CP_V3_USER, "first"));
    EXPECT_TRUE(setText(*para, CP_V3_USER, "second"));
    EXPECT_EQ(CodeParaReader(*para).integer(CP_SNMP_PORT), 161U);
    EXPECT_EQ(CodeParaReader(*para).text(CP_V3_USER), "first");
}

TEST(CodePara, ListsKeepTheirOrder) {
    const CodeParaPtr para = createCodePara();
    for (const char* text : {"c", "a", "b"}) {
        EXPECT_TRUE(appendByteString(*para, CP_OID_LIST, text, 0));
    }
    for (const std::uint32_t number : {3U, 1U, 2U}) {
        EXPECT_TRUE(appendInteger(*para, CP_TYPE_LIST, number));
    }
    EXPECT_EQ(CodeParaReader(*para).byteStrings(CP_OID_LIST), (Texts{"c", "a", "b"}));
    EXPECT_EQ(CodeParaReader(*para).integers(CP_TYPE_LIST), (std::vector<std::uint32_t>{3, 1, 2}));
}

TEST(CodePara, AppendingToAnIdOfAnotherKindFailsAndChangesNothing) {
    const CodeParaPtr para = createCodePara();
    setInteger(*para, CP_SNMP_PORT, 161);
    appendInteger(*para, CP_TYPE_LIST, 4);
    EXPECT_FALSE(appendInteger(*para, CP_SNMP_PORT, 1));
    EXPECT_FALSE(appendByteString(*para, CP_TYPE_LIST, "x", 0));
    EXPECT_EQ(CodeParaReader(*para).integer(CP_SNMP_PORT), 161U);
    EXPECT_EQ(CodeParaReader(*para).integers(CP_TYPE_LIST), (std::vector<std::uint32_t>{4}));
}

TEST(CodePara, ByteStringsKeepZeroBytesAndTextsEndAtThem) {
    const CodeParaPtr para = createCodePara();
    const std::string mac("\x00\x1A\x00\x3C\x4D\x00", 6);
    setByteString(*para, CP_CHUNK_DATA, mac.data(), mac.size());
    appendByteString(*para, CP_VALUE_LIST, mac.data(), mac.size());
    setByteString(*para, CP_V3_USER, "ab\0cd", 5);
    const CodeParaReader reader(*para);
    EXPECT_EQ(reader.bytes(CP_CHUNK_DATA), mac);
    EXPECT_EQ(reader.text(CP_CHUNK_DATA), "");
    EXPECT_EQ(reader.byteStrings(CP_VALUE_LIST), Texts{mac});
    EXPECT_EQ(reader.text(CP_V3_USER), "ab");
    EXPECT_EQ(reader.bytes(CP_V3_USER, 4), std::string("ab\0c", 4));
    EXPECT_EQ(reader.bytes(CP_V3_USER, 99), std::string("ab\0cd", 5));
}

TEST(CodePara, LengthIsStoredHighByteFirstAndTakenModulo65536) {
    const ByteString text(std::string(300, 'x'));
    EXPECT_EQ(text.length(), 300);
    EXPECT_EQ(text.storedLength(), (std::array<std::uint8_t, 2>{1, 44}));
    EXPECT_EQ(ByteString(std::string(65536 + 3, 'y')).view(), "yyy");
    EXPECT_EQ(text.view().data()[300], '\0');
}

TEST(CodePara, CopyIsDeepAndKeepsHeaderPayloadAndKinds) {
    CodeParaPtr source = createCodePara();
    setServiceCode(*source, CP_SERVICE_ONU);
    setTag(*source, "0000");
    setRequestKind(*source, CP_KIND_WRITE);
    setItemType(*source, 606);
    source->reserved33 = 7;
    source->reserved34 = 0x1234;
    source->payload[0] = 1;
    source->payload[4082] = 2;
    appendByteString(*source, CP_VALUE_LIST, "value", 0);
    source->entries->emplace(9,
                             CodeParaEntry{9, CodeParaKind::byteStringAlias, ByteString("alias")});
    CodeParaPtr copy = copyCodePara(*source);
    ASSERT_TRUE(copy);
    appendByteString(*copy, CP_VALUE_LIST, "only in the copy", 0);
    EXPECT_EQ(copy->reserved33, 7);
    EXPECT_EQ(copy->reserved34, 0x1234);
    EXPECT_EQ(copy->requestKind, CP_KIND_WRITE);
    EXPECT_EQ(itemTypeOf(*copy), 606);
    EXPECT_EQ(copy->payload[0], 1);
    EXPECT_EQ(copy->payload[4082], 2);
    EXPECT_EQ(copy->entries->at(9).kind, CodeParaKind::byteStringAlias);
    EXPECT_EQ(CodeParaReader(*copy).text(9), "alias");
    copy.reset();
    EXPECT_EQ(CodeParaReader(*source).byteStrings(CP_VALUE_LIST), Texts{"value"});
}

TEST(CodePara, MissingOrMistypedEntriesReadAsNothing) {
    const CodeParaPtr para = createCodePara();
    setInteger(*para, CP_STATUS, 1);
    const CodeParaReader reader(*para);
    EXPECT_FALSE(reader.text(CP_STATUS));
    EXPECT_FALSE(reader.byteStrings(CP_STATUS));
    EXPECT_FALSE(reader.integers(CP_STATUS));
    EXPECT_FALSE(reader.integer(CP_ERROR_STATUS));
    EXPECT_FALSE(CodeParaReader(static_cast<const CodeParaIndex*>(nullptr)).has(CP_STATUS));
}

} // namespace
} // namespace onudesk
