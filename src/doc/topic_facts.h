// SPDX-License-Identifier: MIT
//
// What pages say of themselves to their help topics.
#pragma once

#include "doc/help_book.h"
#include "pages/framework/page_facts.h"

#include <map>
#include <vector>

namespace onudesk {

// By help key.
[[nodiscard]] std::map<int, TopicFacts> topicFacts(const std::vector<PageFacts>& pages);

} // namespace onudesk
