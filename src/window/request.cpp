// SPDX-License-Identifier: MIT
#include "window/request.h"

#include "onudesk/messages.h"

#include <algorithm>
#include <utility>

#include <arpa/inet.h>

namespace onudesk {

namespace {

std::uint32_t code(std::int32_t value) {
    return static_cast<std::uint32_t>(value);
}

std::string level(std::int32_t number) {
    return number == -1 ? std::string() : "." + std::to_string(number);
}

} // namespace

void fillSessionEntries(DllClientCodePara& para, const Session& session, std::int32_t itemType,
                        std::uint8_t kind) {
    const SessionContext& context = session.context;
    setServiceCode(para, CP_SERVICE_ONU);
    setTag(para, "0000");
    setRequestKind(para, kind);
    setItemType(para, itemType);
    setInteger(para, CP_AGENT_ADDR, addressNumber(context.agentAddress));
    setInteger(para, CP_TIMEOUT, code(context.timeout));
    setInteger(para, CP_RETRIES, code(context.retries));
    setInteger(para, CP_SNMP_PORT, code(context.snmpPort));
    setInteger(para, CP_SNMP_VERSION, code(context.snmpVersion));
    setText(para, CP_READ_COMMUNITY, context.readCommunity);
    setText(para, CP_V3_CONTEXT, context.v3ContextName);
    setText(para, CP_WRITE_COMMUNITY, context.writeCommunity);
    setText(para, CP_V3_USER, context.v3UserName);
    setInteger(para, CP_V3_SEC_LEVEL, code(context.securityLevel));
    setInteger(para, CP_V3_SEC_MODEL, code(context.securityModel));
    setText(para, CP_V3_ENGINE_ID, context.v3EngineId);
    setInteger(para, CP_V3_AUTH_PROTO, code(context.authProtocol));
    setText(para, CP_V3_AUTH_KEY, context.authPassword);
    setInteger(para, CP_V3_PRIV_PROTO, code(context.privProtocol));
    setText(para, CP_V3_PRIV_KEY, context.privPassword);
}

void fillReadRequest(DllClientCodePara& para, Session& session, std::int32_t itemType) {
    fillSessionEntries(para, session, itemType, CP_KIND_READ);
    const SessionContext& context = session.context;
    if (context.oltNumber == -1) {
        return;
    }
    std::string suffix = "." + std::to_string(context.oltNumber) + level(context.ponNumber) +
                         level(context.onuNumber) + level(session.SubIndex);
    if (session.PortPending && session.SubIndex == -1) {
        suffix += "." + session.PendingPortText;
        session.PortPending = false;
    }
    setText(para, CP_INDEX_SUFFIX, suffix);
    if (session.SubIndex != -1) {
        setInteger(para, CP_SUB_INDEX, code(session.SubIndex));
    }
}

CodeParaPtr createWriteRequest(const Session& session, std::int32_t itemType) {
    CodeParaPtr request = createCodePara();
    if (request) {
        fillSessionEntries(*request, session, itemType, CP_KIND_WRITE);
    }
    return request;
}

void addWriteBinding(DllClientCodePara& para, const std::string& value, const CONFIG_OID_T& object,
                     const std::string& suffix, std::size_t length) {
    std::string oid = object.oidstr;
    if (!oid.empty() && !suffix.empty()) {
        oid += "." + suffix;
    }
    appendByteString(para, CP_NAME_LIST, object.name.c_str(), 0);
    appendByteString(para, CP_OID_LIST, oid.c_str(), 0);
    std::string bytes = value;
    bytes.resize(std::max(length, bytes.size())); // never read beyond what the caller has
    appendByteString(para, CP_VALUE_LIST, bytes.c_str(), length);
    appendInteger(para, CP_TYPE_LIST, code(object.type));
}

bool sendReadRequest(Session& session, std::int32_t itemType) {
    CodeParaPtr request = createCodePara();
    if (!request) {
        return false;
    }
    fillReadRequest(*request, session, itemType);
    return postRequest(session, std::move(request));
}

bool postWrite(const Session& session, CodeParaPtr request) {
    if (!request || !CodeParaReader(*request).has(CP_OID_LIST)) {
        return false;
    }
    return postRequest(session, std::move(request));
}

void setPortSegment(Session& session, const std::string& text) {
    session.PendingPortText = text;
    session.PortPending = true;
}

std::uint32_t addressNumber(const std::string& dottedText) {
    // inet_addr on purpose: it takes what the agents' address field always took ("10.1", octal).
    return ntohl(::inet_addr(dottedText.c_str()));
}

} // namespace onudesk
