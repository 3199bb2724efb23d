// SPDX-License-Identifier: MIT
//
// Which page and which help topic belong to an item type.
#pragma once

#include "pages/framework/config_page.h"

#include <cstdint>
#include <span>
#include <string>

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

// The topic's page in the help book, "onuBasic.htm"; "onuVersion.htm" for all other item types.
[[nodiscard]] std::string helpTopic(std::int32_t itemType);

} // namespace onudesk
