// SPDX-License-Identifier: MIT
//
// One session of one window over every page, and what the agent holds before and after it.
#include "env/xml_file.h"
#include "mainform/menu_catalogue.h"
#include "mainform/page_table.h"
#include "script_session.h"

#include <algorithm>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace onudesk::test {
namespace {

constexpr const char* kOnu = "1.2.5";
constexpr const char* kNone = "No Such Instance currently exists at this OID";
// Pages that only read, and the restart, whose object holds nothing.
constexpr std::int32_t kNothingKept[] = {605, 622, 666, 811, 822, 886};

// One object of those that a page writes.
struct Write {
    std::int32_t page;
    const char* column; // below the enterprise, up to the ONU
    const char* entry;  // what follows the ONU
    const char* before;
    const char* after;
};

// In the order of the menu.
constexpr Write kWrites[] = {
    {606, "606.1.1.19", "", R"("Fire station")", R"("57 61 63 68 65 20 3C 37 3E 20 E5 8C 97 ")"},
    {500, "500.1.1.2", "", "10.20.2.15", "10.20.2.77"},
    {675, "675.1.1.4", "", "172.16.0.1", "172.16.0.9"},
    {679, "679.1.1.3", "", "7", "3"},
    {915, "915.1.1.1", "", "1500", "2000"},
    {763, "763.1.1.5", ".3", "5", "0"},
    {616, "616.1.1.2", "", "2", "3"},
    {649, "649.1.1.1", "", "0", "1"},
    {772, "772.1.1.1", "", "0", "1"},
    {665, "665.1.1.1", "", "1", "2"},
    {667, "667.1.1.1", "", R"("75")", R"("60")"},
    {617, "617.1.1.3", ".1", "1", "2"},
    {888, "888.1.1.1", ".2", "1", "0"},
    {767, "767.1.1.1", "", "1", "2"},
    {611, "611.1.1.4", ".250", kNone, "1"},
    {677, "677.1.1.1", ".3", "1", "2"},
    {612, "612.1.1.3", ".1", "0", "55"},
    {645, "645.1.1.2", "", "34984", "37120"},
    {646, "646.1.2.1", ".4", "1", "2"},
    {647, "647.1.1.4", ".1.3", kNone, "77"},
    {648, "648.1.1.3", ".1.3", kNone, "2010"},
    {608, "608.1.1.2", "", "20000", "30000"},
    {613, "613.1.1.15", ".1.3", "0", "100"},
    {650, "650.1.1.2", "", R"("8,4,2,1")", R"("8,15,2,1")"},
    {651, "651.1.1.1", ".1", "0", "3"},
    {652, "652.1.1.1", ".6", "6", "7"},
    {607, "607.1.1.5", ".2", "0", "1"},
    {664, "664.1.1.4", "", "512", "255"},
    {619, "1.9.5.2.1.1", ".3", kNone, R"("0A 00 00 00 00 02 ")"},
    {620, "620.1.1.1", "", "256", "999"},
    {643, "643.1.1.1", "", "300", "0"},
    {644, "644.1.1.1", ".4", "1000", "512"},
    {624, "624.1.1.2", "", "2", "1"},
    {626, "626.1.2.1", ".1", "10", "12"},
    {621, "1.9.6.3.1.2", ".1.3", R"("00 00 00 00 00 00 ")", R"("01 00 5E 01 02 04 ")"},
    {625, "625.1.1.1", ".2", "0", "1"},
    {823, "823.1.1.11", "", "7", "2"},
    {824, "824.1.1.9", "", "1", "0"},
    {825, "825.1.1.1", "", "8", "16"},
    {827, "827.1.1.1", "", "1", "0"},
    {812, "812.1.1.1", "", "10.1.0.17", "10.2.0.3"},
    {813, "813.1.1.2", "", "105", "82"},
    {817, "817.1.1.1", "", "1", "2"},
    {815, "815.1.1.3", ".1", R"("Line 1")", R"("Gate house")"},
    {816, "816.1.1.1", ".4", "22", "0"},
};

std::string oidOf(const Write& write) {
    return std::string("1.3.6.1.4.1.27315.") + write.column + '.' + kOnu + write.entry;
}

// The pages that the script opens, each at its first place.
std::vector<std::int32_t> pagesOpened() {
    std::ifstream script(E2E_SCRIPT_DIR "/whole_window.onu");
    std::vector<std::int32_t> pages;
    for (std::string line; std::getline(script, line);) {
        const std::int32_t page = line.starts_with("page ") ? std::stoi(line.substr(5)) : 0;
        if (page != 0 && std::ranges::count(pages, page) == 0) {
            pages.push_back(page);
        }
    }
    return pages;
}

void addItems(const std::vector<MenuItem>& menu, std::vector<std::int32_t>& items) {
    for (const MenuItem& item : menu) {
        if (item.children.empty()) {
            items.push_back(item.itemType);
        }
        addItems(item.children, items);
    }
}

std::set<std::int32_t> pagesOfTheTable() {
    std::set<std::int32_t> pages;
    for (const PageEntry& entry : pageTable()) {
        if (entry.create != nullptr) {
            pages.insert(entry.itemType);
        }
    }
    return pages;
}

// Without the items that have no page.
std::vector<std::int32_t> pagesOfTheMenu() {
    const auto file = loadXml(std::string(ONUDESK_BUILD_CLIENT_DIR "/CONF/snmp/") + kFallbackMenu);
    if (!file) {
        ADD_FAILURE() << file.error();
        return {};
    }
    std::vector<std::int32_t> items;
    addItems(readMenu(*(*file)->RootElement(), {}).items, items);
    const std::set<std::int32_t> pages = pagesOfTheTable();
    std::erase_if(items, [&pages](std::int32_t item) { return !pages.contains(item); });
    return items;
}

class WholeWindowTest : public testing::TestWithParam<const char* /*locale*/> {};

TEST_P(WholeWindowTest, LeavesOnTheAgentWhatTheOperatorAskedFor) {
    const ScriptSession session;
    for (const Write& write : kWrites) {
        EXPECT_EQ(session.get(oidOf(write)), write.before) << oidOf(write) << " before";
    }
    const Finished onuctl = session.run("whole_window.onu", kOnu, "2c", {"--locale", GetParam()});
    EXPECT_EQ(onuctl.status, 0) << onuctl.err << onuctl.out;
    for (const Write& write : kWrites) {
        EXPECT_EQ(session.get(oidOf(write)), write.after) << oidOf(write) << " after";
    }
}

INSTANTIATE_TEST_SUITE_P(Window, WholeWindowTest, testing::Values("1033", "2052"));

TEST(WholeWindowScripts, OpenEveryPageInTheOrderOfTheMenu) {
    const std::vector<std::int32_t> menu = pagesOfTheMenu();
    EXPECT_EQ(std::set(menu.begin(), menu.end()), pagesOfTheTable());
    EXPECT_EQ(pagesOpened(), menu);
}

TEST(WholeWindowScripts, ChangeAnObjectOnEveryPageThatKeepsOne) {
    std::set<std::int32_t> pages(std::begin(kNothingKept), std::end(kNothingKept));
    for (const Write& write : kWrites) {
        EXPECT_STRNE(write.before, write.after) << write.page;
        EXPECT_TRUE(pages.insert(write.page).second) << write.page << " is listed twice";
    }
    EXPECT_EQ(pages, pagesOfTheTable());
}

} // namespace
} // namespace onudesk::test
