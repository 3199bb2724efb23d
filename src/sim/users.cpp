// SPDX-License-Identifier: MIT
#include "sim/users.h"

#include "snmp/wire/usm.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <utility>
#include <vector>

namespace onudesk::sim {

namespace {

using Bytes = std::vector<u_char>;

Bytes engineId() {
    std::size_t length = 0;
    const std::unique_ptr<u_char, decltype(&std::free)> id(snmpv3_generate_engineID(&length),
                                                           &std::free);
    return {id.get(), id.get() + length};
}

// Keys by digest and pass phrase: each is derived once.
class KeyRing {
public:
    // Copies the key to a session's buffer of USM_AUTH_KU_LEN bytes. Without a phrase there is
    // none.
    bool copyKey(AuthProtocol digest, const std::string& phrase, u_char* to, std::size_t& length) {
        std::string& key = keys_[{digest, phrase}];
        if (key.empty() && !phrase.empty()) {
            key = masterKey(digest, phrase);
        }
        std::ranges::copy(key, to);
        length = key.size();
        return phrase.empty() || !key.empty();
    }

private:
    std::map<std::pair<AuthProtocol, std::string>, std::string> keys_{};
};

bool protect(netsnmp_session& session, const User& user, KeyRing& keys) {
    const AuthProtocol digest =
        user.level == SecurityLevel::noAuthNoPriv ? AuthProtocol::none : user.digest;
    const UsmProtocol auth = usmProtocol(digest);
    const UsmProtocol priv =
        usmProtocol(user.level == SecurityLevel::authPriv ? PrivProtocol::des : PrivProtocol::none);
    session.securityAuthProto = auth.arcs;
    session.securityAuthProtoLen = auth.count;
    session.securityPrivProto = priv.arcs;
    session.securityPrivProtoLen = priv.count;
    return keys.copyKey(digest, user.authPhrase, session.securityAuthKey,
                        session.securityAuthKeyLen) &&
           keys.copyKey(digest, user.privPhrase, session.securityPrivKey,
                        session.securityPrivKeyLen);
}

bool installUser(std::string name, const User& user, KeyRing& keys) {
    Bytes id = engineId();
    netsnmp_session session;
    snmp_sess_init(&session);
    session.version = SNMP_VERSION_3;
    session.securityModel = SNMP_SEC_MODEL_USM;
    session.securityName = name.data();
    session.securityNameLen = name.size();
    session.securityEngineID = id.data();
    session.securityEngineIDLen = id.size();
    session.securityLevel = static_cast<int>(user.level);
    return protect(session, user, keys) &&
           usm_create_user_from_session(&session) == SNMPERR_SUCCESS;
}

} // namespace

std::int64_t engineBoots(std::chrono::system_clock::time_point now) {
    constexpr std::int64_t start = 1577836800; // 2020-01-01
    constexpr std::int64_t most = 2147483646;  // one more would lock the engine (RFC 3414, 2.3)
    const std::int64_t seconds =
        std::chrono::duration_cast<std::chrono::seconds>(now.time_since_epoch()).count();
    return std::clamp<std::int64_t>(seconds - start, 1, most);
}

void installEngine(const std::string& identity) {
    setup_engineID(nullptr, identity.c_str());
    // The library counts this start on top.
    std::string before = std::to_string(engineBoots(std::chrono::system_clock::now()) - 1);
    engineBoots_conf("engineBoots", before.data());
    const Bytes id = engineId();
    set_enginetime(id.data(), static_cast<u_int>(id.size()),
                   static_cast<u_int>(snmpv3_local_snmpEngineBoots()),
                   static_cast<u_int>(snmpv3_local_snmpEngineTime()), TRUE);
}

Result<void> installUsers(const std::map<std::string, User>& users) {
    KeyRing keys;
    for (const auto& [name, user] : users) {
        if (!installUser(name, user, keys)) {
            return Error{"cannot create user " + name};
        }
    }
    return {};
}

} // namespace onudesk::sim
