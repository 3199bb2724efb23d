// SPDX-License-Identifier: MIT
//
// Pages that are facts and nothing else. A function in a file of its family states them, which the
// page table names:
//
//     RecordPage onuExample() {
//         return {.rules = {.helpKeyId = 6250}, .fields = {…}};
//     }
#pragma once

#include "pages/framework/item_rules.h"
#include "pages/framework/list_page.h"
#include "pages/framework/page_rules.h"
#include "pages/framework/row_table.h"

#include <cstdint>
#include <vector>

namespace onudesk {

// A form of fields, one below the other.
struct RecordPage {
    PageRules rules{};
    std::vector<Field> fields{};
    bool centred = false; // in one panel with the buttons
    int noteId = 0;       // a line of text below them; 0: none
    int width = 0;        // of the form at least, in pixels; 0: as usual
};

// A list, and the dialog of a row.
struct TablePage {
    PageRules rules{};
    std::vector<Column> columns{};
    ItemRules dialog{};
};

[[nodiscard]] ConfigPage* makePlainPage(const RecordPage& facts, Session& session,
                                        std::int32_t itemType, QWidget* parent);
[[nodiscard]] ConfigPage* makePlainPage(const TablePage& facts, Session& session,
                                        std::int32_t itemType, QWidget* parent);

} // namespace onudesk
