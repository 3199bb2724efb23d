// SPDX-License-Identifier: MIT
//
// The inventory on disk: one JSON file (RFC 8259) that only its owner can read, for it holds
// communities and pass phrases.
//
//     {"format":1,
//      "onus":[{"name","agent","onu","menu","locale","profile"}],
//      "profiles":[{"name","version","readCommunity","writeCommunity","user","context","level",
//                   "authProtocol","authPassphrase","privProtocol","privPassphrase"}]}
#pragma once

#include "base/result.h"
#include "desk/inventory.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace onudesk::desk {

// The file as text, entries in the order of their names.
[[nodiscard]] std::string formatInventory(const Inventory& inventory);
// Every entry must pass the inventory's checks, and every key be known. Errors begin with `name`
// and tell the entry, such as "inventory.json: onus[2]: Agent is missing".
[[nodiscard]] Result<Inventory> parseInventory(std::string_view bytes, const std::string& name);

// onudesk/inventory.json in the user's configuration directory.
[[nodiscard]] std::filesystem::path defaultInventoryFile();

class InventoryFile {
public:
    explicit InventoryFile(const std::filesystem::path& path);

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

    // A file that does not exist gives an empty inventory. Fails, naming the file, on files over
    // 8 MB and on files that cannot be read or are not right.
    [[nodiscard]] Result<Inventory> load();

    struct Saved {
        // Where the file went that stood in the way: one that load() refused, or that another
        // program wrote since. Such a file is set aside as FILE.kept, FILE.kept.2, … first.
        std::optional<std::filesystem::path> kept{};
    };
    // Writes the file (mode 0600) and the directories it lacks (mode 0700). The new file appears as
    // a whole; on an error, which names the file, the old one stays.
    [[nodiscard]] Result<Saved> save(const Inventory& inventory);

private:
    [[nodiscard]] bool holdsKnownBytes() const;

    std::filesystem::path path_;
    std::optional<std::string> known_; // what the file held when last read or written
};

} // namespace onudesk::desk
