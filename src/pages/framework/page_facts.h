// SPDX-License-Identifier: MIT
//
// What a page is made of, read off the page itself: no operator, no host, no row and no click.
#pragma once

#include "pages/framework/item_rules.h"
#include "pages/framework/list_page.h"
#include "pages/framework/page_rules.h"
#include "pages/framework/port_list_page.h"
#include "pages/framework/row_table.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace onudesk {

// What a button is, by its object name: the page's Config, Refresh and Help, Delete wherever it
// stands, a dialog's OK and Cancel; other: any further one.
enum class ButtonUse { config, refresh, help, remove, ok, cancel, other };

struct ButtonFact {
    std::string name; // object name
    int captionId = 0;
    ButtonUse use = ButtonUse::other;
};

// One bounded field: the control, the object that it writes, in its group, and the bounds.
struct LimitFact {
    std::string control;
    ObjectName object; // with its group
    FieldCheck::Range range;
};

struct DialogFacts {
    std::string name; // object name, TOnu…Item
    int titleId = 0;
    std::vector<Field> fields;
    std::vector<ButtonFact> buttons; // from left to right
};

struct PageFacts {
    std::int32_t itemType = 0;
    std::string className{};
    std::string topic{}; // its page in the help book
    PageRules rules{};
    std::vector<ButtonFact> buttons{}; // from left to right; those beside controls first
    std::vector<Field> fields{};
    std::vector<Column> columns{};      // of a list page
    std::optional<PortRules> ports{};   // of a list page that reads one port at a time
    std::vector<DialogFacts> dialogs{}; // of its rows
    std::optional<Deletion> deletion{}; // declared, of the selected row
    std::vector<LimitFact> limits{};    // of fields, its dialogs' included
    std::vector<int> messageIds{};      // of the boxes that follow from the facts, ascending
};

// Fields and columns share value maps and may be kept; functions of checks, columns and deletions
// may need their page and are not to be called once it is gone.
[[nodiscard]] PageFacts factsOf(ConfigPage& page);

} // namespace onudesk
