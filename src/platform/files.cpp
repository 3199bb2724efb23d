// SPDX-License-Identifier: MIT
#include "platform/files.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <system_error>
#include <utility>

#include <dlfcn.h>

namespace onudesk::platform {

namespace {

namespace fs = std::filesystem;

std::string g_hostFileName;

struct Language {
    std::uint32_t localeId;
    std::string_view abbreviation;
};

constexpr std::array kLanguages = {
    Language{1025, "ARA"}, Language{1026, "BGR"}, Language{1028, "CHT"}, Language{1029, "CSY"},
    Language{1030, "DAN"}, Language{1031, "DEU"}, Language{1032, "ELL"}, Language{1033, "ENU"},
    Language{1034, "ESP"}, Language{1035, "FIN"}, Language{1036, "FRA"}, Language{1037, "HEB"},
    Language{1038, "HUN"}, Language{1040, "ITA"}, Language{1041, "JPN"}, Language{1042, "KOR"},
    Language{1043, "NLD"}, Language{1044, "NOR"}, Language{1045, "PLK"}, Language{1046, "PTB"},
    Language{1048, "ROM"}, Language{1049, "RUS"}, Language{1050, "HRV"}, Language{1051, "SKY"},
    Language{1053, "SVE"}, Language{1054, "THA"}, Language{1055, "TRK"}, Language{1057, "IND"},
    Language{1058, "UKR"}, Language{1060, "SLV"}, Language{1061, "ETI"}, Language{1062, "LVI"},
    Language{1063, "LTH"}, Language{1066, "VIT"}, Language{2052, "CHS"}, Language{2055, "DES"},
    Language{2057, "ENG"}, Language{2058, "ESM"}, Language{2070, "PTG"}, Language{3076, "ZHH"},
    Language{3079, "DEA"}, Language{3081, "ENA"}, Language{3082, "ESN"}, Language{3084, "FRC"},
    Language{4100, "ZHI"}, Language{4105, "ENC"}, Language{5124, "ZHM"},
};

std::optional<fs::path> findComponent(const fs::path& directory, const std::string& name) {
    std::error_code error;
    if (fs::exists(directory / name, error)) {
        return directory / name;
    }
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end;
         entry.increment(error)) {
        if (sameIgnoringCase(entry->path().filename().string(), name)) {
            return entry->path();
        }
    }
    return std::nullopt;
}

} // namespace

bool sameIgnoringCase(std::string_view left, std::string_view right) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return std::ranges::equal(left, right, {}, lower, lower);
}

std::string moduleFileName(const void* address) {
    Dl_info info{};
    if (::dladdr(address, &info) == 0 || info.dli_fname == nullptr) {
        return {};
    }
    std::error_code error;
    const fs::path path = fs::absolute(info.dli_fname, error);
    return error ? std::string(info.dli_fname) : path.string();
}

std::string hostFileName() {
    if (!g_hostFileName.empty()) {
        return g_hostFileName;
    }
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).string();
}

void setHostFileName(std::string path) {
    g_hostFileName = std::move(path);
}

std::string localeAbbreviation(std::uint32_t localeId) {
    const auto* const found = std::ranges::find(kLanguages, localeId, &Language::localeId);
    return found == std::end(kLanguages) ? std::string() : std::string(found->abbreviation);
}

std::optional<fs::path> resolveClientPath(const std::string& clientPath) {
    std::string text = clientPath;
    std::ranges::replace(text, '\\', '/');
    const fs::path wanted(text);
    std::error_code error;
    fs::path resolved = wanted.is_absolute() ? wanted.root_path() : fs::current_path(error);
    if (error) {
        return std::nullopt;
    }
    for (const fs::path& component : wanted.relative_path()) {
        if (component.empty() || component == ".") {
            continue;
        }
        if (component == "..") {
            resolved = resolved.parent_path();
            continue;
        }
        const auto found = findComponent(resolved, component.string());
        if (!found) {
            return std::nullopt;
        }
        resolved = *found;
    }
    return resolved;
}

} // namespace onudesk::platform
