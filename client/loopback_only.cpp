// SPDX-License-Identifier: MIT
//
// A preloaded library: TCP servers that would listen on every address listen on 127.0.0.1 alone.
// Qt's VNC platform asks for no password and has no option for its address.
#include <cstring>

#include <arpa/inet.h>
#include <dlfcn.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace {

bool isTcp(int socket) {
    int type = 0;
    socklen_t size = sizeof type;
    return ::getsockopt(socket, SOL_SOCKET, SO_TYPE, &type, &size) == 0 && type == SOCK_STREAM;
}

// The loopback address in place of the "any" address; other addresses stay as they are.
void confine(sockaddr_storage& address) {
    if (address.ss_family == AF_INET) {
        sockaddr_in ip4{};
        std::memcpy(&ip4, &address, sizeof ip4);
        if (ip4.sin_addr.s_addr == htonl(INADDR_ANY)) {
            ip4.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
            std::memcpy(&address, &ip4, sizeof ip4);
        }
    } else if (address.ss_family == AF_INET6) {
        sockaddr_in6 ip6{};
        std::memcpy(&ip6, &address, sizeof ip6);
        if (IN6_IS_ADDR_UNSPECIFIED(&ip6.sin6_addr)) {
            ::inet_pton(AF_INET6, "::ffff:127.0.0.1", &ip6.sin6_addr);
            std::memcpy(&address, &ip6, sizeof ip6);
        }
    }
}

} // namespace

// Stands before the C library's bind(2).
extern "C" __attribute__((visibility("default"))) int bind(int socket, const sockaddr* address,
                                                           socklen_t size) noexcept {
    using Bind = int (*)(int, const sockaddr*, socklen_t);
    static const auto next = reinterpret_cast<Bind>(::dlsym(RTLD_NEXT, "bind"));
    sockaddr_storage copy{};
    if (!isTcp(socket) || address == nullptr || size > sizeof copy) {
        return next(socket, address, size);
    }
    std::memcpy(&copy, address, size);
    confine(copy);
    return next(socket, reinterpret_cast<const sockaddr*>(&copy), size);
}
