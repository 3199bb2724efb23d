// SPDX-License-Identifier: MIT
//
// The one list of items: which page and which help topic belong to an item type, and what the pages
// are made of.
//
//     const ClientTree…; installLanguage(…);   // texts of the catalogue's and the window's files
//     for (const PageFacts& page : describePages()) { … page.fields … page.dialogs … }
#pragma once

#include "pages/framework/config_page.h"
#include "pages/framework/page_facts.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace onudesk {

struct PageEntry {
    std::int32_t itemType;
    const char* className;
    const char* topic; // null: the default topic
    ConfigPage* (*create)(Session& session, std::int32_t itemType,
                          QWidget* parent); // null: no page
};

[[nodiscard]] std::span<const PageEntry> pageTable();

// A new page owned by its parent, or null when the item type has none.
[[nodiscard]] ConfigPage* createPage(Session& session, std::int32_t itemType, QWidget* parent);

// What every page is made of, in the order of the table; an item whose window for one port shows
// another page has a second entry for that, behind the first. Needs a QApplication, the client tree
// and the language whose texts it shall have; sends nothing, asks nothing.
[[nodiscard]] std::vector<PageFacts> describePages();

// The topic's page in the help book, "onuBasic.htm"; "onuVersion.htm" for all other item types.
[[nodiscard]] std::string helpTopic(std::int32_t itemType);

} // namespace onudesk
