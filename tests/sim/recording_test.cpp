// SPDX-License-Identifier: MIT
#include "sim/recording.h"

#include "base/file.h"
#include "support/client_tree.h"

#include <gtest/gtest.h>

namespace onudesk::sim {
namespace {

TEST(Oid, ReadsAndWritesDottedDecimal) {
    for (const std::string text :
         {"1.3", "0.0", "2.999.1", "1.3.6.1.4.1.27315.4294967295", "0.39", "1.0"}) {
        const auto oid = Oid::parseWhole(text);
        ASSERT_TRUE(oid) << text;
        EXPECT_EQ(oid->text(), text);
    }
    for (const std::string text : {"", "1", ".1.3", "1.3.", "1..3", "3.1", "1.40", "1.3.4294967296",
                                   "1.3.-1", "1.3.x", "1 3", "1.3.6 "}) {
        EXPECT_FALSE(Oid::parseWhole(text)) << text;
    }
    std::string longest = "1";
    for (std::size_t i = 1; i < Oid::kMaxArcs; ++i) {
        longest += ".1";
    }
    EXPECT_TRUE(Oid::parseWhole(longest));
    EXPECT_FALSE(Oid::parseWhole(longest + ".1"));
}

TEST(Oid, OrdersByNumbersAndPutsPrefixesFirst) {
    const std::vector<std::string> ordered = {"1.3.6.1",           "1.3.6.1.2", "1.3.6.1.2.1",
                                              "1.3.6.1.2.1.10",    "1.3.6.1.9", "1.3.6.1.10",
                                              "1.3.6.1.4294967295"};
    for (std::size_t i = 1; i < ordered.size(); ++i) {
        EXPECT_LT(Oid::parseWhole(ordered[i - 1]).value(), Oid::parseWhole(ordered[i]).value())
            << ordered[i];
    }
    EXPECT_TRUE(Oid({1, 3, 6}).startsWith(Oid({1, 3})));
    EXPECT_TRUE(Oid({1, 3, 6}).startsWith(Oid({1, 3, 6})));
    EXPECT_FALSE(Oid({1, 3, 6}).startsWith(Oid({1, 3, 6, 1})));
    EXPECT_FALSE(Oid({1, 36, 1}).startsWith(Oid({1, 3})));
}

TEST(Recording, TakesEveryTag) {
    // Without the OID, and as written back.
    const std::pair<std::string, std::string> cases[] = {
        {"2|-2147483648", "2|-2147483648"},
        {"2|2147483647", "2|2147483647"},
        {"4|", "4|"},
        {"4|a|b # c", "4|a|b # c"},
        {"4| blanks ", "4| blanks "},
        {"4|B\xC3\xBCro", "4x|42c3bc726f"},
        {"4x|001A2b", "4x|001a2b"},
        {"4x|4f4e55", "4|ONU"},
        {"4x|", "4|"},
        {"5|", "5|"},
        {"6|1.3.6.1", "6|1.3.6.1"},
        {"6|0.0", "6|0.0"},
        {"64|0.255.10.1", "64|0.255.10.1"},
        {"64x|C0000201", "64|192.0.2.1"},
        {"65|4294967295", "65|4294967295"},
        {"66|0", "66|0"},
        {"67|007", "67|7"},
        {"68|9f780441200000", "68|9f780441200000"},
        {"68x|FF", "68|ff"},
        {"70|18446744073709551615", "70|18446744073709551615"},
    };
    for (const auto& [line, expected] : cases) {
        const auto recording = parseRecording("1.3.6.1.2.1|" + line + "\r\n", "file");
        ASSERT_TRUE(recording) << line << ": " << recording.error();
        EXPECT_EQ(formatRecording(recording->values, {}), "1.3.6.1.2.1|" + expected + "\n");
    }
}

TEST(Recording, NamesLineAndReasonOfWhatIsWrong) {
    const std::string int32 = "value is no number from -2147483648 to 2147483647";
    const std::string uint32 = "value is no number from 0 to 4294967295";
    const std::string address = "value is no address of the form 192.0.2.1";
    const std::pair<std::string, std::string> cases[] = {
        {"1.3.6.1.2.1", "expected OID|tag|value"},
        {"1.3.6.1.2.1|2", "expected OID|tag|value"},
        {"||", "bad OID \"\""},
        {"1.3.6.1.x|2|1", "bad OID \"1.3.6.1.x\""},
        {" 1.3.6.1.2|2|1", "bad OID \" 1.3.6.1.2\""},
        {".1.3.6.1.2|2|1", "bad OID \".1.3.6.1.2\""},
        {"1.3.6.1|2|1", "OID 1.3.6.1 is not below 1.3.6.1"},
        {"1.3.7|2|1", "OID 1.3.7 is not below 1.3.6.1"},
        {"1.3.6.1.2||1", "unknown tag \"\""},
        {"1.3.6.1.2|3|1", "unknown tag \"3\""},
        {"1.3.6.1.2|2x|01", "unknown tag \"2x\""},
        {"1.3.6.1.2|04|a", "unknown tag \"04\""},
        {"1.3.6.1.2|2|", int32},
        {"1.3.6.1.2|2|2147483648", int32},
        {"1.3.6.1.2|2|-2147483649", int32},
        {"1.3.6.1.2|2|1x", int32},
        {"1.3.6.1.2|2| 1", int32},
        {"1.3.6.1.2|65|-1", uint32},
        {"1.3.6.1.2|66|4294967296", uint32},
        {"1.3.6.1.2|67|1.5", uint32},
        {"1.3.6.1.2|70|18446744073709551616", "value is no number from 0 to 18446744073709551615"},
        {"1.3.6.1.2|4x|123", "odd number of hexadecimal digits"},
        {"1.3.6.1.2|4x|0g", "value is not hexadecimal"},
        {"1.3.6.1.2|68|zz", "value is not hexadecimal"},
        {"1.3.6.1.2|5|0", "a null has no value"},
        {"1.3.6.1.2|6|1", "value is no OID"},
        {"1.3.6.1.2|64|1.2.3", address},
        {"1.3.6.1.2|64|1.2.3.4.5", address},
        {"1.3.6.1.2|64|1.2.3.256", address},
        {"1.3.6.1.2|64|1.2.3.", address},
        {"1.3.6.1.2|64x|010203", "an address has 8 hexadecimal digits"},
        {"1.3.6.1.2|4|" + std::string(kMaxValueBytes + 1, 'a'), "value is longer than 65535 bytes"},
        {"1.3.6.1.9|2|1", "OID 1.3.6.1.9 is given twice"},
    };
    for (const auto& [line, reason] : cases) {
        const auto recording =
            parseRecording("# comment\n1.3.6.1.9|2|1\n\n" + line + "\n1.3.6.1.8|2|1\n", "file");
        ASSERT_FALSE(recording) << line;
        EXPECT_EQ(recording.error(), "file:4: " + reason);
    }
}

TEST(Recording, KeepsNumericOrderWhateverTheFileHad) {
    const auto recording = parseRecording("1.3.6.1.10|2|3\n1.3.6.1.9.1|2|2\n1.3.6.1.9|2|1", "file");
    ASSERT_TRUE(recording);
    EXPECT_EQ(formatRecording(recording->values, recording->layout),
              "1.3.6.1.9|2|1\n1.3.6.1.9.1|2|2\n1.3.6.1.10|2|3\n");
    const auto empty = parseRecording("", "file");
    ASSERT_TRUE(empty);
    EXPECT_EQ(formatRecording(empty->values, empty->layout), "");
}

TEST(Recording, WritesAnUnchangedSortedFileByteForByte) {
    const std::string text = "# head\n\n1.3.6.1.1|4x|4F4E55\n# next\n1.3.6.1.02|64x|C0000201\r\n"
                             "1.3.6.1.3|4|B\xC3\xBCro\n  \n# tail\n";
    auto recording = parseRecording(text, "file");
    ASSERT_TRUE(recording);
    EXPECT_EQ(formatRecording(recording->values, recording->layout), text);

    recording->values[Oid{1, 3, 6, 1, 1}] = octetsValue("new");
    recording->values.erase(Oid{1, 3, 6, 1, 2});
    recording->values[Oid{1, 3, 6, 1, 2, 5}] = integerValue(7);
    EXPECT_EQ(formatRecording(recording->values, recording->layout),
              "# head\n\n1.3.6.1.1|4|new\n1.3.6.1.2.5|2|7\n1.3.6.1.3|4|B\xC3\xBCro\n  \n# tail\n");
}

TEST(RecordingFile, IsNamedWhenItCannotBeRead) {
    const test::TemporaryDirectory directory;
    const std::string path = directory.path().string();
    EXPECT_EQ(loadRecording(path + "/none").error(), path + "/none: No such file or directory");
    EXPECT_EQ(loadRecording(path).error(), path + ": is a directory");

    const auto large = directory.write("large.snmprec", "#");
    std::filesystem::resize_file(large, kMaxRecordingBytes + 1);
    EXPECT_EQ(loadRecording(large).error(), large.string() + ": larger than 67108864 bytes");
}

TEST(RecordingFile, IsSavedAsAWholeOrNotAtAll) {
    const test::TemporaryDirectory directory;
    const std::string path = directory.path().string();
    ASSERT_TRUE(saveFile(path + "/file", "long first text\n"));
    ASSERT_TRUE(saveFile(path + "/file", "second\n"));
    EXPECT_EQ(readFile(path + "/file").value(), "second\n");

    directory.write("folder/inside", "");
    const auto refused = saveFile(path + "/folder", "text");
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error(), path + "/folder: Is a directory");
    EXPECT_FALSE(std::filesystem::exists(path + "/folder.new"));
    EXPECT_EQ(saveFile(path + "/none/file", "text").error(),
              path + "/none/file: No such file or directory");
}

} // namespace
} // namespace onudesk::sim
