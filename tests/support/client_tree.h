// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace onudesk::test {

// A directory of its own, gone with the object.
class TemporaryDirectory {
public:
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    // Creates the file, with its directories, and returns its path.
    std::filesystem::path write(const std::string& name, std::string_view bytes) const;

private:
    std::filesystem::path path_;
};

// Makes `root` the client tree of the process: current directory root/bin (created when missing),
// host program root/bin/onudesk. The previous ones come back with the object's end.
class ClientTree {
public:
    explicit ClientTree(const std::filesystem::path& root);
    ~ClientTree();
    ClientTree(const ClientTree&) = delete;
    ClientTree& operator=(const ClientTree&) = delete;

private:
    std::filesystem::path before_;
};

} // namespace onudesk::test
