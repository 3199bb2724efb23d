// SPDX-License-Identifier: MIT
#pragma once

#include "host/client_host.h"

#include <cstdint>

namespace onudesk::bench {

// ONU 1.2.5 of the demonstration agent at that port of this machine.
inline host::OnuTarget demoTarget(std::uint16_t port) {
    host::OnuTarget target;
    target.agentAddress = "127.0.0.1";
    target.port = port;
    target.menuFileName = "epononuother_menu.xml";
    target.oltNumber = 1;
    target.ponNumber = 2;
    target.onuNumber = 5;
    host::useDemoAccess(target);
    return target;
}

} // namespace onudesk::bench
