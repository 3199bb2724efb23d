// SPDX-License-Identifier: MIT
#include "host/wire_pdu.h"

#include "snmp/wire/variable.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

namespace onudesk::host {

namespace {

constexpr u_char kSequence = ASN_SEQUENCE | ASN_CONSTRUCTOR;

int command(PduKind kind) {
    switch (kind) {
    case PduKind::get:
        return SNMP_MSG_GET;
    case PduKind::getNext:
        return SNMP_MSG_GETNEXT;
    case PduKind::getBulk:
        return SNMP_MSG_GETBULK;
    case PduKind::set:
        break;
    }
    return SNMP_MSG_SET;
}

bool addVariable(netsnmp_pdu& pdu, const VarBind& binding, bool withValue) {
    const std::vector<oid> name = toNetSnmp(binding.oid);
    netsnmp_variable_list* const variable =
        snmp_pdu_add_variable(&pdu, name.data(), name.size(), ASN_NULL, nullptr, 0);
    return variable != nullptr && (!withValue || setValue(*variable, binding.value));
}

void setText(char*& field, std::size_t& length, const std::string& text) {
    SNMP_FREE(field);
    field = strdup(text.c_str());
    length = text.size();
}

void setBytes(u_char*& field, std::size_t& length, const std::string& bytes) {
    SNMP_FREE(field);
    field = static_cast<u_char*>(netsnmp_memdup(bytes.data(), bytes.size()));
    length = bytes.size();
}

} // namespace

PduPtr makeLibraryPdu(const Pdu& pdu, SnmpVersion version, Protection protection) {
    PduPtr wire(snmp_pdu_create(command(pdu.kind)));
    if (!wire) {
        return nullptr;
    }
    wire->version = static_cast<long>(version);
    if (pdu.kind == PduKind::getBulk) {
        wire->non_repeaters = 0;
        wire->max_repetitions = pdu.maxRepetitions;
    }
    const bool whole =
        protection == Protection::probe || std::ranges::all_of(pdu.bindings, [&](const VarBind& b) {
            return addVariable(*wire, b, pdu.kind == PduKind::set);
        });
    return whole ? std::move(wire) : nullptr;
}

void setSecurity(netsnmp_pdu& pdu, const V3Access& access, const std::string& engineId,
                 Protection protection) {
    pdu.securityModel = SNMP_SEC_MODEL_USM;
    setText(pdu.contextName, pdu.contextNameLen, access.contextName);
    if (protection == Protection::probe) {
        pdu.securityLevel = SNMP_SEC_LEVEL_NOAUTH;
        setText(pdu.securityName, pdu.securityNameLen, {});
        return;
    }
    pdu.securityLevel = protection == Protection::authOnly ? SNMP_SEC_LEVEL_AUTHNOPRIV
                                                           : static_cast<int>(access.level);
    setText(pdu.securityName, pdu.securityNameLen, access.user);
    setBytes(pdu.securityEngineID, pdu.securityEngineIDLen, engineId);
    setBytes(pdu.contextEngineID, pdu.contextEngineIDLen, engineId);
}

AgentAnswer fromLibraryPdu(const netsnmp_pdu& pdu) {
    AgentAnswer answer{.isReport = pdu.command == SNMP_MSG_REPORT,
                       .errorStatus = static_cast<std::int32_t>(pdu.errstat),
                       .errorIndex = static_cast<std::int32_t>(pdu.errindex),
                       .bindings = {},
                       .engineId = {}};
    for (const auto* variable = pdu.variables; variable != nullptr;
         variable = variable->next_variable) {
        answer.bindings.push_back(bindingOf(*variable));
    }
    if (pdu.securityEngineID != nullptr) {
        answer.engineId.assign(reinterpret_cast<const char*>(pdu.securityEngineID),
                               pdu.securityEngineIDLen);
    }
    return answer;
}

std::string senderEngine(u_char* message, std::size_t length) {
    u_char type = 0;
    long number = 0;
    std::size_t left = length;
    u_char* at = asn_parse_sequence(message, &left, &type, kSequence, "message");
    at = at == nullptr ? nullptr : asn_parse_int(at, &left, &type, &number, sizeof number);
    if (at == nullptr || number != SNMP_VERSION_3) {
        return {};
    }
    std::size_t headerLength = left;
    u_char* const header = asn_parse_sequence(at, &headerLength, &type, kSequence, "header");
    if (header == nullptr) {
        return {};
    }
    at = header + headerLength;
    left = length - static_cast<std::size_t>(at - message);
    at = asn_parse_sequence(at, &left, &type, ASN_OCTET_STR, "security parameters");
    at = at == nullptr ? nullptr : asn_parse_sequence(at, &left, &type, kSequence, "fields");
    std::array<u_char, USM_MAX_ID_LENGTH> engineId{};
    std::size_t size = engineId.size();
    if (at == nullptr || asn_parse_string(at, &left, &type, engineId.data(), &size) == nullptr) {
        return {};
    }
    return {engineId.begin(), engineId.begin() + size};
}

} // namespace onudesk::host
