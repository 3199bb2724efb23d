// SPDX-License-Identifier: MIT
#include "sim/recording.h"

#include "base/file.h"
#include "base/text.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace onudesk::sim {

namespace {

struct Entry {
    Oid oid;
    Value value;
};

std::string formatEntry(const Oid& oid, const Value& value) {
    return oid.text() + "|" + recordedText(value);
}

Result<Entry> parseEntry(std::string_view line) {
    const auto first = line.find('|');
    const auto second = first == std::string_view::npos ? first : line.find('|', first + 1);
    if (second == std::string_view::npos) {
        return Error{"expected OID|tag|value"};
    }
    const std::string_view name = line.substr(0, first);
    std::optional<Oid> oid = Oid::parseWhole(name);
    if (!oid) {
        return Error{"bad OID \"" + std::string(name) + "\""};
    }
    if (!oid->startsWith(Oid{1, 3, 6, 1}) || oid->size() == 4) {
        return Error{"OID " + oid->text() + " is not below 1.3.6.1"};
    }
    Result<Value> value =
        parseRecorded(line.substr(first + 1, second - first - 1), line.substr(second + 1));
    if (!value) {
        return Error{value.error()};
    }
    return Entry{std::move(*oid), std::move(value).value()};
}

bool isComment(std::string_view line) {
    return line.starts_with('#') || line.find_first_not_of(" \t\r") == std::string_view::npos;
}

class FileDescriptor {
public:
    explicit FileDescriptor(int number) : number_(number) {}
    ~FileDescriptor() { static_cast<void>(close()); }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    [[nodiscard]] bool valid() const { return number_ >= 0; }
    bool write(std::string_view bytes) {
        while (!bytes.empty()) {
            const ssize_t written = ::write(number_, bytes.data(), bytes.size());
            if (written < 0 && errno != EINTR) {
                return false;
            }
            bytes.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
        }
        return true;
    }
    bool sync() { return ::fsync(number_) == 0; }
    bool close() { return !valid() || ::close(std::exchange(number_, -1)) == 0; }

private:
    int number_;
};

} // namespace

Result<Recording> parseRecording(std::string_view bytes, const std::string& name) {
    Recording recording;
    std::string comments;
    for (const auto& [number, line] : lines(bytes)) {
        if (isComment(line)) {
            comments += std::string(line) + "\n";
            continue;
        }
        Result<Entry> entry = parseEntry(withoutReturn(line));
        const std::string place = name + ":" + std::to_string(number) + ": ";
        if (!entry) {
            return Error{place + entry.error()};
        }
        const bool plain = line == formatEntry(entry->oid, entry->value);
        if (!plain || !comments.empty()) {
            recording.layout.lines[entry->oid] = {std::exchange(comments, {}),
                                                  plain ? std::string() : std::string(line)};
        }
        const auto [at, added] =
            recording.values.emplace(std::move(entry->oid), std::move(entry->value));
        if (!added) {
            return Error{place + "OID " + at->first.text() + " is given twice"};
        }
    }
    recording.layout.after = std::move(comments);
    return recording;
}

Result<Recording> loadRecording(const std::filesystem::path& path) {
    const Result<std::string> bytes = readFile(path, kMaxRecordingBytes);
    if (!bytes) {
        return Error{bytes.error()};
    }
    return parseRecording(*bytes, path.string());
}

std::string formatRecording(const Values& values, const RecordingLayout& layout) {
    std::string text;
    for (const auto& [oid, value] : values) {
        std::string line = formatEntry(oid, value);
        if (const auto original = layout.lines.find(oid); original != layout.lines.end()) {
            text += original->second.before;
            const auto entry = parseEntry(withoutReturn(original->second.line));
            if (entry && entry->value == value) {
                line = original->second.line;
            }
        }
        text += line + "\n";
    }
    return text + layout.after;
}

Result<void> saveFile(const std::filesystem::path& path, std::string_view bytes) {
    const std::string temporary = path.string() + ".new";
    FileDescriptor file(::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644));
    const bool opened = file.valid();
    if (opened && file.write(bytes) && file.sync() && file.close() &&
        ::rename(temporary.c_str(), path.c_str()) == 0) {
        return {};
    }
    const Error error{path.string() + ": " + std::generic_category().message(errno)};
    if (opened) {
        ::unlink(temporary.c_str());
    }
    return error;
}

} // namespace onudesk::sim
