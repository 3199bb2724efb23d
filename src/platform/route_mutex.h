// SPDX-License-Identifier: MIT
#pragma once

#include "platform/api.h"

#include <mutex>

namespace onudesk::platform {

// The mutex that guards a ReplyRouteTable; lock() waits without bound. Works with std::scoped_lock.
class ONUPLATFORM_API RouteMutex {
public:
    void lock();
    void unlock();

private:
    std::mutex mutex_;
};

} // namespace onudesk::platform
