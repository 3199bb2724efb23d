// SPDX-License-Identifier: MIT
//
// The tree of configuration items, as a menu file lists it:
//
//     <menu type="ONU"><CONFIG_ITEM name="5001"><item name="606"/></CONFIG_ITEM></menu>
#pragma once

#include "bridge/session_context.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <tinyxml.h>

namespace onudesk {

inline constexpr const char* kFallbackMenu = "epononuother_menu.xml";

struct MenuItem {
    std::int32_t itemType = 0; // also the message id of the caption
    std::vector<MenuItem> children{};
};

struct Menu {
    std::string caption; // of the root node
    std::vector<MenuItem> items;
};

// Takes first-level elements named exactly CONFIG_ITEM and, below them, two more levels of elements
// with any name; deeper ones are ignored. A missing name gives item type 0.
[[nodiscard]] Menu readMenu(const TiXmlElement& root, const std::string& sessionCaption);

// Reads the host's menu file, or the fallback when it does not exist. When neither exists the
// operator is told; nothing comes back then, nor when the file cannot be parsed.
[[nodiscard]] std::optional<Menu> loadMenu(const SessionContext& context);

} // namespace onudesk
