// SPDX-License-Identifier: MIT
#include "env/client_paths.h"

#include "platform/files.h"

#include <string_view>

namespace onudesk {

namespace {

constexpr std::string_view kSeparators = "/\\";

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

} // namespace onudesk
