// SPDX-License-Identifier: MIT
//
// SNMPv3 users in the library's process-wide table (RFC 3414).
#pragma once

#include "host/access.h"

#include <memory>
#include <string>

struct usmUser;

namespace onudesk::host {

// Keys made from pass phrases before they are bound to an engine: the slow part (1 to 2 ms each),
// so a session makes them once. Wiped on destruction.
class MasterKeys {
public:
    MasterKeys() = default;
    // Access must have passed the checks of decodeRequest().
    explicit MasterKeys(const V3Access& access);
    ~MasterKeys();
    MasterKeys(const MasterKeys&) = delete;
    MasterKeys& operator=(const MasterKeys&) = delete;

    [[nodiscard]] const std::string& auth() const { return auth_; }
    [[nodiscard]] const std::string& priv() const { return priv_; }

private:
    std::string auth_; // empty when the level does not use it
    std::string priv_;
};

// A user of one engine. The table knows users by engine id and name only, so sessions that differ
// in keys take turns: each puts its own user there before it sends or reads.
class UsmUser {
public:
    UsmUser(const V3Access& access, const MasterKeys& keys, const std::string& engineId);
    ~UsmUser();
    UsmUser(const UsmUser&) = delete;
    UsmUser& operator=(const UsmUser&) = delete;

    void makeCurrent();

private:
    struct Free {
        void operator()(usmUser* user) const noexcept;
    };
    std::unique_ptr<usmUser, Free> user_;
};

} // namespace onudesk::host
