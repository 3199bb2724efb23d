// SPDX-License-Identifier: MIT
#include "env/client_paths.h"

#include "env/xml_file.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/prompter.h"

#include <algorithm>
#include <string_view>

namespace onudesk {

namespace {

constexpr std::size_t kMaxIndexLine = 1023;
constexpr std::string_view kSeparators = "/\\";

HelpIndex& helpIndex() {
    static HelpIndex index;
    return index;
}

struct IndexLine {
    std::string topic;
    std::string key;
};

std::optional<IndexLine> parseIndexLine(std::string_view line) {
    line = line.substr(0, kMaxIndexLine);
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    const auto equals = line.find('=');
    if (equals == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view rest = line.substr(equals + 1);
    const auto tab = rest.find('\t');
    const auto blank = rest.find(' ');
    if (tab == std::string_view::npos || blank == std::string_view::npos) {
        return std::nullopt;
    }
    return IndexLine{std::string(rest.substr(0, tab)), std::string(rest.substr(blank + 1))};
}

} // namespace

std::string clientRoot(const std::string& programPath) {
    const auto last = programPath.find_last_of(kSeparators);
    if (last == std::string::npos) {
        return programPath;
    }
    const auto before =
        last == 0 ? std::string::npos : programPath.find_last_of(kSeparators, last - 1);
    return programPath.substr(0, before == std::string::npos ? last : before);
}

std::string clientRoot() {
    return clientRoot(platform::hostFileName());
}

std::string helpFileName(const std::string& name) {
    return clientRoot() + "\\Help\\" + name;
}

void loadHelpIndex(HelpIndex& index, const std::filesystem::path& path,
                   const std::function<void(const std::string& key)>& onDuplicate) {
    const Result<std::string> text = readFile(path);
    if (!text) {
        return;
    }
    for (std::string_view rest = *text; !rest.empty();) {
        const auto end = std::min(rest.find('\n'), rest.size());
        if (const auto line = parseIndexLine(rest.substr(0, end));
            line && !index.try_emplace(line->key, line->topic).second) {
            onDuplicate(line->key);
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

const HelpIndex& currentHelpIndex() {
    return helpIndex();
}

void loadHelpIndexOnce(const std::string& name) {
    if (!helpIndex().empty()) {
        return;
    }
    if (const auto path = platform::resolveClientPath(helpFileName(name + ".txt"))) {
        loadHelpIndex(helpIndex(), *path,
                      [](const std::string& key) { platform::prompt({.text = key}); });
    }
}

void clearHelpIndex() {
    helpIndex().clear();
}

void openPageHelp(const std::string& key, const HelpIndex& index, const std::string& name) {
    if (const auto topic = index.find(key); topic != index.end()) {
        platform::openHelp(helpFileName(name + ".chm"), topic->second);
    }
}

} // namespace onudesk
