// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace onudesk::test {

// A UDP port on the loopback address that never answers.
class SilentPort {
public:
    SilentPort() {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        auto* const general = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(::bind(socket_, general, length), 0);
        EXPECT_EQ(::getsockname(socket_, general, &length), 0);
        port_ = ntohs(address.sin_port);
    }
    ~SilentPort() { ::close(socket_); }
    SilentPort(const SilentPort&) = delete;
    SilentPort& operator=(const SilentPort&) = delete;

    [[nodiscard]] std::uint16_t port() const { return port_; }

private:
    int socket_ = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    std::uint16_t port_ = 0;
};

} // namespace onudesk::test
