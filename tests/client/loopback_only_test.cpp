// SPDX-License-Identifier: MIT
//
// The preloaded library that keeps a server on this machine, called through its own bind().
#include <array>
#include <memory>

#include <arpa/inet.h>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

TEST(LoopbackOnly, MovesOnlyTcpServersOfEveryAddress) {
    const std::unique_ptr<void, int (*)(void*)> library(::dlopen(ONUDESK_LOOPBACK_ONLY, RTLD_NOW),
                                                        &::dlclose);
    ASSERT_NE(library, nullptr);
    const auto confinedBind = reinterpret_cast<decltype(&::bind)>(::dlsym(library.get(), "bind"));
    ASSERT_NE(confinedBind, nullptr);
    struct Case {
        int family, type;
        const char *address, *boundTo;
    };
    for (const auto& [family, type, address, boundTo] :
         {Case{AF_INET, SOCK_STREAM, "0.0.0.0", "127.0.0.1"},
          Case{AF_INET6, SOCK_STREAM, "::", "::ffff:127.0.0.1"},
          Case{AF_INET, SOCK_STREAM, "127.0.0.2", "127.0.0.2"},
          Case{AF_INET, SOCK_DGRAM, "0.0.0.0", "0.0.0.0"},
          Case{AF_INET6, SOCK_DGRAM, "::", "::"}}) {
        SCOPED_TRACE(address);
        const int server = ::socket(family, type, 0);
        if (server < 0) {
            continue; // no sockets of this family here
        }
        sockaddr_storage place{};
        place.ss_family = static_cast<sa_family_t>(family);
        socklen_t size = family == AF_INET ? sizeof(sockaddr_in) : sizeof(sockaddr_in6);
        void* const bytes =
            family == AF_INET ? static_cast<void*>(&reinterpret_cast<sockaddr_in&>(place).sin_addr)
                              : &reinterpret_cast<sockaddr_in6&>(place).sin6_addr;
        EXPECT_EQ(::inet_pton(family, address, bytes), 1);
        EXPECT_EQ(confinedBind(server, reinterpret_cast<const sockaddr*>(&place), size), 0);
        EXPECT_EQ(::getsockname(server, reinterpret_cast<sockaddr*>(&place), &size), 0);
        std::array<char, INET6_ADDRSTRLEN> text{};
        ::inet_ntop(family, bytes, text.data(), text.size());
        EXPECT_STREQ(text.data(), boundTo);
        ::close(server);
    }
}

} // namespace
