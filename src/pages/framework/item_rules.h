// SPDX-License-Identifier: MIT
//
// The dialog of a row as data.
#pragma once

#include "pages/framework/fields.h"
#include "pages/framework/page_rules.h"

#include <string>
#include <vector>

namespace onudesk {

// What follows the ONU's numbers in the instance that a dialog writes: the text of its first field,
// or the number of the row on the agent.
enum class RowInstance { firstField, rowIndex };

struct ItemRules {
    std::string name{}; // its object name
    int titleId = message::itemTitle;
    // Their positions are columns of the page's table.
    std::vector<Field> fields{};
    int pairs = 1;                       // of label and control side by side
    int noteId = 0;                      // a line of text below the fields of one pair; 0: none
    PageButton ok{"okBtn", message::ok}; // without a name there is none
    PageButton cancel{"cancelBtn", message::cancel};
    RowInstance instance = RowInstance::firstField;
    // The page registers for the answer before the dialog is shown, not only before the write.
    bool registersWhenShown = false;
};

} // namespace onudesk
