// SPDX-License-Identifier: MIT
#include "base/file.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <system_error>

namespace onudesk {

Result<std::string> readFile(const std::filesystem::path& path, std::size_t limit) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        return Error{path.string() + ": is a directory"};
    }
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        return Error{path.string() + ": " + std::generic_category().message(errno)};
    }
    std::string bytes;
    std::array<char, 65536> block{};
    while (file.read(block.data(), block.size()) || file.gcount() > 0) {
        bytes.append(block.data(), static_cast<std::size_t>(file.gcount()));
        if (bytes.size() > limit) {
            return Error{path.string() + ": larger than " + std::to_string(limit) + " bytes"};
        }
    }
    if (file.bad()) {
        return Error{path.string() + ": cannot be read"};
    }
    return bytes;
}

} // namespace onudesk
