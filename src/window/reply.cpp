// SPDX-License-Identifier: MIT
#include "window/reply.h"

#include "env/language_module.h"
#include "env/message_ids.h"
#include "onudesk/messages.h"
#include "platform/prompter.h"

#include <algorithm>
#include <cstdint>

namespace onudesk {

namespace {

constexpr const char* kConfigSet = "ConfigSet";
constexpr const char* kConfigSetImport = "ConfigSetImport";
constexpr std::size_t kChunkBytes = 3 * 1024;

constexpr std::uint32_t kStatusFailed = 0;
constexpr std::uint32_t kStatusPartial = 2;

TransferBuffer g_transfer;
std::string g_lastNotice;

void storeChunk(const CodeParaReader& reader) {
    const std::size_t number = reader.integer(CP_CHUNK_NUMBER).value_or(0);
    if (number == 0) {
        g_transfer = {};
    }
    const std::size_t offset = std::min(number * kChunkBytes, g_transfer.data.size());
    const std::size_t room = g_transfer.data.size() - offset;
    const std::size_t wanted = reader.integer(CP_CHUNK_LENGTH).value_or(0);
    const std::string chunk =
        reader.bytes(CP_CHUNK_DATA, std::min(wanted, room)).value_or(std::string());
    std::ranges::copy(chunk, g_transfer.data.begin() + static_cast<std::ptrdiff_t>(offset));
    g_transfer.byteCount += chunk.size();
}

std::string successNotice(const std::string& mode) {
    std::string notice = messageText(message::succeeded) + messageText(message::subject);
    if (mode == kConfigSetImport) {
        notice += "\n" + messageText(message::importRemark);
    }
    return notice;
}

std::string failureNotice(const std::string& mode, const std::string& errorText) {
    const bool namesMode = !mode.empty() && mode != kConfigSetImport;
    return messageText(message::failed) + messageText(message::subject) + "\n" +
           (namesMode ? mode : errorText);
}

} // namespace

ReadResult readDecode(const Session& session, void* reply) {
    ReadResult result;
    BorrowedReply borrowed(session, reply);
    if (!borrowed) {
        return result;
    }
    const CodeParaReader reader = borrowed.reader();
    result.success = true;
    if (reader.has(CP_ERROR_TEXT)) {
        const auto status = static_cast<std::int32_t>(reader.integer(CP_ERROR_STATUS).value_or(0));
        result.success = status != error_status::noSuchName && status != error_status::timeout;
    }
    result.resultText = reader.text(CP_RESULT_TEXT).value_or(std::string());
    result.oids = reader.byteStrings(CP_OID_LIST).value_or(std::vector<std::string>());
    result.values = reader.byteStrings(CP_VALUE_LIST).value_or(std::vector<std::string>());
    result.lengths = reader.integers(CP_VALUE_LENGTH_LIST).value_or(std::vector<std::uint32_t>());
    result.completed = reader.integer(CP_STATUS).value_or(0) != 0;
    return result;
}

const std::string& valueAt(const ReadResult& result, std::size_t position) {
    static const std::string empty;
    return position < result.values.size() ? result.values[position] : empty;
}

std::string rowIndexOf(const std::string& oid) {
    const auto dot = oid.rfind('.');
    return dot == std::string::npos ? std::string() : oid.substr(dot + 1);
}

const TransferBuffer& transferBuffer() {
    return g_transfer;
}

bool writeResultNotice(const Session& session, std::uint32_t window, void* reply,
                       const std::string& mode) {
    BorrowedReply borrowed(session, reply);
    if (!borrowed) {
        return false;
    }
    const CodeParaReader reader = borrowed.reader();
    const std::uint32_t status = reader.integer(CP_STATUS).value_or(kStatusFailed);
    std::string notice;
    if (status == kStatusFailed) {
        notice = failureNotice(mode, reader.text(CP_ERROR_TEXT).value_or(std::string()));
    } else {
        if (mode == kConfigSet) {
            storeChunk(reader);
            if (status == kStatusPartial) {
                return false;
            }
        } else if (status == kStatusPartial) {
            return true;
        }
        notice = successNotice(mode);
    }
    borrowed.giveBack();
    if (notice.empty()) {
        return false;
    }
    platform::prompt({.text = notice,
                      .caption = messageText(message::noticeCaption),
                      .icon = status == kStatusFailed ? platform::PromptIcon::warning
                                                      : platform::PromptIcon::information,
                      .owner = window});
    g_lastNotice = notice;
    return true;
}

const std::string& LastNoticeText() {
    return g_lastNotice;
}

} // namespace onudesk
