// SPDX-License-Identifier: MIT
#include "bare_session.h"

#include <array>
#include <cstring>

#include <net-snmp/net-snmp-config.h>

#include <net-snmp/net-snmp-includes.h>

namespace onudesk::bench {

namespace {

void secure(netsnmp_session& settings, host::V3Access& v3) {
    settings.securityName = v3.user.data();
    settings.securityNameLen = v3.user.size();
    settings.securityLevel = SNMP_SEC_LEVEL_AUTHPRIV;
    settings.securityAuthProto = const_cast<oid*>(usmHMACSHA1AuthProtocol);
    settings.securityAuthProtoLen = USM_AUTH_PROTO_SHA_LEN;
    settings.securityAuthKeyLen = USM_AUTH_KU_LEN;
    generate_Ku(settings.securityAuthProto, static_cast<u_int>(settings.securityAuthProtoLen),
                reinterpret_cast<const u_char*>(v3.authPassphrase.c_str()),
                v3.authPassphrase.size(), settings.securityAuthKey, &settings.securityAuthKeyLen);
    settings.securityPrivProto = const_cast<oid*>(usmDESPrivProtocol);
    settings.securityPrivProtoLen = USM_PRIV_PROTO_DES_LEN;
    settings.securityPrivKeyLen = USM_PRIV_KU_LEN;
    generate_Ku(settings.securityAuthProto, static_cast<u_int>(settings.securityAuthProtoLen),
                reinterpret_cast<const u_char*>(v3.privPassphrase.c_str()),
                v3.privPassphrase.size(), settings.securityPrivKey, &settings.securityPrivKeyLen);
}

} // namespace

BareSession::BareSession(const host::OnuTarget& target) {
    netsnmp_session settings;
    snmp_sess_init(&settings);
    std::string peer = target.agentAddress + ":" + std::to_string(target.port);
    settings.peername = peer.data();
    std::string community = target.readCommunity;
    host::V3Access v3 = target.v3;
    if (target.version == host::SnmpVersion::v3) {
        settings.version = SNMP_VERSION_3;
        secure(settings, v3);
    } else {
        settings.version = SNMP_VERSION_2c;
        settings.community = reinterpret_cast<u_char*>(community.data());
        settings.community_len = community.size();
    }
    session_ = snmp_sess_open(&settings);
}

BareSession::~BareSession() {
    if (session_ != nullptr) {
        snmp_sess_close(session_);
    }
}

std::size_t BareSession::get(const std::vector<std::string>& oids) {
    netsnmp_pdu* request = snmp_pdu_create(SNMP_MSG_GET);
    for (const std::string& text : oids) {
        std::array<oid, MAX_OID_LEN> name{};
        std::size_t length = name.size();
        if (read_objid(text.c_str(), name.data(), &length) != 0) {
            snmp_add_null_var(request, name.data(), length);
        }
    }
    netsnmp_pdu* answer = nullptr;
    if (snmp_sess_synch_response(session_, request, &answer) != STAT_SUCCESS) {
        return 0;
    }
    std::size_t values = 0;
    for (const netsnmp_variable_list* value = answer->variables; value != nullptr;
         value = value->next_variable) {
        values += value->type < SNMP_NOSUCHOBJECT ? 1 : 0;
    }
    snmp_free_pdu(answer);
    return values;
}

} // namespace onudesk::bench
