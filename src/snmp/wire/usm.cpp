// SPDX-License-Identifier: MIT
#include "snmp/wire/usm.h"

#include <array>
#include <cstring>

namespace onudesk {

namespace {

template <std::size_t count>
UsmProtocol protocolOf(oid (&arcs)[count]) {
    return {arcs, count};
}

} // namespace

UsmProtocol usmProtocol(AuthProtocol protocol) {
    switch (protocol) {
    case AuthProtocol::md5:
        return protocolOf(usmHMACMD5AuthProtocol);
    case AuthProtocol::sha:
        return protocolOf(usmHMACSHA1AuthProtocol);
    case AuthProtocol::none:
        break;
    }
    return protocolOf(usmNoAuthProtocol);
}

UsmProtocol usmProtocol(PrivProtocol protocol) {
    return protocol == PrivProtocol::des ? protocolOf(usmDESPrivProtocol)
                                         : protocolOf(usmNoPrivProtocol);
}

std::string masterKey(AuthProtocol protocol, const std::string& passphrase) {
    const UsmProtocol hash = usmProtocol(protocol);
    std::array<u_char, USM_LENGTH_KU_HASHBLOCK> key{};
    std::size_t length = key.size();
    if (generate_Ku(hash.arcs, static_cast<u_int>(hash.count),
                    reinterpret_cast<const u_char*>(passphrase.data()), passphrase.size(),
                    key.data(), &length) != SNMPERR_SUCCESS) {
        return {};
    }
    std::string bytes(key.begin(), key.begin() + length);
    explicit_bzero(key.data(), key.size());
    return bytes;
}

} // namespace onudesk
