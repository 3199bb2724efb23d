// SPDX-License-Identifier: MIT
//
// Decoding of read replies, and the notice that follows a write.
#pragma once

#include "bridge/session.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace onudesk {

// What a page learns from a read reply. Lists run in parallel, in the order of the item's objects;
// a missing list is empty. Values are whole byte strings.
struct ReadResult {
    bool success = false;   // false: no reply, or error status 2 (noSuchName) or -5 (time-out)
    bool completed = false; // CP_STATUS present and not zero
    std::string resultText; // name of the group that was read
    std::vector<std::string> oids;
    std::vector<std::string> values;
    std::vector<std::uint32_t> lengths; // bytes of each value as the agent returned it
};

// Reads everything and gives the reply back to the host before returning. A null reply is a
// failure.
[[nodiscard]] ReadResult readDecode(const Session& session, void* reply);

// The value at a position, empty when there are not that many.
[[nodiscard]] const std::string& valueAt(const ReadResult& result, std::size_t position);

// What follows the last "." of a returned OID: the row it belongs to. Empty without a ".".
[[nodiscard]] std::string rowIndexOf(const std::string& oid);

// Configuration data that the transfer mode "ConfigSet" collects.
struct TransferBuffer {
    std::array<char, 8192> data{};
    std::size_t byteCount = 0;
};
[[nodiscard]] const TransferBuffer& transferBuffer();

// Tells the operator how a write ended, in a box owned by `window`, and gives the reply back first.
// `mode` is empty, "ConfigSet" or "ConfigSetImport". True when a notice was shown or the reply was
// a partial one of a plain write.
bool writeResultNotice(const Session& session, std::uint32_t window, void* reply,
                       const std::string& mode);
// The last notice shown by this process.
[[nodiscard]] const std::string& LastNoticeText();

} // namespace onudesk
