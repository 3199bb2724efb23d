// SPDX-License-Identifier: MIT
#include "pages/voip/h248_page.h"

#include <utility>

namespace onudesk {

namespace {

constexpr int kOtherProtocol = 3298; // with the protocol that it takes

} // namespace

H248Page::H248Page(Session& session, std::int32_t itemType, PageRules rules, std::string rowStatus,
                   std::size_t protocol, QWidget* parent)
    : VoicePage(session, itemType, std::move(rules), std::move(rowStatus), parent),
      protocol_(protocol) {}

bool H248Page::runsH248() const {
    return lastVoiceProtocol_ == "0" || lastVoiceProtocol_ == "255";
}

void H248Page::showReply(const ReadResult& result) {
    lastVoiceProtocol_ = result.values[protocol_];
    if (runsH248()) {
        VoicePage::showReply(result);
    }
}

bool H248Page::mayWrite() {
    return takesH248() && VoicePage::mayWrite();
}

bool H248Page::takesH248() {
    if (!runsH248()) {
        refuse({kOtherProtocol, {"H.248"}}, nullptr);
    }
    return runsH248();
}

FieldCheck needed(std::int64_t minimum, std::int64_t maximum) {
    return numberIn(minimum, maximum, EmptyText::takesFocus);
}

} // namespace onudesk
