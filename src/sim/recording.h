// SPDX-License-Identifier: MIT
//
// Recordings of an agent's objects: text files with one "OID|tag|value" a line.
#pragma once

#include "base/result.h"
#include "snmp/rules/agent_state.h"

#include <cstddef>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace onudesk::sim {

inline constexpr std::size_t kMaxRecordingBytes = std::size_t{64} * 1024 * 1024;

// What a file looked like, as far as the values do not tell it.
struct RecordingLayout {
    struct Original {
        std::string before; // comments and blank lines before the value's line, each with its end
        std::string line;   // the line itself when it is not spelt as recordedText() would
    };
    std::map<Oid, Original> lines; // only where there is something to keep
    std::string after;             // comments and blank lines behind the last value
};

struct Recording {
    Values values;
    RecordingLayout layout;
};

// Lines may stand in any order; blank lines and lines that begin with "#" are comments; a carriage
// return at a line's end is dropped. Every OID is below 1.3.6.1 and given once. Errors are
// "name:line: reason".
[[nodiscard]] Result<Recording> parseRecording(std::string_view bytes, const std::string& name);
// The same for a file of at most 64 MB.
[[nodiscard]] Result<Recording> loadRecording(const std::filesystem::path& path);

// The text of a recording in the order of the OIDs. A value that stands as it was read keeps its
// line and the comments before it, so an unchanged sorted file comes out byte for byte; comments of
// values that are gone are dropped.
[[nodiscard]] std::string formatRecording(const Values& values, const RecordingLayout& layout);

// Writes the file as a whole or, with an error that names it, not at all.
[[nodiscard]] Result<void> saveFile(const std::filesystem::path& path, std::string_view bytes);

} // namespace onudesk::sim
