// SPDX-License-Identifier: MIT
#include "env/help_index.h"

#include "base/file.h"
#include "base/text.h"
#include "env/client_paths.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/prompter.h"

#include <optional>
#include <string_view>

namespace onudesk {

namespace {

constexpr std::size_t kMaxIndexLine = 1023;

HelpIndex& helpIndex() {
    static HelpIndex index;
    return index;
}

struct IndexLine {
    std::string topic;
    std::string key;
};

std::optional<IndexLine> parseIndexLine(std::string_view line) {
    line = withoutReturn(line.substr(0, kMaxIndexLine));
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

std::string helpFileName(const std::string& name) {
    return clientRoot() + "\\Help\\" + name;
}

void loadHelpIndex(HelpIndex& index, const std::filesystem::path& path,
                   const std::function<void(const std::string& key)>& onDuplicate) {
    const Result<std::string> text = readFile(path);
    if (!text) {
        return;
    }
    for (const Line& each : lines(*text)) {
        if (const auto line = parseIndexLine(each.text);
            line && !index.try_emplace(line->key, line->topic).second) {
            onDuplicate(line->key);
        }
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
