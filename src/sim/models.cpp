// SPDX-License-Identifier: MIT
#include "sim/models.h"

#include "sim/models/lt.h"
#include "sim/models/mac.h"
#include "sim/models/multicast.h"
#include "sim/models/optical.h"
#include "sim/models/port.h"
#include "sim/models/qinq.h"

#include <map>
#include <string>

namespace onudesk::sim {

DeviceModel findModel(std::string_view name) {
    static const std::map<std::string, DeviceModel, std::less<>> models = {
        {"com-session", writeComSession},
        {"controllable-multicast", writeControllableMulticast},
        {"encryption", writeEncryption},
        {"fec", writeFec},
        {"igmp-limits", writeIgmpLimits},
        {"mac-filter", filterMac},
        {"optical-thresholds", writeOpticalThresholds},
        {"port-status", writePortStatus},
        {"qinq-mode", writeQinQMode},
        {"svlan-insert", writeSVlanInsert},
        {"svlan-pass", writeSVlanPass},
        {"work-pon", writeWorkPon},
    };
    const auto found = models.find(name);
    return found == models.end() ? nullptr : found->second;
}

bool isModel(std::string_view name) {
    return findModel(name) != nullptr;
}

} // namespace onudesk::sim
