// SPDX-License-Identifier: MIT
//
// The client tree as shipped: language modules, menus and the help book must fit each other.
#include "env/client_paths.h"
#include "env/language_module.h"
#include "env/xml_file.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace onudesk {
namespace {

const std::filesystem::path kClient = std::filesystem::path(ONUDESK_SOURCE_DIR) / "client";
constexpr std::array kLanguages{"libonuconfig.ENU", "libonuconfig.CHS"};
constexpr std::array kMenus{"epononuother_menu.xml", "epononu4470_menu.xml",
                            "epononu4590_menu.xml"};
// Every item type that has a page.
const std::set<int> kItemTypes{
    500, 605, 606, 607, 608, 611, 612, 613, 616, 617, 619, 620, 621, 622, 624, 625, 626, 643, 644,
    645, 646, 647, 648, 649, 650, 651, 652, 664, 665, 666, 667, 675, 676, 677, 678, 679, 763, 767,
    772, 811, 812, 813, 815, 816, 817, 822, 823, 824, 825, 826, 827, 828, 886, 887, 888, 915};

LanguageModule language(const std::string& file) {
    Result<LanguageModule> module = LanguageModule::load(kClient / "lang" / file);
    EXPECT_TRUE(module) << file;
    return module ? std::move(module).value() : LanguageModule();
}

std::string contents(const std::filesystem::path& path) {
    Result<std::string> bytes = readFile(path);
    EXPECT_TRUE(bytes) << path;
    return bytes ? std::move(bytes).value() : std::string();
}

// The arguments that fillPlaces() puts into a text, in their order.
std::string places(const std::string& text) {
    std::string kinds;
    for (std::size_t at = 0; at + 1 < text.size(); ++at) {
        if (text[at] == '%') {
            kinds += text[++at];
        }
    }
    return kinds;
}

// What the file itself lists: a repeated id is lost in a loaded module.
std::vector<int> listedIds(const std::string& file) {
    std::vector<int> ids;
    const Result<XmlDocument> document = loadXml(kClient / "lang" / file);
    EXPECT_TRUE(document) << file;
    for (const TiXmlElement* text = document ? (*document)->RootElement()->FirstChildElement()
                                             : nullptr;
         text != nullptr; text = text->NextSiblingElement()) {
        EXPECT_STREQ(text->Value(), "text") << file << " line " << text->Row();
        ids.push_back(leadingInteger(attribute(*text, "id")));
    }
    return ids;
}

struct MenuItem {
    int itemType;
    int level;
    bool heading;
};

void collect(const TiXmlElement& parent, int level, std::vector<MenuItem>& items) {
    for (const TiXmlElement* child = parent.FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement()) {
        EXPECT_STREQ(child->Value(), "CONFIG_ITEM") << "line " << child->Row();
        items.push_back({leadingInteger(attribute(*child, "name")), level,
                         child->FirstChildElement() != nullptr});
        collect(*child, level + 1, items);
    }
}

std::vector<MenuItem> menuItems(const std::string& file) {
    std::vector<MenuItem> items;
    const Result<XmlDocument> document = loadXml(kClient / "CONF" / "snmp" / file);
    EXPECT_TRUE(document) << file;
    if (document) {
        EXPECT_NE(attribute(*(*document)->RootElement(), "type"), "") << file;
        collect(*(*document)->RootElement(), 1, items);
    }
    return items;
}

TEST(LanguageModules, ListEveryTextOnceAndNoneEmpty) {
    for (const char* file : kLanguages) {
        const std::vector<int> ids = listedIds(file);
        EXPECT_FALSE(ids.empty()) << file;
        EXPECT_EQ(std::set<int>(ids.begin(), ids.end()).size(), ids.size()) << file;
        const LanguageModule module = language(file);
        for (const auto& [id, text] : module.texts()) {
            EXPECT_GT(id, 0) << file;
            EXPECT_NE(text, "") << file << " " << id;
            EXPECT_EQ(text.find_first_of("<>&"), std::string::npos) << file << " " << id;
        }
    }
}

TEST(LanguageModules, HaveTheSameTextsWithTheSamePlaces) {
    const LanguageModule english = language("libonuconfig.ENU");
    const LanguageModule chinese = language("libonuconfig.CHS");
    for (const auto& [id, text] : english.texts()) {
        ASSERT_TRUE(chinese.texts().contains(id)) << id;
        EXPECT_EQ(places(text), places(chinese.text(id))) << id;
        EXPECT_EQ(places(text).find_first_not_of("sdu%"), std::string::npos) << id;
    }
    EXPECT_EQ(english.texts().size(), chinese.texts().size());
}

TEST(LanguageModules, GiveTheRangeMessageTwoPlaces) {
    for (const char* file : kLanguages) {
        const std::string text = fillPlaces(language(file).text(11068), {"1", "4094"});
        const auto minimum = text.find('1');
        ASSERT_NE(minimum, std::string::npos) << file;
        EXPECT_NE(text.find("4094", minimum + 1), std::string::npos) << file;
    }
}

TEST(LanguageModules, KeepTheBlankBetweenJoinedTexts) {
    const LanguageModule english = language("libonuconfig.ENU");
    EXPECT_EQ(english.text(11045) + english.text(11002), "Succeeded: ONU configuration");
    EXPECT_EQ(english.text(11046) + english.text(11002), "Failed: ONU configuration");
    EXPECT_EQ(english.text(11002) + english.text(11003), "ONU configuration - OnuDesk");
    EXPECT_EQ(english.text(11058) + "MAC", "Delete MAC");
    EXPECT_EQ(language("libonuconfig.CHS").text(11002) + english.text(11003), "ONU 配置 - OnuDesk");
}

// A two-way value map would confuse a text with a code.
TEST(LanguageModules, NameValuesSoThatNoneReadsAsACode) {
    for (const char* file : kLanguages) {
        const LanguageModule module = language(file);
        EXPECT_NE(module.text(11043), module.text(11044)) << file;
        for (const int id : {11043, 11044}) {
            EXPECT_EQ(module.text(id).find_first_of("0123456789"), std::string::npos) << file;
        }
    }
}

TEST(LanguageModules, CaptionEveryItemTypeDifferently) {
    for (const char* file : kLanguages) {
        const LanguageModule module = language(file);
        std::map<std::string, int> captions;
        for (const int itemType : kItemTypes) {
            const auto [other, added] = captions.try_emplace(module.text(itemType), itemType);
            EXPECT_TRUE(added) << file << " " << itemType << " and " << other->second;
        }
    }
}

TEST(LanguageModules, NameOneHelpBook) {
    for (const char* file : kLanguages) {
        EXPECT_EQ(language(file).text(6201), "confighelp") << file;
    }
}

TEST(Menus, ListEveryItemTypeOnceUnderHeadings) {
    for (const char* file : kMenus) {
        SCOPED_TRACE(file);
        std::multiset<int> leaves;
        for (const MenuItem& item : menuItems(file)) {
            EXPECT_LE(item.level, 3) << item.itemType;
            EXPECT_EQ(item.heading, !kItemTypes.contains(item.itemType)) << item.itemType;
            if (!item.heading) {
                EXPECT_GT(item.level, 1) << item.itemType;
                leaves.insert(item.itemType);
            }
        }
        EXPECT_EQ(leaves, std::multiset<int>(kItemTypes.begin(), kItemTypes.end()));
    }
}

TEST(Menus, HaveACaptionForEveryNodeInEveryLanguage) {
    for (const char* file : kLanguages) {
        const LanguageModule module = language(file);
        for (const char* menu : kMenus) {
            for (const MenuItem& item : menuItems(menu)) {
                EXPECT_NE(module.text(item.itemType), "") << file << menu << item.itemType;
            }
        }
    }
}

// Lines of the index are "MESSAGE=topic<TAB>x KEY"; a page looks its topic up by the text of that
// message in the language of the window.
TEST(HelpBook, HasATopicForEveryHelpMessageInEveryLanguage) {
    HelpIndex index;
    std::vector<std::string> duplicates;
    loadHelpIndex(index, kClient / "Help" / "confighelp.txt",
                  [&](const std::string& key) { duplicates.push_back(key); });
    EXPECT_EQ(duplicates, std::vector<std::string>());
    std::set<std::string> wanted;
    const std::string text = contents(kClient / "Help" / "confighelp.txt");
    for (std::size_t line = 0; line < text.size(); line = text.find('\n', line) + 1) {
        const int message = leadingInteger(std::string_view(text).substr(line));
        for (const char* file : kLanguages) {
            const std::string key = language(file).text(message);
            EXPECT_NE(key, "") << file << " " << message;
            wanted.insert(key);
        }
        ASSERT_NE(text.find('\n', line), std::string::npos) << "the last line is not ended";
    }
    std::set<std::string> keys;
    for (const auto& [key, topic] : index) {
        keys.insert(key);
        EXPECT_TRUE(std::filesystem::is_regular_file(kClient / "Help" / "confighelp" / topic))
            << topic;
    }
    EXPECT_EQ(keys, wanted);
    EXPECT_TRUE(keys.contains(language("libonuconfig.ENU").text(6204)));
}

TEST(HelpBook, LinksOnlyToTopicsItHas) {
    const std::filesystem::path book = kClient / "Help" / "confighelp";
    EXPECT_TRUE(std::filesystem::exists(book / "index.htm"));
    for (const auto& topic : std::filesystem::directory_iterator(book)) {
        const std::string page = contents(topic.path());
        const std::string mark = "href=\"";
        for (auto at = page.find(mark); at != std::string::npos; at = page.find(mark, at)) {
            at += mark.size();
            const std::string link = page.substr(at, page.find('"', at) - at);
            EXPECT_TRUE(std::filesystem::exists(book / link)) << topic.path() << " " << link;
        }
    }
}

// An operator who reads a message looks it up in the page's topic.
TEST(HelpBook, QuotesTheMessagesOfTheBasicPageAsShown) {
    const std::array<std::pair<const char*, const char*>, 2> topics{
        std::pair{"libonuconfig.ENU", "onuBasic.htm"},
        std::pair{"libonuconfig.CHS", "onuBasic.zh.htm"}};
    for (const auto& [file, topic] : topics) {
        const LanguageModule module = language(file);
        std::string page = contents(kClient / "Help" / "confighelp" / topic);
        std::ranges::replace(page, '\n', ' ');
        for (const int id : {3026, 3028, 3029, 3030}) {
            EXPECT_NE(page.find(module.text(id)), std::string::npos) << topic << " " << id;
        }
        for (const int id : {11045, 11046}) {
            EXPECT_NE(page.find(module.text(id) + module.text(11002)), std::string::npos) << topic;
        }
    }
}

} // namespace
} // namespace onudesk
