// SPDX-License-Identifier: MIT
//
// What crosses the boundary, as plain values: for observing it, and for making the replies.
#pragma once

#include "host/host_request.h"

#include <cstdint>
#include <string>
#include <vector>

namespace onudesk::host {

// A request as posted. Holds no community and no pass phrase.
struct RequestRecord {
    RequestKind kind = RequestKind::read;
    std::int32_t itemType = 0;
    std::string suffix{};
    std::vector<Binding> bindings{};
};

// `text` is empty when there was no error. `status` is the agent's (RFC 3416) or one of
// onudesk::error_status; `index` counts from 1, 0 when the error concerns no single object.
struct ReplyError {
    std::int32_t status = 0;
    std::int32_t index = 0;
    std::string text{};
};

struct ReplyRecord {
    RequestKind kind = RequestKind::read;
    std::int32_t itemType = 0;
    std::uint32_t agentAddress = 0; // IPv4, host byte order
    std::string resultText{};       // reads: the group's name
    std::uint32_t status = 0;       // reads: 1 in the last reply; writes: 1 completed, 0 failed
    ReplyError error{};
    std::vector<std::string> oids{};
    std::vector<std::string> values{};
    std::vector<std::uint32_t> lengths{}; // bytes of each value as the agent returned it
    bool delivered = false;               // whether a window was there to take it
};

// A fresh reply; the caller owns it until it is posted or handed to releaseReply().
[[nodiscard]] CodeParaReply* makeReply(const ReplyRecord& record);

// The callback that takes replies back: frees `*holder`, if any, and sets it to null. Any thread.
void releaseReply(CodeParaReply** holder);

// Replies made and not yet released.
[[nodiscard]] std::size_t liveReplies();

} // namespace onudesk::host
