// SPDX-License-Identifier: MIT
//
// What the pages say of themselves to their help topics.
#pragma once

#include "doc/help_book.h"
#include "pages/framework/list_page.h"

#include <cstdint>
#include <functional>
#include <map>

namespace onudesk {

// Both need a QApplication and the client tree as the current directory's parent.

// Makes the item's page as the window of an ONU has it (port -1) or that of a port, without a host.
// Nothing is called when it has none.
void withPage(std::int32_t itemType, std::int32_t port,
              const std::function<void(const ConfigPage& page)>& use);

// By help key, read off all pages of the page table, as windows of an ONU and of a port
// have them.
[[nodiscard]] std::map<int, TopicFacts> pageFacts();

} // namespace onudesk
