// SPDX-License-Identifier: MIT
#include "platform/route_mutex.h"

namespace onudesk::platform {

void RouteMutex::lock() {
    mutex_.lock();
}

void RouteMutex::unlock() {
    mutex_.unlock();
}

} // namespace onudesk::platform
