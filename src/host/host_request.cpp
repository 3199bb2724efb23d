// SPDX-License-Identifier: MIT
#include "host/host_request.h"

#include "base/endpoint.h"
#include "base/hexadecimal.h"
#include "bridge/code_para_access.h"
#include "onudesk/messages.h"

#include <algorithm>
#include <initializer_list>
#include <limits>
#include <optional>
#include <string_view>

namespace onudesk::host {

namespace {

constexpr std::int32_t kMinTimeout = 1;
constexpr std::int32_t kMaxTimeout = 60;
constexpr std::int32_t kMaxRetries = 9;
constexpr std::uint32_t kNoAddress = 0xFFFFFFFFU;
constexpr std::size_t kMinEngineId = 5; // RFC 3411, SnmpEngineID
constexpr std::size_t kMaxEngineId = 32;

struct NamedId {
    CodeParaId id;
    const char* name;
};

Error missing(const char* name) {
    return Error{std::string(name) + " is missing or of the wrong kind"};
}

// The first of the ids that holds no integer; null when all do.
const char* missingInteger(const CodeParaReader& reader, std::initializer_list<NamedId> ids) {
    for (const NamedId& entry : ids) {
        if (!reader.integer(entry.id)) {
            return entry.name;
        }
    }
    return nullptr;
}

const char* missingText(const CodeParaReader& reader, std::initializer_list<NamedId> ids) {
    for (const NamedId& entry : ids) {
        if (!reader.text(entry.id)) {
            return entry.name;
        }
    }
    return nullptr;
}

std::int32_t signedEntry(const CodeParaReader& reader, std::uint8_t id) {
    return static_cast<std::int32_t>(reader.integer(id).value_or(0));
}

std::string textEntry(const CodeParaReader& reader, std::uint8_t id) {
    return reader.text(id).value_or(std::string());
}

// The window ends the suffix with "." where the port is not known yet.
std::optional<Oid> parseInstance(std::string_view suffix) {
    if (suffix.ends_with('.') && !suffix.ends_with("..") && suffix.size() > 1) {
        suffix.remove_suffix(1);
    }
    return Oid::parse(suffix);
}

bool between(std::int32_t value, std::int32_t low, std::int32_t high) {
    return low <= value && value <= high;
}

bool known(SnmpVersion version) {
    return version == SnmpVersion::v1 || version == SnmpVersion::v2c || version == SnmpVersion::v3;
}

// Fails with the reason why the settings cannot be used.
Result<void> checkV3(const V3Access& v3) {
    const bool authenticates = v3.level >= SecurityLevel::authNoPriv;
    const bool encrypts = v3.level == SecurityLevel::authPriv;
    if (v3.user.empty()) {
        return Error{"SNMPv3 needs a user name"};
    }
    if (v3.level == SecurityLevel::notSet) {
        return Error{"SNMPv3 needs a security level"};
    }
    if (!v3.engineId.empty() &&
        (v3.engineId.size() < kMinEngineId || v3.engineId.size() > kMaxEngineId)) {
        return Error{"the engine id must have 5 to 32 bytes"};
    }
    if (authenticates && v3.authProtocol == AuthProtocol::none) {
        return Error{"the security level needs an authentication protocol"};
    }
    if (authenticates && v3.authPassphrase.size() < kMinPassphraseBytes) {
        return Error{"the authentication pass phrase is shorter than 8 characters"};
    }
    if (encrypts && v3.privProtocol == PrivProtocol::none) {
        return Error{"the security level needs a privacy protocol"};
    }
    if (encrypts && v3.privPassphrase.size() < kMinPassphraseBytes) {
        return Error{"the privacy pass phrase is shorter than 8 characters"};
    }
    return {};
}

// Digits, optionally after "0x".
std::optional<std::string> parseEngineId(std::string_view digits) {
    const bool prefixed = digits.starts_with("0x") || digits.starts_with("0X");
    return bytesFromHex(digits.substr(prefixed ? 2 : 0));
}

Result<V3Access> v3Entries(const CodeParaReader& reader) {
    const std::int32_t level = signedEntry(reader, CP_V3_SEC_LEVEL);
    const std::int32_t auth = signedEntry(reader, CP_V3_AUTH_PROTO);
    const std::int32_t priv = signedEntry(reader, CP_V3_PRIV_PROTO);
    const auto engineId = parseEngineId(textEntry(reader, CP_V3_ENGINE_ID));
    if (!between(level, 1, 3)) {
        return Error{"unknown security level " + std::to_string(level)};
    }
    if (!engineId) {
        return Error{"the engine id is not in hexadecimal digits"};
    }
    // Not chosen (-1) is as good as none.
    if (!between(auth, -1, 3)) {
        return Error{"unknown authentication protocol " + std::to_string(auth)};
    }
    if (!between(priv, -1, 2)) {
        return Error{"unknown privacy protocol " + std::to_string(priv)};
    }
    return V3Access{.user = textEntry(reader, CP_V3_USER),
                    .contextName = textEntry(reader, CP_V3_CONTEXT),
                    .engineId = *engineId,
                    .level = static_cast<SecurityLevel>(level),
                    .authProtocol = static_cast<AuthProtocol>(std::max(auth, 1)),
                    .authPassphrase = textEntry(reader, CP_V3_AUTH_KEY),
                    .privProtocol = static_cast<PrivProtocol>(std::max(priv, 1)),
                    .privPassphrase = textEntry(reader, CP_V3_PRIV_KEY)};
}

// Settings that do not matter at the level would only split one session into several.
V3Access reduced(V3Access v3) {
    if (v3.level < SecurityLevel::authNoPriv) {
        v3.authProtocol = AuthProtocol::none;
        v3.authPassphrase.clear();
    }
    if (v3.level < SecurityLevel::authPriv) {
        v3.privProtocol = PrivProtocol::none;
        v3.privPassphrase.clear();
    }
    return v3;
}

Result<V3Access> decodeV3(const CodeParaReader& reader, const V3Access& defaults) {
    const char* absent = missingInteger(reader, {{CP_V3_SEC_LEVEL, "the security level"},
                                                 {CP_V3_AUTH_PROTO, "the authentication protocol"},
                                                 {CP_V3_PRIV_PROTO, "the privacy protocol"}});
    if (absent == nullptr) {
        absent = missingText(reader, {{CP_V3_USER, "the user name"},
                                      {CP_V3_CONTEXT, "the context name"},
                                      {CP_V3_ENGINE_ID, "the engine id"},
                                      {CP_V3_AUTH_KEY, "the authentication pass phrase"},
                                      {CP_V3_PRIV_KEY, "the privacy pass phrase"}});
    }
    if (absent != nullptr) {
        return missing(absent);
    }
    const bool open =
        signedEntry(reader, CP_V3_SEC_LEVEL) == -1 || textEntry(reader, CP_V3_USER).empty();
    Result<V3Access> v3 = open ? Result<V3Access>(defaults) : v3Entries(reader);
    if (!v3) {
        return v3;
    }
    if (const Result<void> usable = checkV3(*v3); !usable) {
        return Error{usable.error()};
    }
    return reduced(std::move(v3).value());
}

// What is missing of the entries that every version needs; null when nothing is.
const char* missingAccess(const CodeParaReader& reader) {
    const char* absent = missingInteger(reader, {{CP_AGENT_ADDR, "the agent address"},
                                                 {CP_SNMP_PORT, "the port"},
                                                 {CP_SNMP_VERSION, "the SNMP version"},
                                                 {CP_TIMEOUT, "the time-out"},
                                                 {CP_RETRIES, "the number of retries"}});
    return absent != nullptr ? absent
                             : missingText(reader, {{CP_READ_COMMUNITY, "the read community"},
                                                    {CP_WRITE_COMMUNITY, "the write community"}});
}

Result<AgentAccess> decodeAccess(const CodeParaReader& reader, const V3Access& v3Defaults) {
    if (const char* absent = missingAccess(reader)) {
        return missing(absent);
    }
    const std::uint32_t port = *reader.integer(CP_SNMP_PORT);
    const std::uint32_t version = *reader.integer(CP_SNMP_VERSION);
    AgentAccess access{.address = *reader.integer(CP_AGENT_ADDR),
                       .port = static_cast<std::uint16_t>(port),
                       .version = static_cast<SnmpVersion>(version),
                       .readCommunity = textEntry(reader, CP_READ_COMMUNITY),
                       .writeCommunity = textEntry(reader, CP_WRITE_COMMUNITY),
                       .timeout =
                           std::clamp(signedEntry(reader, CP_TIMEOUT), kMinTimeout, kMaxTimeout),
                       .retries = std::clamp(signedEntry(reader, CP_RETRIES), 0, kMaxRetries),
                       .v3 = {}};
    if (access.address == kNoAddress) {
        return Error{"the agent address is no IPv4 address"};
    }
    if (port == 0 || port > std::numeric_limits<std::uint16_t>::max()) {
        return Error{"port " + std::to_string(port) + " is not between 1 and 65535"};
    }
    if (version > 3 || !known(access.version)) {
        return Error{"unknown SNMP version " + std::to_string(version)};
    }
    if (access.version == SnmpVersion::v3) {
        Result<V3Access> v3 = decodeV3(reader, v3Defaults);
        if (!v3) {
            return Error{v3.error()};
        }
        access.v3 = std::move(v3).value();
    }
    return access;
}

Result<std::vector<Binding>> decodeBindings(const DllClientCodePara& para) {
    const CodeParaReader reader(para);
    const auto names = reader.byteStrings(CP_NAME_LIST);
    const auto oids = reader.byteStrings(CP_OID_LIST);
    const auto values = reader.byteStrings(CP_VALUE_LIST);
    const auto types = reader.integers(CP_TYPE_LIST);
    if (!names || !oids || !values || !types) {
        return missing("a list of the bindings");
    }
    if (oids->size() != names->size() || values->size() != names->size() ||
        types->size() != names->size()) {
        return Error{"the lists of the bindings differ in length"};
    }
    if (names->empty()) {
        return Error{"there is nothing to write"};
    }
    return readableBindings(para);
}

} // namespace

std::string agentName(const AgentAccess& access) {
    return Endpoint{addressText(access.address), access.port}.text();
}

RequestKind requestKind(const DllClientCodePara& para) {
    return para.requestKind == CP_KIND_WRITE ? RequestKind::write : RequestKind::read;
}

std::vector<Binding> readableBindings(const DllClientCodePara& para) {
    const CodeParaReader reader(para);
    const auto names = reader.byteStrings(CP_NAME_LIST).value_or(std::vector<std::string>());
    const auto oids = reader.byteStrings(CP_OID_LIST).value_or(std::vector<std::string>());
    const auto values = reader.byteStrings(CP_VALUE_LIST).value_or(std::vector<std::string>());
    const auto types = reader.integers(CP_TYPE_LIST).value_or(std::vector<std::uint32_t>());
    std::vector<Binding> bindings(
        std::min({names.size(), oids.size(), values.size(), types.size()}));
    for (std::size_t at = 0; at < bindings.size(); ++at) {
        bindings[at] = {names[at], oids[at], types[at], values[at]};
    }
    return bindings;
}

Result<HostRequest> decodeRequest(const DllClientCodePara& para, const V3Access& v3Defaults) {
    const CodeParaReader reader(para);
    if (para.serviceCode != CP_SERVICE_ONU) {
        return Error{"unknown service " + std::to_string(para.serviceCode)};
    }
    if (para.requestKind != CP_KIND_READ && para.requestKind != CP_KIND_WRITE) {
        return Error{"unknown request kind " + std::to_string(para.requestKind)};
    }
    Result<AgentAccess> access = decodeAccess(reader, v3Defaults);
    if (!access) {
        return Error{access.error()};
    }
    HostRequest request{.kind = requestKind(para),
                        .itemType = itemTypeOf(para),
                        .suffix = textEntry(reader, CP_INDEX_SUFFIX),
                        .instance = {},
                        .firstOfTwo = reader.has(CP_FLAG_130),
                        .bindings = {},
                        .access = std::move(access).value()};
    if (request.kind == RequestKind::write) {
        Result<std::vector<Binding>> bindings = decodeBindings(para);
        if (!bindings) {
            return Error{bindings.error()};
        }
        request.bindings = std::move(bindings).value();
        return request;
    }
    const auto instance = parseInstance(request.suffix);
    if (!instance || (reader.has(CP_INDEX_SUFFIX) && !reader.text(CP_INDEX_SUFFIX))) {
        return Error{"the instance suffix \"" + request.suffix + "\" is no list of numbers"};
    }
    request.instance = *instance;
    return request;
}

} // namespace onudesk::host
