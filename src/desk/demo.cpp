// SPDX-License-Identifier: MIT
#include "desk/demo.h"

#include "base/file.h"
#include "base/hexadecimal.h"
#include "base/text.h"
#include "host/client_host.h"

#include <string_view>
#include <utility>

namespace onudesk::desk {

namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kBasicItem = 606;
constexpr std::string_view kNameObject = "onuName";
constexpr std::size_t kMaxRecordingBytes = std::size_t{64} * 1024 * 1024;
constexpr const char* kProfile = "demo";

// A line "OID|tag|value" of a recording; the simulator checks what stands in it.
struct Recorded {
    std::string_view oid;
    std::string_view tag;
    std::string_view value;
};

std::optional<Recorded> splitLine(std::string_view line) {
    const auto first = line.find('|');
    const auto second = first == std::string_view::npos ? first : line.find('|', first + 1);
    if (second == std::string_view::npos || line.starts_with('#')) {
        return std::nullopt;
    }
    return Recorded{line.substr(0, first), line.substr(first + 1, second - first - 1),
                    line.substr(second + 1)};
}

std::string nameIn(const Recorded& line) {
    const std::string name = line.tag == "4x" ? bytesFromHex(line.value).value_or(std::string())
                                              : std::string(line.value);
    return isLine(name) ? name : std::string();
}

// The "OLT.PON.ONU" behind the object's OID, if there is one.
std::optional<std::string> onuOf(std::string_view oid, const ObjectSchema& object) {
    const std::string& base = object.object.oidstr;
    if (!oid.starts_with(base) || oid.size() <= base.size() || oid[base.size()] != '.') {
        return std::nullopt;
    }
    std::string index(oid.substr(base.size() + 1));
    host::OnuTarget target;
    return host::parseOnuIndex(index, target) && target.onuNumber >= 0
               ? std::optional(std::move(index))
               : std::nullopt;
}

void note(const Recorded& line, const ModuleSchema& module, RecordedOnus& onus) {
    for (const GroupSchema& group : module) {
        for (const ObjectSchema& object : group.objects) {
            const std::optional<std::string> onu = onuOf(line.oid, object);
            if (onu && group.read == ReadMode::scalar) {
                std::string& name = onus[*onu];
                name = object.object.name == kNameObject ? nameIn(line) : name;
            }
        }
    }
}

} // namespace

Result<RecordedOnus> recordedOnus(const CatalogueSchema& catalogue, const fs::path& recording) {
    const auto module = catalogue.find(kBasicItem);
    const Result<std::string> text = readFile(recording, kMaxRecordingBytes);
    if (!text) {
        return Error{text.error()};
    }
    RecordedOnus onus;
    if (module == catalogue.end()) {
        return onus;
    }
    for (const Line& each : lines(*text)) {
        if (const std::optional<Recorded> line = splitLine(withoutReturn(each.text))) {
            note(*line, module->second, onus);
        }
    }
    return onus;
}

Inventory demoInventory(const RecordedOnus& onus, std::uint16_t port) {
    Inventory inventory;
    static_cast<void>(inventory.putProfile(
        {.name = kProfile, .readCommunity = "public", .writeCommunity = "private"}));
    for (const auto& [index, name] : onus) {
        OnuEntry onu{.name = name,
                     .agent = "127.0.0.1:" + std::to_string(port),
                     .onu = index,
                     .menuFile = kGeneralMenu,
                     .profile = kProfile};
        // A name that is missing, taken or too long gives way to one that is none of these.
        if (!inventory.putOnu(onu)) {
            onu.name = "ONU " + index;
            static_cast<void>(inventory.putOnu(onu));
        }
    }
    return inventory;
}

Result<Demo> startDemo(const fs::path& clientDirectory, const std::optional<fs::path>& recording) {
    host::LaunchOptions launch = host::demoAgent(clientDirectory);
    launch.recording = recording.value_or(launch.recording);
    const Result<CatalogueSchema> catalogue = loadSchema(launch.catalogue);
    if (!catalogue) {
        return Error{catalogue.error()};
    }
    const Result<RecordedOnus> onus = recordedOnus(*catalogue, launch.recording);
    if (!onus) {
        return Error{onus.error()};
    }
    Result<host::AgentLauncher> agent = host::AgentLauncher::start(launch);
    if (!agent) {
        return Error{agent.error()};
    }
    Inventory inventory = demoInventory(*onus, agent->port());
    return Demo{std::move(agent).value(), std::move(inventory)};
}

} // namespace onudesk::desk
