// SPDX-License-Identifier: MIT
#include "support/client_tree.h"

#include "platform/files.h"

#include <cstdlib>
#include <fstream>
#include <system_error>

namespace onudesk::test {

namespace fs = std::filesystem;

TemporaryDirectory::TemporaryDirectory() {
    std::string name = (fs::temp_directory_path() / "onudesk-test-XXXXXX").string();
    path_ = ::mkdtemp(name.data());
}

TemporaryDirectory::~TemporaryDirectory() {
    std::error_code error;
    fs::remove_all(path_, error);
}

fs::path TemporaryDirectory::write(const std::string& name, std::string_view bytes) const {
    const fs::path file = path_ / name;
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    return file;
}

ClientTree::ClientTree(const fs::path& root) : before_(fs::current_path()) {
    fs::create_directories(root / "bin");
    fs::current_path(root / "bin");
    platform::setHostFileName((root / "bin" / "onudesk").string());
}

ClientTree::~ClientTree() {
    platform::setHostFileName({});
    fs::current_path(before_);
}

} // namespace onudesk::test
