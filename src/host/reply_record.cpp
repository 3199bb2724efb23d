// SPDX-License-Identifier: MIT
#include "host/reply_record.h"

#include "bridge/code_para_access.h"

#include <atomic>
#include <memory>

namespace onudesk::host {

namespace {

std::atomic<std::size_t> g_liveReplies{0};

void fill(CodeParaIndex& index, const ReplyRecord& record) {
    putInteger(index, CP_STATUS, record.status);
    putInteger(index, CP_AGENT_ADDR, record.agentAddress);
    const bool isRead = record.kind == RequestKind::read;
    if (isRead) {
        putBytes(index, CP_RESULT_TEXT, record.resultText);
    }
    if (!record.error.text.empty()) {
        putBytes(index, CP_ERROR_TEXT, record.error.text);
        putInteger(index, CP_ERROR_STATUS, static_cast<std::uint32_t>(record.error.status));
        putInteger(index, CP_ERROR_INDEX, static_cast<std::uint32_t>(record.error.index));
    } else if (isRead) {
        putByteStringList(index, CP_OID_LIST, record.oids);
        putByteStringList(index, CP_VALUE_LIST, record.values);
        putIntegerList(index, CP_VALUE_LENGTH_LIST, record.lengths);
    }
}

} // namespace

CodeParaReply* makeReply(const ReplyRecord& record) {
    auto entries = std::make_unique<CodeParaIndex>();
    fill(*entries, record);
    auto reply = std::make_unique<CodeParaReply>();
    reply->entries = entries.release();
    ++g_liveReplies;
    return reply.release();
}

void releaseReply(CodeParaReply** holder) {
    if (holder == nullptr || *holder == nullptr) {
        return;
    }
    const std::unique_ptr<CodeParaReply> reply(*holder);
    const std::unique_ptr<CodeParaIndex> entries(reply->entries);
    *holder = nullptr;
    --g_liveReplies;
}

std::size_t liveReplies() {
    return g_liveReplies;
}

} // namespace onudesk::host
