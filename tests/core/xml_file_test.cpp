// SPDX-License-Identifier: MIT
#include "env/xml_file.h"

#include "base/file.h"
#include "base/numbers.h"

#include "env/language_module.h"
#include "support/client_tree.h"

#include <gtest/gtest.h>

namespace onudesk {
namespace {

std::string nested(int depth) {
    std::string text;
    for (int level = 0; level < depth; ++level) {
        text += "<a>";
    }
    for (int level = 0; level < depth; ++level) {
        text += "</a>";
    }
    return text;
}

TEST(XmlFile, RefusesHostileAndBrokenFilesByName) {
    const std::pair<std::string, std::string> cases[] = {
        {nested(kMaxXmlDepth + 1), "nested"},
        // What TinyXML would take for something harmless, or deeper than it looks.
        {"</a></a></a>" + nested(kMaxXmlDepth + 1), "not allowed"},
        {"<1 '>" + nested(kMaxXmlDepth + 1) + "<x y='", "not allowed"},
        {"<?xml version=\"><!--\"?>" + nested(kMaxXmlDepth + 1), "declaration"},
        {"<a><?xml?></a>", "not allowed"},
        {"<!DOCTYPE a><a/>", "not allowed"},
        {"<a <b/></a>", "tag that does not end"},
        {nested(50000), "nested"},
        // Comments and quoted brackets must not hide depth from the check.
        {"<!-- " + nested(2) + " -->" + nested(kMaxXmlDepth + 1), "nested"},
        {"<r x='/>'><!-- </r></r> -->" + nested(kMaxXmlDepth) + "</r>", "nested"},
        {std::string("<a>\0</a>", 8), "zero byte"},
        {"", "test"},
        {"   ", "test"},
        {"<a>\n\n<b></a>", "test:3: "},
        {"<a", "tag that does not end in line 1"},
        {"<!-- only a comment -->", "no root element"},
        {"<a>\xC3\x28</a>", "line 1 is not valid UTF-8"},
        {"<a>\n\n\xFF</a>", "line 3 is not valid UTF-8"},
        {"<?xml version=\"1.0\" encoding=\"GBK\"?><a>\x81</a>", "not valid GB18030"},
        {"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xE9</a>", "not valid UTF-8"},
        {std::string(kMaxTextFileBytes + 1, ' '), "larger than"},
    };
    for (const auto& [text, reason] : cases) {
        const auto document = parseXml(text, "test");
        ASSERT_FALSE(document) << text.substr(0, 40);
        EXPECT_NE(document.error().find(reason), std::string::npos) << document.error();
    }
}

TEST(XmlFile, AcceptsTheDeepestAllowedAndSurvivesEveryTruncation) {
    EXPECT_TRUE(parseXml(nested(kMaxXmlDepth), "test"));
    EXPECT_TRUE(parseXml("<r><!-- " + nested(99) + " --><a x='<<<<'/></r>", "test"));
    const std::string whole =
        "<?xml version='1.0'?><conf><module name=\"1\"><!-- c --><g/>t&amp;</module></conf>";
    ASSERT_TRUE(parseXml(whole, "test"));
    for (std::size_t length = 0; length + 1 < whole.size(); ++length) {
        EXPECT_FALSE(parseXml(whole.substr(0, length), "test")) << length;
    }
}

TEST(XmlFile, ConvertsDeclaredChineseEncodings) {
    for (const char* encoding : {"GB2312", "gbk", "GB18030"}) {
        const auto document = parseXml("<?xml version=\"1.0\" encoding=\"" + std::string(encoding) +
                                           "\"?><a>\xD6\xD0\xCE\xC4</a>",
                                       "test");
        ASSERT_TRUE(document) << document.error();
        EXPECT_STREQ((*document)->RootElement()->GetText(), "中文");
    }
    EXPECT_TRUE(parseXml("\xEF\xBB\xBF<a>中文</a>", "test"));
}

TEST(XmlFile, NamesFilesThatCannotBeRead) {
    const test::TemporaryDirectory directory;
    const auto missing = loadXml(directory.path() / "none.xml");
    ASSERT_FALSE(missing);
    EXPECT_NE(missing.error().find("none.xml: No such file"), std::string::npos);
    EXPECT_NE(loadXml(directory.path()).error().find("is a directory"), std::string::npos);
}

TEST(LeadingInteger, TakesDigitsUpToTheFirstOther) {
    const std::pair<const char*, int> cases[] = {
        {"608", 608}, {"  608", 608}, {"+608", 608}, {"-608", -608},  {"608abc", 608},
        {"abc", 0},   {"", 0},        {"- 6", 0},    {"\t\n 7 8", 7}, {"99999999999", 2147483647},
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(leadingInteger(text), value) << text;
    }
}

TEST(LanguageModules, LoadByAbbreviationThenByTwoLetters) {
    const test::TemporaryDirectory directory;
    directory.write("libx.so.ENU", "<l><text id='1'>english</text></l>");
    directory.write("dir.d/libx.ENU", "<l><text id='1'>beside</text></l>");
    directory.write("dir.d/libx.CH", "<l><text id='1'>two letters</text></l>");
    directory.write("dir.d/libx.DEU", "<l><text id='1'>broken</l>");
    const std::string root = directory.path().string();
    installLanguage({});
    EXPECT_FALSE(LoadNewResourceModule(root + "/dir.d/libx", 1033)); // only the directory has a dot
    EXPECT_FALSE(LoadNewResourceModule(root + "/dir.d/libx.so", 99999));
    EXPECT_FALSE(LoadNewResourceModule(root + "/dir.d/libx.so", 1036));
    EXPECT_EQ(messageText(1), "");
    EXPECT_TRUE(LoadNewResourceModule(root + "/libx.so.1", 1033));
    EXPECT_EQ(messageText(1), "english");
    EXPECT_TRUE(LoadNewResourceModule(root + "/dir.d/libx.so", 2052));
    EXPECT_EQ(messageText(1), "two letters");
    EXPECT_FALSE(LoadNewResourceModule(root + "/dir.d/libx.so", 1031));
    EXPECT_EQ(messageText(1), "two letters"); // the one before stays
    EXPECT_EQ(messageText(2), "");
    installLanguage({});
}

TEST(FillPlaces, FillsByPositionAndTrustsNoFormat) {
    EXPECT_EQ(fillPlaces("from %s to %s", {"1", "9"}), "from 1 to 9");
    EXPECT_EQ(fillPlaces("%d%% of %u", {"5", "7"}), "5% of 7");
    EXPECT_EQ(fillPlaces("%s and %s", {"%n"}), "%n and ");
    EXPECT_EQ(fillPlaces("100 %", {"x"}), "100 %");
    EXPECT_EQ(fillPlaces("%n%x%s", {"x"}), "%n%xx");
    EXPECT_EQ(fillPlaces("none", {"x"}), "none");
}

} // namespace
} // namespace onudesk
