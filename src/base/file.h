// SPDX-License-Identifier: MIT
#pragma once

#include "base/result.h"

#include <cstddef>
#include <filesystem>
#include <string>

namespace onudesk {

inline constexpr std::size_t kMaxTextFileBytes = std::size_t{8} * 1024 * 1024;

// The whole file; fails when it cannot be read or is larger than `limit` bytes.
[[nodiscard]] Result<std::string> readFile(const std::filesystem::path& path,
                                           std::size_t limit = kMaxTextFileBytes);

} // namespace onudesk
