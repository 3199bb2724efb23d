// SPDX-License-Identifier: MIT
#include "sim/models/lt.h"

#include <cstdint>

namespace onudesk::sim {

SetResult writeWorkPon(const GroupWrite& write, Device& device) {
    constexpr const char* kPort = "vgonuworkponset";
    DeviceGroup terminal = device.group(817, "group1");
    const std::int64_t wanted = write.number(kPort).value_or(0);
    if (terminal.find(kPort, write.instance()) == nullptr) {
        return SetStatus::noCreation;
    }
    if (wanted == 0 || terminal.number(kPort, write.instance()) == 0) {
        return SetStatus::inconsistentValue;
    }
    terminal.putNumber(kPort, write.instance(), wanted);
    return {};
}

} // namespace onudesk::sim
