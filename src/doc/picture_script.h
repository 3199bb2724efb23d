// SPDX-License-Identifier: MIT
//
// The steps that take a picture of every page and of the dialogs.
#pragma once

#include "mainform/menu_catalogue.h"
#include "pages/framework/page_facts.h"

#include <string>
#include <vector>

namespace onudesk {

// A script for `onuctl run` over all items of the menu that have a page: a picture of the page and,
// where its rows have a dialog, one of that of the first row. `steps` has what is done instead of
// that dialog, as lines "ITEM STEP; STEP"; those of item 0 come first.
[[nodiscard]] std::string pictureScript(const std::vector<MenuItem>& menu,
                                        const std::vector<PageFacts>& pages,
                                        const std::string& steps);

} // namespace onudesk
