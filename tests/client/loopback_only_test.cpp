// SPDX-License-Identifier: MIT
//
// The preloaded library that keeps a server on this machine, called through its own bind().
#include <cerrno>
#include <cstring>
#include <memory>
#include <ostream>
#include <string>

#include <arpa/inet.h>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

using Bind = int (*)(int, const sockaddr*, socklen_t);

struct Case {
    const char* name;
    int family;
    int type;
    const char* address;
    const char* boundTo;
};

std::ostream& operator<<(std::ostream& out, const Case& shown) {
    return out << shown.address;
}

class Socket {
public:
    Socket(int family, int type) : fd_(::socket(family, type, 0)) {}
    ~Socket() {
        if (fd_ >= 0) {
            ::close(fd_);
        }
    }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    [[nodiscard]] int fd() const { return fd_; }

private:
    int fd_;
};

void* addressIn(sockaddr_storage& address) {
    return address.ss_family == AF_INET
               ? static_cast<void*>(&reinterpret_cast<sockaddr_in&>(address).sin_addr)
               : static_cast<void*>(&reinterpret_cast<sockaddr_in6&>(address).sin6_addr);
}

socklen_t sizeFor(int family) {
    return family == AF_INET ? sizeof(sockaddr_in) : sizeof(sockaddr_in6);
}

class LoopbackOnly : public testing::TestWithParam<Case> {};

TEST_P(LoopbackOnly, MovesOnlyTcpServersOfEveryAddress) {
    const Case& given = GetParam();
    const std::unique_ptr<void, int (*)(void*)> library(::dlopen(ONUDESK_LOOPBACK_ONLY, RTLD_NOW),
                                                        &::dlclose);
    ASSERT_NE(library, nullptr);
    const auto confinedBind = reinterpret_cast<Bind>(::dlsym(library.get(), "bind"));
    ASSERT_NE(confinedBind, nullptr);
    const Socket server(given.family, given.type);
    if (server.fd() < 0) {
        GTEST_SKIP() << "no sockets of this family here";
    }

    sockaddr_storage wanted{};
    wanted.ss_family = static_cast<sa_family_t>(given.family);
    ASSERT_EQ(::inet_pton(given.family, given.address, addressIn(wanted)), 1);
    ASSERT_EQ(confinedBind(server.fd(), reinterpret_cast<const sockaddr*>(&wanted),
                           sizeFor(given.family)),
              0)
        << std::strerror(errno);

    sockaddr_storage bound{};
    socklen_t size = sizeof bound;
    ASSERT_EQ(::getsockname(server.fd(), reinterpret_cast<sockaddr*>(&bound), &size), 0);
    std::string text(INET6_ADDRSTRLEN, '\0');
    ::inet_ntop(given.family, addressIn(bound), text.data(), INET6_ADDRSTRLEN);
    EXPECT_STREQ(text.c_str(), given.boundTo);
}

INSTANTIATE_TEST_SUITE_P(
    Addresses, LoopbackOnly,
    testing::Values(Case{"Tcp4Any", AF_INET, SOCK_STREAM, "0.0.0.0", "127.0.0.1"},
                    Case{"Tcp6Any", AF_INET6, SOCK_STREAM, "::", "::ffff:127.0.0.1"},
                    Case{"Tcp4Given", AF_INET, SOCK_STREAM, "127.0.0.2", "127.0.0.2"},
                    Case{"Udp4Any", AF_INET, SOCK_DGRAM, "0.0.0.0", "0.0.0.0"},
                    Case{"Udp6Any", AF_INET6, SOCK_DGRAM, "::", "::"}),
    [](const auto& shown) { return std::string(shown.param.name); });

} // namespace
