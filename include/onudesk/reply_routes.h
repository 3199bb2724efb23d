// SPDX-License-Identifier: MIT
//
// The host-owned table that says which window receives which reply.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>

namespace onudesk {

namespace platform {
class RouteMutex;
}

struct ReplyRoute {
    std::uint32_t message; // WM_CODEPARA_READ_REPLY or WM_CODEPARA_WRITE_REPLY
    std::uint32_t window;  // handle issued by platform::registerWindow
};

// The host creates and outlives it; both sides hold the mutex around every access to `routes`
// and never wait for anything else meanwhile.
struct ReplyRouteTable {
    platform::RouteMutex* mutex;
    std::multimap<std::uint32_t, ReplyRoute> routes; // keyed by routeKey()
};

// The multimap makes the record non-standard-layout, for which offsetof is only conditionally
// supported; this toolchain supports it.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
static_assert(offsetof(ReplyRouteTable, mutex) == 0);
static_assert(offsetof(ReplyRouteTable, routes) == 8);
#pragma GCC diagnostic pop

} // namespace onudesk
