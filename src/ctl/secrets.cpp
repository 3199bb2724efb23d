// SPDX-License-Identifier: MIT
#include "ctl/secrets.h"

#include "base/file.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <string_view>

#include <sys/stat.h>

namespace onudesk::ctl {

namespace {

using host::OnuTarget;

constexpr std::size_t kMaxSecretsBytes = 65536;

template <typename Value, std::size_t count>
bool choose(const Named<Value> (&names)[count], const std::string& text, Value& value) {
    const auto known = valueNamed(names, text);
    value = known.value_or(value);
    return known.has_value();
}

// Texts travel in fields of this size; a longer one would be cut to another secret.
bool takeText(std::string& field, const std::string& text) {
    field = text;
    return text.size() <= host::kMaxParamText;
}

// One setting by its name in the file. False when the value is none of its values.
struct Setting {
    const char* name;
    bool (*take)(OnuTarget& target, const std::string& text);
};

constexpr std::array kSettings = {
    Setting{"read-community",
            [](OnuTarget& t, const std::string& v) { return takeText(t.readCommunity, v); }},
    Setting{"write-community",
            [](OnuTarget& t, const std::string& v) { return takeText(t.writeCommunity, v); }},
    Setting{"v3-user", [](OnuTarget& t, const std::string& v) { return takeText(t.v3.user, v); }},
    Setting{"v3-context",
            [](OnuTarget& t, const std::string& v) { return takeText(t.v3.contextName, v); }},
    Setting{
        "v3-level",
        [](OnuTarget& t, const std::string& v) { return choose(kSecurityLevels, v, t.v3.level); }},
    Setting{"v3-auth-protocol",
            [](OnuTarget& t, const std::string& v) {
                return choose(kAuthProtocols, v, t.v3.authProtocol);
            }},
    Setting{"v3-auth-passphrase",
            [](OnuTarget& t, const std::string& v) { return takeText(t.v3.authPassphrase, v); }},
    Setting{"v3-priv-protocol",
            [](OnuTarget& t, const std::string& v) {
                return choose(kPrivProtocols, v, t.v3.privProtocol);
            }},
    Setting{"v3-priv-passphrase",
            [](OnuTarget& t, const std::string& v) { return takeText(t.v3.privPassphrase, v); }},
};

std::string environmentName(const std::string& setting) {
    std::string name = "ONUDESK_" + setting;
    std::ranges::transform(name, name.begin(), [](unsigned char c) {
        return c == '-' ? '_' : static_cast<char>(std::toupper(c));
    });
    return name;
}

// The value is never repeated in an error: it may be a secret that slipped into the wrong line.
Result<void> takeLine(const std::string& line, OnuTarget& target) {
    const auto equals = line.find('=');
    const std::string name = line.substr(0, equals);
    const auto* const setting =
        std::ranges::find_if(kSettings, [&](const Setting& known) { return name == known.name; });
    if (equals == std::string::npos || setting == kSettings.end()) {
        return Error{"no known NAME=VALUE"};
    }
    if (!setting->take(target, line.substr(equals + 1))) {
        return Error{"unknown or too long value of " + name};
    }
    return {};
}

} // namespace

Result<void> readSecretsFile(const std::filesystem::path& file, OnuTarget& target) {
    struct stat status {};
    if (::stat(file.c_str(), &status) == 0 && (status.st_mode & (S_IRWXG | S_IRWXO)) != 0) {
        return Error{file.string() + ": others can read it; chmod 600 it first"};
    }
    const Result<std::string> text = readFile(file, kMaxSecretsBytes);
    if (!text) {
        return Error{text.error()};
    }
    for (const Line& each : lines(*text)) {
        const std::string line(withoutReturn(each.text));
        if (line.empty() || line.starts_with('#')) {
            continue;
        }
        if (const Result<void> taken = takeLine(line, target); !taken) {
            return Error{file.string() + ":" + std::to_string(each.number) + ": " + taken.error()};
        }
    }
    return {};
}

Result<void> readSecretsEnvironment(OnuTarget& target) {
    for (const Setting& setting : kSettings) {
        const std::string name = environmentName(setting.name);
        const char* value = std::getenv(name.c_str());
        if (value != nullptr && !setting.take(target, value)) {
            return Error{name + ": unknown or too long value"};
        }
    }
    return {};
}

} // namespace onudesk::ctl
