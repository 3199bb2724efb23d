// SPDX-License-Identifier: MIT
#include "sim/access.h"

#include "base/file.h"
#include "base/text.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace onudesk::sim {

namespace {

constexpr std::string_view kBetweenWords = " \t\r";
constexpr const char* kUserForm = "expected user NAME noAuthNoPriv|authNoPriv|authPriv "
                                  "[MD5|SHA AUTHPHRASE [DES PRIVPHRASE]] [read|write]";

using Words = std::vector<std::string>;

std::optional<Words> splitWords(std::string_view line) {
    Words words;
    while (true) {
        line.remove_prefix(std::min(line.find_first_not_of(kBetweenWords), line.size()));
        if (line.empty()) {
            return words;
        }
        const bool quoted = line.front() == '"';
        const auto end = quoted ? line.find('"', 1) : line.find_first_of(kBetweenWords);
        if (quoted && end == std::string_view::npos) {
            return std::nullopt;
        }
        words.emplace_back(quoted ? line.substr(1, end - 1) : line.substr(0, end));
        line.remove_prefix(std::min(quoted ? end + 1 : end, line.size()));
    }
}

// Takes a trailing "read" or "write" off; reads when there is none.
bool takeWrite(Words& words, std::size_t shortest) {
    if (words.size() <= shortest || (words.back() != "read" && words.back() != "write")) {
        return false;
    }
    const bool write = words.back() == "write";
    words.pop_back();
    return write;
}

Result<void> addCommunity(Access& access, const Words& words) {
    if (words.size() != 3 || (words[1] != "read" && words[1] != "write")) {
        return Error{"expected community read|write NAME"};
    }
    if (words[2].empty()) {
        return Error{"a community has a name"};
    }
    if (!access.communities.emplace(words[2], words[1] == "write").second) {
        return Error{"community \"" + words[2] + "\" is given twice"};
    }
    return {};
}

Result<void> readProtection(User& user, const Words& words) {
    const auto digest = valueNamed(kAuthProtocols, words[3]);
    if (!digest) {
        return Error{"unknown digest \"" + words[3] + "\", expected MD5 or SHA"};
    }
    user.digest = *digest;
    user.authPhrase = words[4];
    if (words.size() > 5) {
        if (!valueNamed(kPrivProtocols, words[5])) {
            return Error{"unknown cipher \"" + words[5] + "\", expected DES"};
        }
        user.privPhrase = words[6];
    }
    if (user.authPhrase.size() < kMinPassphraseBytes ||
        (words.size() > 5 && user.privPhrase.size() < kMinPassphraseBytes)) {
        return Error{"a pass phrase has at least 8 characters"};
    }
    return {};
}

// How many words a user's line has, without read or write.
std::size_t wordsFor(SecurityLevel level) {
    return level == SecurityLevel::authPriv ? 7 : level == SecurityLevel::authNoPriv ? 5 : 3;
}

Result<void> addUser(Access& access, Words words) {
    if (words.size() < 3) {
        return Error{kUserForm};
    }
    const auto level = valueNamed(kSecurityLevels, words[2]);
    if (!level) {
        return Error{"unknown security level \"" + words[2] + "\""};
    }
    User user;
    user.level = *level;
    user.mayWrite = takeWrite(words, wordsFor(*level));
    if (words.size() != wordsFor(*level)) {
        return Error{kUserForm};
    }
    if (words[1].empty() || words[1].size() > kMaxUserBytes) {
        return Error{"a user name has 1 to 32 bytes"};
    }
    if (*level != SecurityLevel::noAuthNoPriv) {
        if (Result<void> read = readProtection(user, words); !read) {
            return read;
        }
    }
    if (!access.users.emplace(words[1], std::move(user)).second) {
        return Error{"user \"" + words[1] + "\" is given twice"};
    }
    return {};
}

Result<void> addLine(Access& access, std::string_view line) {
    std::optional<Words> words = splitWords(line);
    if (!words) {
        return Error{"a quoted word does not end"};
    }
    if (words->empty() || words->front().starts_with('#')) {
        return {};
    }
    if (words->front() == "community") {
        return addCommunity(access, *words);
    }
    if (words->front() == "user") {
        return addUser(access, std::move(*words));
    }
    return Error{"expected community or user"};
}

} // namespace

bool Access::allowsCommunity(const std::string& name, bool write) const {
    const auto found = communities.find(name);
    return found != communities.end() && (found->second || !write);
}

bool Access::allowsUser(const std::string& name, SecurityLevel level, bool write) const {
    const auto found = users.find(name);
    return found != users.end() && level >= found->second.level &&
           (found->second.mayWrite || !write);
}

Access defaultAccess() {
    return {.communities = {{"public", false}, {"private", true}}};
}

Result<Access> parseAccess(std::string_view bytes, const std::string& name) {
    Access access;
    for (const Line& line : lines(bytes)) {
        if (const Result<void> added = addLine(access, line.text); !added) {
            return Error{name + ":" + std::to_string(line.number) + ": " + added.error()};
        }
    }
    return access;
}

Result<Access> loadAccess(const std::filesystem::path& path) {
    const Result<std::string> bytes = readFile(path);
    if (!bytes) {
        return Error{bytes.error()};
    }
    return parseAccess(*bytes, path.string());
}

} // namespace onudesk::sim
