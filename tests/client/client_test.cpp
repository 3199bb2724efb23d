// SPDX-License-Identifier: MIT
//
// The client tree as shipped: language modules, menus and catalogue fit each other, the page table
// and the sources. (Of help topics and documents the build sees to that.)
#include "base/file.h"
#include "env/language_module.h"
#include "env/xml_file.h"
#include "mainform/menu_catalogue.h"
#include "mainform/page_table.h"

#include <array>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace onudesk {
namespace {

const std::filesystem::path kRoot = ONUDESK_SOURCE_DIR;
constexpr std::array kLanguages{"libonuconfig.ENU", "libonuconfig.CHS"};
constexpr std::array kMenus{"epononuother_menu.xml", "epononu4470_menu.xml",
                            "epononu4590_menu.xml"};

const std::set<int> kItemTypes = [] {
    std::set<int> types;
    for (const PageEntry& entry : pageTable()) {
        types.insert(entry.itemType);
    }
    return types;
}();

LanguageModule language(const char* file) {
    return LanguageModule::load(kRoot / "client" / "lang" / file).value();
}

std::string contents(const std::filesystem::path& path) {
    return readFile(kRoot / path).value();
}

std::vector<std::smatch> matches(const std::string& text, const std::regex& expression) {
    return {std::sregex_iterator(text.begin(), text.end(), expression), {}};
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

TEST(LanguageModules, HaveTheSameTextsOnceWithTheSamePlaces) {
    const LanguageModule english = language(kLanguages[0]);
    for (const char* file : kLanguages) {
        const LanguageModule module = language(file);
        EXPECT_EQ(module.texts().size(), english.texts().size()) << file;
        const std::string listed = contents(std::filesystem::path("client/lang") / file);
        EXPECT_EQ(matches(listed, std::regex(R"(<\w+ id=")")).size(), module.texts().size())
            << file;
        for (const auto& [id, text] : module.texts()) {
            EXPECT_GT(id, 0) << file;
            EXPECT_NE(text, "") << file << " " << id;
            EXPECT_EQ(text.find_first_of("<>&"), std::string::npos) << file << " " << id;
            EXPECT_EQ(places(text).find_first_not_of("sdu%"), std::string::npos) << id;
            EXPECT_EQ(places(text), places(english.text(id))) << file << " " << id;
        }
        // A two-way value map would confuse a text with a code.
        for (const int id : {11043, 11044}) {
            EXPECT_EQ(module.text(id).find_first_of("0123456789"), std::string::npos) << file;
        }
        EXPECT_NE(module.text(11043), module.text(11044)) << file;
        EXPECT_EQ(places(module.text(11068)), "ss") << file;
        EXPECT_EQ(module.text(6201), "confighelp") << file;
        std::map<std::string, int> captions;
        for (const int itemType : kItemTypes) {
            const auto [other, added] = captions.try_emplace(module.text(itemType), itemType);
            EXPECT_TRUE(added) << file << " " << itemType << " and " << other->second;
        }
    }
}

// Whether a number in the sources can only be that of a text: messages of the boxes, help keys, and
// captions, those of a page beginning with its item type.
bool numbersAText(int number) {
    return (3000 <= number && number < 4000) || (6200 < number && number < 6300) ||
           (11000 <= number && number < 12000) || (20000 < number && number < 22000) ||
           kItemTypes.contains(number / 100);
}

TEST(LanguageModules, HaveEveryTextThatTheWindowNames) {
    const LanguageModule module = language(kLanguages[0]);
    const std::regex literal(R"(\b[0-9]{4,5}\b)");
    std::size_t found = 0;
    for (const char* part : {"pages", "mainform", "entry", "env", "window"}) {
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(kRoot / "src" / part)) {
            if (!entry.is_regular_file()) {
                continue;
            }
            const std::string text = contents(entry.path());
            for (const std::smatch& match : matches(text, literal)) {
                const int number = std::stoi(match.str());
                if (numbersAText(number)) {
                    ++found;
                    EXPECT_NE(module.text(number), "") << entry.path() << number;
                }
            }
        }
    }
    EXPECT_GT(found, 100U);
}

TEST(LanguageModules, KeepTheBlankBetweenJoinedTexts) {
    const LanguageModule english = language("libonuconfig.ENU");
    EXPECT_EQ(english.text(11045) + english.text(11002), "Succeeded: ONU configuration");
    EXPECT_EQ(english.text(11046) + english.text(11002), "Failed: ONU configuration");
    EXPECT_EQ(english.text(11002) + english.text(11003), "ONU configuration - OnuDesk");
    EXPECT_EQ(english.text(11058) + "MAC", "Delete MAC");
    EXPECT_EQ(language("libonuconfig.CHS").text(11002) + english.text(11003), "ONU 配置 - OnuDesk");
}

void collect(const std::vector<MenuItem>& items, bool first, std::multiset<int>& leaves) {
    for (const MenuItem& item : items) {
        for (const char* file : kLanguages) {
            EXPECT_NE(language(file).text(item.itemType), "") << file << item.itemType;
        }
        if (item.children.empty()) {
            EXPECT_FALSE(first) << item.itemType << " is under no heading";
            leaves.insert(item.itemType);
        }
        collect(item.children, false, leaves);
    }
}

TEST(Menus, ListEveryItemTypeOnceUnderHeadingsWithCaptions) {
    for (const char* file : kMenus) {
        SCOPED_TRACE(file);
        const XmlDocument menu = loadXml(kRoot / "client/CONF/snmp" / file).value();
        EXPECT_NE(attribute(*menu->RootElement(), "type"), "");
        std::multiset<int> leaves;
        collect(readMenu(*menu->RootElement(), {}).items, true, leaves);
        EXPECT_EQ(leaves, std::multiset<int>(kItemTypes.begin(), kItemTypes.end()));
    }
}

// An attribute that nobody knows would be passed over without a word. The host finds the object of
// a write by its name alone, whatever its group.
TEST(Catalogue, NamesEveryObjectOfAnItemOnceAndNumbersItByItsPlace) {
    const std::map<std::string, std::set<std::string>> known{
        {"snmpconfig", {}},
        {"module", {"name"}},
        {"group", {"name", "read", "per", "port", "staged", "entries", "slots", "model"}},
        {"object",
         {"name", "oidstr", "type", "access", "range", "size", "numbers", "format", "secret", "row",
          "unique", "index", "member", "spread"}}};
    // Lists of the device with OIDs outside the place of their item.
    const std::map<std::string, std::string> fixedGroups{
        {"619 maintable", "1.3.6.1.4.1.27315.1.9.5.2.1"},
        {"621 maintable", "1.3.6.1.4.1.27315.1.9.6.3.1"}};
    const std::string catalogue = contents("client/CONF/snmp/snmpconfig.xml");
    const std::string enterprise = "1.3.6.1.4.1.27315.";
    std::map<std::string, std::string> names; // of objects by OID
    std::set<std::string> places;             // of groups and objects, by item and name
    std::string item;
    std::string base; // of the columns of a group
    int groups = 0;
    int column = 0;
    for (const std::smatch& element : matches(catalogue, std::regex(R"(<(\w+)([^<>]*)>)"))) {
        std::map<std::string, std::string> values;
        const std::string attributes = element.str(2);
        for (const std::smatch& each : matches(attributes, std::regex(R"re((\w+)="([^"]*)")re"))) {
            values[each.str(1)] = each.str(2);
            EXPECT_TRUE(known.at(element.str(1)).contains(each.str(1))) << element.str();
        }
        const std::string& name = values["name"];
        if (element.str(1) == "module") {
            item = name;
            groups = 0;
            EXPECT_TRUE(kItemTypes.contains(std::stoi(item))) << item;
        } else if (element.str(1) == "group") {
            const auto fixed = fixedGroups.find(item + " " + name);
            base = enterprise + item + ".1." + std::to_string(++groups);
            base = fixed == fixedGroups.end() ? base : fixed->second;
            column = 0;
            EXPECT_TRUE(places.insert(item + "/" + name).second) << item << name;
        } else if (element.str(1) == "object") {
            const std::string& oid = values["oidstr"];
            EXPECT_TRUE(places.insert(item + " " + name).second) << item << name;
            EXPECT_EQ(names.try_emplace(oid, name).first->second, name) << item;
            // An object of another item keeps that item's OID, and its name.
            if (oid != base + "." + std::to_string(++column)) {
                ASSERT_TRUE(oid.starts_with(enterprise)) << oid;
                const int owner = std::stoi(oid.substr(enterprise.size()));
                EXPECT_TRUE(owner != std::stoi(item) && kItemTypes.contains(owner)) << oid;
            }
        }
    }
    EXPECT_FALSE(names.empty());
}

// The recipe for pages prints sources; they must be those that are built.
TEST(Documents, PrintSourcesAsTheyAre) {
    const std::string recipe = contents("docs/pages.md");
    const std::string mark = "```cpp ";
    int blocks = 0;
    for (auto at = recipe.find(mark); at != std::string::npos; at = recipe.find(mark, at)) {
        const auto line = recipe.find('\n', at);
        const std::string file = recipe.substr(at + mark.size(), line - at - mark.size());
        const auto end = recipe.find("```", line);
        const std::string source = contents(file);
        EXPECT_EQ(recipe.substr(line + 1, end - line - 1), source.substr(source.find('\n') + 1))
            << file;
        at = end;
        ++blocks;
    }
    EXPECT_GT(blocks, 1);
}

} // namespace
} // namespace onudesk
