// SPDX-License-Identifier: MIT
#include "host/usm_user.h"

#include "snmp/wire/usm.h"

#include <array>
#include <cstring>
#include <string_view>

namespace onudesk::host {

namespace {

using KeyBuffer = std::array<u_char, USM_LENGTH_KU_HASHBLOCK>;

// Key and initialisation vector of DES together (RFC 3414, 8.2.1).
constexpr std::size_t kDesKeyBytes = 16;

const u_char* bytesOf(std::string_view text) {
    return reinterpret_cast<const u_char*>(text.data());
}

// The key for one engine, in memory that the library frees; null for an empty master key.
u_char* localKey(const UsmProtocol& hash, const std::string& engineId, const std::string& master,
                 std::size_t& length) {
    KeyBuffer key{};
    length = key.size();
    if (master.empty() ||
        generate_kul(hash.arcs, static_cast<u_int>(hash.count), bytesOf(engineId), engineId.size(),
                     bytesOf(master), master.size(), key.data(), &length) != SNMPERR_SUCCESS) {
        length = 0;
        return nullptr;
    }
    auto* const copy = static_cast<u_char*>(netsnmp_memdup(key.data(), length));
    explicit_bzero(key.data(), key.size());
    return copy;
}

void setProtocol(oid*& field, std::size_t& length, const UsmProtocol& protocol) {
    SNMP_FREE(field);
    field = snmp_duplicate_objid(protocol.arcs, protocol.count);
    length = protocol.count;
}

} // namespace

MasterKeys::MasterKeys(const V3Access& access) {
    if (access.level >= SecurityLevel::authNoPriv) {
        auth_ = masterKey(access.authProtocol, access.authPassphrase);
    }
    if (access.level == SecurityLevel::authPriv) {
        priv_ = masterKey(access.authProtocol, access.privPassphrase);
    }
}

MasterKeys::~MasterKeys() {
    explicit_bzero(auth_.data(), auth_.size());
    explicit_bzero(priv_.data(), priv_.size());
}

void UsmUser::Free::operator()(usmUser* user) const noexcept {
    if (usm_get_user(user->engineID, user->engineIDLen, user->name) == user) {
        usm_remove_user(user);
    }
    usm_free_user(user);
}

UsmUser::UsmUser(const V3Access& access, const MasterKeys& keys, const std::string& engineId)
    : user_(usm_create_user()) {
    const UsmProtocol hash = usmProtocol(access.authProtocol);
    user_->engineID = static_cast<u_char*>(netsnmp_memdup(engineId.data(), engineId.size()));
    user_->engineIDLen = engineId.size();
    user_->name = strdup(access.user.c_str());
    user_->secName = strdup(access.user.c_str());
    setProtocol(user_->authProtocol, user_->authProtocolLen, hash);
    setProtocol(user_->privProtocol, user_->privProtocolLen, usmProtocol(access.privProtocol));
    user_->authKey = localKey(hash, engineId, keys.auth(), user_->authKeyLen);
    user_->privKey = localKey(hash, engineId, keys.priv(), user_->privKeyLen);
    user_->privKeyLen = std::min(user_->privKeyLen, kDesKeyBytes);
    user_->userStatus = RS_ACTIVE;
    user_->userStorageType = ST_READONLY;
}

UsmUser::~UsmUser() = default;

void UsmUser::makeCurrent() {
    usmUser* const listed = usm_get_user(user_->engineID, user_->engineIDLen, user_->name);
    if (listed == user_.get()) {
        return;
    }
    if (listed != nullptr) {
        usm_remove_user(listed);
        listed->next = nullptr;
        listed->prev = nullptr;
    }
    usm_add_user(user_.get());
}

} // namespace onudesk::host
