// SPDX-License-Identifier: MIT
//
// What every host program does around the window: find the client tree, run the SNMP engine, load
// the plug-in and show it on one ONU.
//
//     Result<std::unique_ptr<ClientHost>> host = ClientHost::open(clientDirectory);
//     (*host)->show(*application, target);
#pragma once

#include "base/result.h"
#include "host/access.h"
#include "host/agent_launcher.h"
#include "host/snmp_engine.h"
#include "onudesk/holder_config_param.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

class QApplication;

namespace onudesk::host {

// One ONU and the way to its agent. Numbers are -1 when the level is absent.
struct OnuTarget {
    std::string agentAddress; // dotted IPv4 text
    std::uint16_t port = 161;
    SnmpVersion version = SnmpVersion::v2c;
    std::string readCommunity{};
    std::string writeCommunity{};
    V3Access v3{};
    std::int32_t oltNumber = -1;
    std::int32_t ponNumber = -1;
    std::int32_t onuNumber = -1;
    std::int32_t subIndex = -1;
    std::int32_t subUnitItemType = 0; // shown alone when subIndex is present
    std::string menuFileName{};
    std::string rootCaption{};
    std::uint32_t localeId = 1033;
};

// What a text of the block holds, in bytes; longer ones are cut.
inline constexpr std::size_t kMaxParamText = 100;

// The block for the window. Texts are cut at their fields' limits.
[[nodiscard]] HolderConfigParam makeParam(const OnuTarget& target);

// Reads "OLT.PON.ONU" or a shorter form of it ("1.2", "1") into the target.
[[nodiscard]] bool parseOnuIndex(const std::string& text, OnuTarget& target);
// Reads "HOST" or "HOST:PORT"; the host is a dotted IPv4 address or a name that resolves to one.
[[nodiscard]] Result<void> parseAgent(const std::string& text, OnuTarget& target);

// The simulator and demonstration files of a client tree.
[[nodiscard]] LaunchOptions demoAgent(const std::filesystem::path& clientDirectory);
// The communities and the SNMPv3 user that the demonstration agent takes; everybody knows them.
void useDemoAccess(OnuTarget& target);

// The client tree of a directory that has bin, CONF/snmp and Help below it: the running program's
// own one, unless another is named.
[[nodiscard]] std::filesystem::path ownClientDirectory();

// One per process. The current directory of the process becomes the client's bin directory, where
// the window's relative paths start.
class ClientHost {
public:
    // Loads the catalogue and the plug-in. Fails, naming the file, when either cannot be loaded.
    [[nodiscard]] static Result<std::unique_ptr<ClientHost>>
    open(const std::filesystem::path& clientDirectory, const EngineOptions& options = {});
    ~ClientHost();
    ClientHost(const ClientHost&) = delete;
    ClientHost& operator=(const ClientHost&) = delete;

    [[nodiscard]] SnmpEngine& engine() { return *engine_; }
    [[nodiscard]] const std::filesystem::path& directory() const { return directory_; }
    // The OIDs, without instance, of the objects whose values are secrets.
    [[nodiscard]] const std::vector<std::string>& secretObjects() const { return secretObjects_; }

    // Shows the window on the calling thread and returns after it closed.
    void show(QApplication& application, const OnuTarget& target);
    // Nothing queued, asked or waiting to be shown; a handler that waits in a dialog of its own
    // does not count. User-interface thread.
    [[nodiscard]] bool quiet() const;

private:
    ClientHost() = default;

    struct CloseLibrary {
        void operator()(void* library) const;
    };

    std::filesystem::path directory_;
    std::vector<std::string> secretObjects_;
    std::unique_ptr<SnmpEngine> engine_;
    std::unique_ptr<void, CloseLibrary> plugin_;
};

} // namespace onudesk::host
