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
#include <regex>
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

// Whether a number in the sources can only be that of a text: messages of the boxes, help keys, and
// captions, those of a page beginning with its item type.
bool numbersAText(int number) {
    return (3000 <= number && number < 4000) || (6200 < number && number < 6300) ||
           (11000 <= number && number < 12000) || (20000 < number && number < 22000) ||
           kItemTypes.contains(number / 100);
}

TEST(LanguageModules, HaveEveryTextThatTheWindowNames) {
    const LanguageModule module = language(kLanguages[0]);
    const std::filesystem::path sources = std::filesystem::path(ONUDESK_SOURCE_DIR) / "src";
    const std::regex literal(R"(\b[0-9]{4,5}\b)");
    std::size_t found = 0;
    for (const char* part : {"pages", "mainform", "entry", "env", "snmp"}) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(sources / part)) {
            if (!entry.is_regular_file()) {
                continue;
            }
            const std::string text = contents(entry.path());
            for (std::sregex_iterator at(text.begin(), text.end(), literal), end; at != end; ++at) {
                const int number = std::stoi(at->str());
                if (numbersAText(number)) {
                    ++found;
                    EXPECT_NE(module.text(number), "") << entry.path() << " " << number;
                }
            }
        }
    }
    EXPECT_GT(found, 100U);
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

// Groups whose rows pages know by a fixed OID, which goes before the one of their place.
const std::map<std::string, std::string> kFixedGroups{
    {"619 maintable", "1.3.6.1.4.1.27315.1.9.5.2.1."},
    {"621 maintable", "1.3.6.1.4.1.27315.1.9.6.3.1."}};

struct CatalogueObject {
    int itemType;
    std::string group;
    std::string name;
    std::string oid;
    std::string expectedOid; // by the place in the file
};

// What the file itself lists: a repeated name is lost in a loaded catalogue.
std::vector<CatalogueObject> catalogueObjects() {
    std::vector<CatalogueObject> objects;
    const Result<XmlDocument> document = loadXml(kClient / "CONF" / "snmp" / "snmpconfig.xml");
    EXPECT_TRUE(document);
    for (const TiXmlElement* module = document ? (*document)->RootElement()->FirstChildElement()
                                               : nullptr;
         module != nullptr; module = module->NextSiblingElement()) {
        const std::string item = attribute(*module, "name");
        int groupNumber = 0;
        for (const TiXmlElement* group = module->FirstChildElement(); group != nullptr;
             group = group->NextSiblingElement()) {
            const std::string place =
                "1.3.6.1.4.1.27315." + item + ".1." + std::to_string(++groupNumber) + ".";
            const auto fixed = kFixedGroups.find(item + " " + attribute(*group, "name"));
            const std::string& base = fixed == kFixedGroups.end() ? place : fixed->second;
            int column = 0;
            for (const TiXmlElement* object = group->FirstChildElement(); object != nullptr;
                 object = object->NextSiblingElement()) {
                objects.push_back({leadingInteger(item), attribute(*group, "name"),
                                   attribute(*object, "name"), attribute(*object, "oidstr"),
                                   base + std::to_string(++column)});
            }
        }
    }
    return objects;
}

// An attribute that nobody knows would be passed over without a word.
TEST(Catalogue, HasKnownElementsAndAttributesOnly) {
    const std::map<std::string, std::set<std::string>> known{
        {"snmpconfig", {}},
        {"module", {"name"}},
        {"group", {"name", "read", "per", "port", "staged", "entries", "slots", "model"}},
        {"object",
         {"name", "oidstr", "type", "access", "range", "size", "numbers", "format", "secret", "row",
          "unique", "index", "member", "spread"}}};
    const Result<XmlDocument> document = loadXml(kClient / "CONF" / "snmp" / "snmpconfig.xml");
    ASSERT_TRUE(document) << document.error();
    std::vector<const TiXmlElement*> open{(*document)->RootElement()};
    while (!open.empty()) {
        const TiXmlElement& element = *open.back();
        open.pop_back();
        ASSERT_TRUE(known.contains(element.Value())) << element.Value() << element.Row();
        for (const auto* each = element.FirstAttribute(); each != nullptr; each = each->Next()) {
            EXPECT_TRUE(known.at(element.Value()).contains(each->Name()))
                << each->Name() << " line " << element.Row();
        }
        for (const auto* child = element.FirstChildElement(); child != nullptr;
             child = child->NextSiblingElement()) {
            open.push_back(child);
        }
    }
}

// The host finds the object of a write by its name alone, whatever its group.
TEST(Catalogue, NamesEveryObjectOfAnItemOnceAndNumbersItByItsPlace) {
    std::set<std::pair<int, std::string>> names;
    std::map<std::string, std::string> oids;
    std::map<std::pair<int, std::string>, std::string> groups; // with the group's part of the OID
    for (const CatalogueObject& object : catalogueObjects()) {
        const std::string place = std::to_string(object.itemType) + " " + object.name;
        EXPECT_TRUE(kItemTypes.contains(object.itemType)) << place;
        EXPECT_TRUE(names.emplace(object.itemType, object.name).second) << place;
        const std::string base = object.expectedOid.substr(0, object.expectedOid.rfind('.'));
        EXPECT_EQ(groups.try_emplace({object.itemType, object.group}, base).first->second, base)
            << place;
        // An object of another item keeps that item's OID, and its name.
        if (object.oid != object.expectedOid) {
            const std::string prefix = "1.3.6.1.4.1.27315.";
            ASSERT_TRUE(object.oid.starts_with(prefix)) << place;
            const int owner = leadingInteger(object.oid.substr(prefix.size()));
            EXPECT_NE(owner, object.itemType) << place;
            EXPECT_TRUE(kItemTypes.contains(owner)) << place;
        }
        EXPECT_EQ(oids.try_emplace(object.oid, object.name).first->second, object.name) << place;
    }
    EXPECT_FALSE(names.empty());
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

// Topics are reached from the index in their own language, and lead to the other one.
TEST(HelpBook, LinksEveryTopicInBothLanguages) {
    const std::filesystem::path book = kClient / "Help" / "confighelp";
    const auto link = [](const std::string& topic) { return "href=\"" + topic + "\""; };
    for (const auto& entry : std::filesystem::directory_iterator(book)) {
        const std::string topic = entry.path().filename().string();
        const std::string stem = topic.substr(0, topic.find('.'));
        const bool chinese = topic == stem + ".zh.htm";
        EXPECT_TRUE(chinese || topic == stem + ".htm") << topic;
        const std::string index = chinese ? "index.zh.htm" : "index.htm";
        const std::string page = contents(entry.path());
        EXPECT_NE(page.find(link(chinese ? stem + ".htm" : stem + ".zh.htm")), std::string::npos)
            << topic;
        if (stem != "index") {
            EXPECT_NE(page.find(link(index)), std::string::npos) << topic;
            EXPECT_NE(contents(book / index).find(link(topic)), std::string::npos) << topic;
        }
    }
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
TEST(HelpBook, QuotesTheMessagesOfThePagesAsShown) {
    struct Message {
        Message(int message, std::vector<std::string> places = {})
            : id(message), arguments(std::move(places)) {}

        int id;
        std::vector<std::string> arguments;
    };
    struct Topic {
        const char* name;
        bool writes; // and so tells whether it succeeded
        std::vector<Message> messages;
    };
    const auto range = [](const char* minimum, const char* maximum) {
        return Message(11068, {minimum, maximum});
    };
    const Topic topics[] = {
        {"onuAlarm", true, {}},
        {"onuBasic", true, {3026, 3028, 3029, 3030}},
        {"onuCapability2", false, {}},
        {"onuCls", true, {3021, 3029, 3034, 3036, 11069, 11157, 11204, 11686, range("0", "7")}},
        {"onuComSession", true, {11069, 11204, range("1", "65535")}},
        {"onuControlMulti", true, {3029, 3036, 3039, 3041, 11057, 11204, range("1", "4094")}},
        {"onuCosQueue", true, {11204}},
        {"onuCpuCar", true, {range("0", "10000")}},
        {"onuCtcPortVlan",
         true,
         {3034, 3136, 3316, 3317, 11204, {20029, {"20a"}}, range("1", "4094")}},
        {"onuDba", true, {3031, 3032, {20029, {"20a"}}, range("32", "640")}},
        {"onuDiagnosis", false, {11246, 11303}},
        {"onuEncription", true, {3110, 3111}},
        {"onuFec", true, {}},
        {"onuIp", true, {11069}},
        {"onuLan", true, {3117, 3118, 3125, 11204, range("64", "1024000")}},
        {"onuLoopback", true, {}},
        {"onuLtAttribute", false, {}},
        {"onuLtGain", true, {11204, range("0", "36")}},
        {"onuLtIp", true, {11069}},
        {"onuLtLines", true, {11204}},
        {"onuLtPon", true, {}},
        {"onuLtSelfSet", true, {range("0", "23"), range("0", "59"), range("0", "15")}},
        {"onuMacAge", true, {range("1", "1048575")}},
        {"onuMacFilter", true, {3029, 3036, 3038, 11057, 11204, range("1", "4094")}},
        {"onuMacLimit", true, {range("1", "1000")}},
        {"onuMacMaxNum", true, {11204, range("0", "1000")}},
        {"onuManagerVlan", true, {range("1", "4094"), range("0", "4094"), range("1", "8")}},
        {"onuMultiBase", true, {}},
        {"onuMultiIgmp", true, {3040, 3042, 3043, 3044, 11204, range("1", "255")}},
        {"onuMultiReport", true, {11204}},
        {"onuPortMode", true, {11204}},
        {"onuPortPoe", true, {3194, 11204, 11774}},
        {"onuPortQinq", true, {11062, 11204}},
        {"onuPortStatus", true, {11204}},
        {"onuQinqConfig", true, {3045, range("1501", "65535")}},
        {"onuQueueConfig", true, {3113, 3114, 3115, range("1", "15")}},
        {"onuRate", true, {66407, range("255", "1000000")}},
        {"onuReboot", true, {11077}},
        {"onuRepeatCosQueue", true, {3112, 11204}},
        {"onuSvlanInsert", true, {3046, 3047, 3049, 11204, 11222, 11224, range("1", "4094")}},
        {"onuSvlanThrough",
         true,
         {3046, 3047, 3048, 3049, 11204, 11222, 11224, range("1", "4094")}},
        {"onuThreshold", false, {11292, 11293, 11294, 11295, 11304}},
        {"onuVersion", false, {}},
        {"onuVlanConfig", true, {range("1", "4094")}},
        {"onuVlanMode", true, {}},
        {"onuVoip", true, {11069, range("1", "4094"), range("0", "4094"), range("1", "8")}},
        {"onuVoipFaxModem", true, {}},
        {"onuVoipH248",
         true,
         {11069, {3298, {"H.248"}}, range("0", "65535"), range("1", "65535"), range("0", "255")}},
        {"onuVoipH248Rtp",
         true,
         {3271, {3298, {"H.248"}}, range("0", "255"), range("0", "4294967295")}},
        {"onuVoipIad", false, {}},
    };
    const std::filesystem::path book = kClient / "Help" / "confighelp";
    const std::array<std::pair<const char*, const char*>, 2> languages{
        std::pair{"libonuconfig.ENU", ".htm"}, std::pair{"libonuconfig.CHS", ".zh.htm"}};
    for (const auto& [file, suffix] : languages) {
        const LanguageModule module = language(file);
        for (const Topic& topic : topics) {
            std::string page = contents(book / (topic.name + std::string(suffix)));
            std::ranges::replace(page, '\n', ' ');
            for (const Message& message : topic.messages) {
                const std::string text = fillPlaces(module.text(message.id), message.arguments);
                EXPECT_NE(text, "") << file << " " << message.id;
                EXPECT_NE(page.find(text), std::string::npos)
                    << topic.name << suffix << " " << text;
            }
            for (const int id : {11045, 11046}) {
                EXPECT_EQ(page.find(module.text(id) + module.text(11002)) != std::string::npos,
                          topic.writes)
                    << topic.name << suffix;
            }
        }
    }
    // Every topic of a page stands in the list above.
    std::set<std::string> listed{"index", "snmpSettings"};
    for (const Topic& topic : topics) {
        EXPECT_TRUE(listed.emplace(topic.name).second) << topic.name;
    }
    std::set<std::string> topicsOfBook;
    for (const auto& entry : std::filesystem::directory_iterator(book)) {
        const std::string name = entry.path().filename().string();
        topicsOfBook.insert(name.substr(0, name.find('.')));
    }
    EXPECT_EQ(topicsOfBook, listed);
}

// The recipe for pages prints sources; they must be those that are built.
TEST(Documents, PrintSourcesAsTheyAre) {
    const std::filesystem::path root = ONUDESK_SOURCE_DIR;
    const std::string recipe = contents(root / "docs" / "pages.md");
    const std::string mark = "```cpp ";
    int blocks = 0;
    for (auto at = recipe.find(mark); at != std::string::npos; at = recipe.find(mark, at)) {
        const auto line = recipe.find('\n', at);
        const std::string file = recipe.substr(at + mark.size(), line - at - mark.size());
        const auto end = recipe.find("```", line);
        const std::string source = contents(root / file);
        EXPECT_EQ(recipe.substr(line + 1, end - line - 1), source.substr(source.find('\n') + 1))
            << file;
        at = end;
        ++blocks;
    }
    EXPECT_EQ(blocks, 3);
}

// Labels, the button and the answers of Apply.
TEST(HelpBook, QuotesTheSnmpSettingsAsShown) {
    const std::array<std::pair<const char*, const char*>, 2> topics{
        std::pair{"libonuconfig.ENU", "snmpSettings.htm"},
        std::pair{"libonuconfig.CHS", "snmpSettings.zh.htm"}};
    for (const auto& [file, topic] : topics) {
        const LanguageModule module = language(file);
        std::string page = contents(kClient / "Help" / "confighelp" / topic);
        std::ranges::replace(page, '\n', ' ');
        const auto quoted = [&](int id) {
            return page.find("<b>" + module.text(id) + "</b>") != std::string::npos;
        };
        for (int id = 3013; id <= 3018; ++id) {
            EXPECT_TRUE(quoted(id)) << topic << " " << id;
        }
        for (int id = 21001; id <= 21016; ++id) {
            EXPECT_TRUE(quoted(id)) << topic << " " << id;
        }
    }
}

} // namespace
} // namespace onudesk
