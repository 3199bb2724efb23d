// SPDX-License-Identifier: MIT
//
// docs/objects.md describes the catalogue: every object once, as the catalogue has it, and no
// other.
#include "env/client_paths.h"
#include "env/xml_file.h"

#include <filesystem>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace onudesk {
namespace {

const std::filesystem::path kRoot = ONUDESK_SOURCE_DIR;

std::vector<std::string> matches(const std::string& text, const char* pattern) {
    const std::regex expression(pattern);
    std::vector<std::string> found;
    for (std::sregex_iterator at(text.begin(), text.end(), expression), end; at != end; ++at) {
        found.push_back(at->str(at->size() - 1));
    }
    return found;
}

// The numbers of "3", "0, 8" and "4 to 7".
std::vector<std::string> numbersOf(const std::string& cell) {
    std::vector<std::string> numbers = matches(cell, "[0-9]+");
    if (cell.find(" to ") != std::string::npos) {
        const int last = std::stoi(numbers.back());
        numbers.pop_back();
        for (int number = std::stoi(numbers.front()); number < last;) {
            numbers.push_back(std::to_string(++number));
        }
    }
    return numbers;
}

// The element for the object of that number in a line; an element for all stands for each.
std::string element(const std::vector<std::string>& elements, std::size_t number) {
    return elements.empty()           ? std::string()
           : elements.size() == 1     ? elements.front()
           : number < elements.size() ? elements[number]
                                      : std::string();
}

// An object's line of a table, by the titles of the table.
struct Line {
    std::map<std::string, std::string> cells;
    std::size_t number = 0; // of the object among those of the line
};

struct Section {
    std::string prose;
    std::vector<std::string> modules;
    std::map<std::string, Line> lines; // by object
};

std::vector<std::string> cellsOf(const std::string& line) {
    return matches(line, R"(\| *([^|]*[^| ]|) *(?=\|))");
}

void readTableLine(const std::string& text, std::vector<std::string>& titles, Section& section) {
    const std::vector<std::string> cells = cellsOf(text);
    if (titles.empty()) {
        titles = cells;
        return;
    }
    ASSERT_EQ(cells.size(), titles.size()) << text;
    Line line;
    for (std::size_t at = 0; at < cells.size(); ++at) {
        line.cells.emplace(titles[at], cells[at]);
    }
    for (const std::string& name : matches(line.cells["Object"], "`([^`]+)`")) {
        EXPECT_TRUE(section.lines.emplace(name, line).second) << name;
        ++line.number;
    }
}

std::vector<Section> sections() {
    Result<std::string> document = readFile(kRoot / "docs" / "objects.md");
    EXPECT_TRUE(document);
    std::vector<Section> found;
    std::vector<std::string> titles;
    std::istringstream lines(document ? document.value() : std::string());
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("## Module")) {
            found.emplace_back().modules = matches(line.substr(0, line.find(':')), "[0-9]+");
        } else if (found.empty()) {
            continue;
        } else if (!line.starts_with('|')) {
            titles.clear();
            found.back().prose += line + " ";
        } else if (!line.starts_with("|--")) {
            readTableLine(line, titles, found.back());
        }
    }
    return found;
}

// Size or range, as a table has it in a column of its own.
std::string boundsOf(const TiXmlElement& object) {
    return attribute(object, attribute(object, "type") == "4" ? "size" : "range");
}

// Type with its bounds, as in "OCTET STRING, up to 32 bytes" or "INTEGER, 0..1".
std::string typeOf(const TiXmlElement& object) {
    static const std::map<std::string, std::string> types{
        {"2", "INTEGER"},    {"4", "OCTET STRING"}, {"6", "OBJECT IDENTIFIER"},
        {"64", "IpAddress"}, {"65", "Counter32"},   {"66", "Gauge32"},
        {"67", "TimeTicks"}, {"68", "Opaque"},      {"70", "Counter64"}};
    const std::string type = types.at(attribute(object, "type"));
    const std::string bounds = boundsOf(object);
    if (bounds.empty()) {
        return type;
    }
    if (type != "OCTET STRING") {
        const std::size_t dots = bounds.find("..");
        const bool single = bounds.substr(0, dots) == bounds.substr(dots + 2);
        return type + ", " + (single ? bounds.substr(0, dots) : bounds);
    }
    return type + (bounds.starts_with("0..") ? ", up to " + bounds.substr(3) : ", " + bounds) +
           " bytes";
}

// What the tables do not say of an object is said of all, in the text of the section.
void expectDescribed(const Section& section, const TiXmlElement& group, const TiXmlElement& object,
                     std::size_t place) {
    const std::string name = attribute(object, "name");
    const auto found = section.lines.find(name);
    ASSERT_NE(found, section.lines.end());
    const auto& [cells, number] = found->second;
    const auto cell = [&](const char* title) {
        const auto at = cells.find(title);
        return at == cells.end() ? std::string() : at->second;
    };
    EXPECT_EQ(element(numbersOf(cell("Position")), number),
              attribute(group, "read").empty() ? "" : std::to_string(place));
    if (cells.contains("OID")) {
        EXPECT_EQ(cell("OID"), attribute(object, "oidstr"));
    } else if (!cell("Column").empty()) {
        EXPECT_EQ(element(numbersOf(cell("Column")), number), std::to_string(place + 1));
    }
    const std::string access = attribute(object, "access");
    if (cells.contains("Access")) {
        EXPECT_EQ(cell("Access").substr(0, cell("Access").find(',')), access);
    } else {
        EXPECT_NE(section.prose.find(access), std::string::npos) << access;
    }
    const std::string type = typeOf(object);
    const std::string bareType = type.substr(0, type.find(','));
    const std::string bounds = cell("Range") + cell("Size");
    if (!bounds.empty()) {
        EXPECT_EQ(element(matches(bounds, "[^, ]+"), number), boundsOf(object));
        EXPECT_NE(section.prose.find(bareType), std::string::npos) << bareType;
    } else if (!cells.contains("Type")) {
        EXPECT_NE(section.prose.find(type), std::string::npos) << type;
    } else if (cell("Type") == bareType && type != bareType) {
        const std::string rest = type.substr(bareType.size() + 2);
        EXPECT_NE(section.prose.find(rest), std::string::npos) << rest;
    } else {
        EXPECT_EQ(cell("Type"), type);
    }
}

TEST(Documents, DescribeEveryObjectAsTheCatalogueHasIt) {
    const Result<XmlDocument> catalogue = loadXml(kRoot / "client/CONF/snmp/snmpconfig.xml");
    ASSERT_TRUE(catalogue) << catalogue.error();
    std::map<std::string, const TiXmlElement*> modules;
    for (const TiXmlElement* module = (*catalogue)->RootElement()->FirstChildElement();
         module != nullptr; module = module->NextSiblingElement()) {
        EXPECT_TRUE(modules.emplace(attribute(*module, "name"), module).second);
    }
    std::size_t described = 0;
    for (Section& section : sections()) {
        std::map<std::string, Line> unknown = section.lines;
        for (const std::string& item : section.modules) {
            SCOPED_TRACE(item);
            ASSERT_TRUE(modules.contains(item));
            ++described;
            for (const TiXmlElement* group = modules[item]->FirstChildElement(); group != nullptr;
                 group = group->NextSiblingElement()) {
                const std::string name = "`" + attribute(*group, "name") + "`";
                EXPECT_NE(section.prose.find(name), std::string::npos) << name;
                std::size_t place = 0;
                for (const TiXmlElement* object = group->FirstChildElement(); object != nullptr;
                     object = object->NextSiblingElement()) {
                    SCOPED_TRACE(attribute(*object, "name"));
                    expectDescribed(section, *group, *object, place++);
                    unknown.erase(attribute(*object, "name"));
                }
            }
        }
        for (const auto& [name, line] : unknown) {
            ADD_FAILURE() << "the catalogue has no " << name;
        }
    }
    EXPECT_EQ(described, modules.size());
}

} // namespace
} // namespace onudesk
