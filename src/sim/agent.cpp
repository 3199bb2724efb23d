// SPDX-License-Identifier: MIT
#include "sim/agent.h"

#include "sim/users.h"
#include "snmp/wire/variable.h"

#include <net-snmp/agent/net-snmp-agent-includes.h>

#include <net-snmp/agent/agent_callbacks.h>
#include <net-snmp/agent/ds_agent.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace onudesk::sim {

namespace {

constexpr const char* kName = "onusim";
constexpr std::array kAccessChecks = {SNMPD_CALLBACK_ACM_CHECK, SNMPD_CALLBACK_ACM_CHECK_INITIAL};

// Everything the library would otherwise take from, or leave on, the machine it runs on.
void startLibrary() {
    for (const char* variable : {"MIBS", "MIBDIRS", "MIBFILES"}) {
        ::setenv(variable, "", 1);
    }
    for (const int option :
         {NETSNMP_DS_LIB_DONT_READ_CONFIGS, NETSNMP_DS_LIB_DONT_PERSIST_STATE,
          NETSNMP_DS_LIB_DONT_LOAD_HOST_FILES, NETSNMP_DS_LIB_ALARM_DONT_USE_SIG}) {
        netsnmp_ds_set_boolean(NETSNMP_DS_LIBRARY_ID, option, 1);
    }
    netsnmp_ds_set_boolean(NETSNMP_DS_APPLICATION_ID, NETSNMP_DS_AGENT_ROLE, 0);
    netsnmp_ds_set_boolean(NETSNMP_DS_APPLICATION_ID, NETSNMP_DS_AGENT_NO_ROOT_ACCESS, 1);
    netsnmp_register_loghandler(NETSNMP_LOGHANDLER_NONE, LOG_DEBUG);
    init_agent(kName);
    init_snmp(kName);
}

std::uint16_t portOf(const netsnmp_transport& transport) {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    ::getsockname(transport.sock, reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.sin_port);
}

// Unlike netsnmp_register_agent_nsap() this does not have every packet checked against the host
// access files of the machine.
netsnmp_session* addSession(netsnmp_transport* transport) {
    netsnmp_session session;
    snmp_sess_init(&session);
    session.version = SNMP_DEFAULT_VERSION;
    session.callback = handle_snmp_packet;
    session.isAuthoritative = SNMP_SESS_AUTHORITATIVE;
    return snmp_add(&session, transport, nullptr, nullptr);
}

class NetSnmpAgent : public Agent {
public:
    NetSnmpAgent(Store& store, Access access) : store_(store), access_(std::move(access)) {
        startLibrary();
        for (const int check : kAccessChecks) {
            snmp_register_callback(SNMP_CALLBACK_APPLICATION, check, checkAccess, &access_);
        }
    }
    ~NetSnmpAgent() override {
        // The library would release what it holds as a callback's argument.
        for (const int check : kAccessChecks) {
            snmp_unregister_callback(SNMP_CALLBACK_APPLICATION, check, checkAccess, &access_, 1);
        }
        snmp_shutdown(kName);
        shutdown_agent();
    }
    NetSnmpAgent(const NetSnmpAgent&) = delete;
    NetSnmpAgent& operator=(const NetSnmpAgent&) = delete;

    [[nodiscard]] Result<void> listen(const Endpoint& endpoint);
    [[nodiscard]] const Endpoint& endpoint() const override { return endpoint_; }
    void serve(int stopDescriptor) override;

private:
    static int checkAccess(int major, int minor, void* parameters, void* access);
    static int handle(netsnmp_mib_handler* handler, netsnmp_handler_registration* registration,
                      netsnmp_agent_request_info* info, netsnmp_request_info* requests);
    [[nodiscard]] bool registerObjects();
    void get(netsnmp_agent_request_info* info, netsnmp_request_info* request) const;
    void getNext(netsnmp_request_info* request) const;
    void prepareSet(netsnmp_agent_request_info* info, netsnmp_request_info* requests);

    Store& store_;
    Access access_;
    Endpoint endpoint_;
    bool serving_ = false;
    Changes pending_; // of the SET that is being carried out
    Changes undo_;
};

Result<void> NetSnmpAgent::listen(const Endpoint& endpoint) {
    errno = 0;
    netsnmp_transport* transport =
        netsnmp_transport_open_server(kName, ("udp:" + endpoint.text()).c_str());
    if (transport == nullptr) {
        const int reason = errno != 0 ? errno : EADDRNOTAVAIL;
        return Error{"cannot listen on " + endpoint.text() + ": " +
                     std::generic_category().message(reason)};
    }
    endpoint_ = {endpoint.host, portOf(*transport)};
    if (addSession(transport) == nullptr || !registerObjects()) {
        return Error{"cannot serve on " + endpoint_.text()};
    }
    installEngine(std::string(kName) + " " + endpoint_.text());
    return installUsers(access_.users);
}

bool NetSnmpAgent::registerObjects() {
    const std::vector<oid> root{1, 3, 6, 1};
    netsnmp_handler_registration* registration = netsnmp_create_handler_registration(
        kName, handle, root.data(), root.size(), HANDLER_CAN_RWRITE);
    if (registration == nullptr) {
        return false;
    }
    registration->handler->myvoid = this;
    return netsnmp_register_handler(registration) == MIB_REGISTERED_OK;
}

void NetSnmpAgent::serve(int stopDescriptor) {
    serving_ = true;
    const auto stop = [](int, void* self) { static_cast<NetSnmpAgent*>(self)->serving_ = false; };
    register_readfd(stopDescriptor, stop, this);
    while (serving_) {
        agent_check_and_process(1);
    }
    unregister_readfd(stopDescriptor);
}

int NetSnmpAgent::checkAccess(int, int minor, void* parameters, void* access) {
    auto& view = *static_cast<view_parameters*>(parameters);
    const auto& rules = *static_cast<const Access*>(access);
    const netsnmp_pdu& pdu = *view.pdu;
    // The first check of a message only asks who sent it.
    const bool write = pdu.command == SNMP_MSG_SET && minor == SNMPD_CALLBACK_ACM_CHECK;
    bool allowed = false;
    if (pdu.version == SNMP_VERSION_3) {
        const std::string name(pdu.securityName, pdu.securityNameLen);
        allowed = rules.allowsUser(name, static_cast<SecurityLevel>(pdu.securityLevel), write);
    } else {
        const std::string name(pdu.community, pdu.community + pdu.community_len);
        allowed = rules.allowsCommunity(name, write);
    }
    view.errorcode = allowed ? VACM_SUCCESS : write ? VACM_NOTINVIEW : VACM_NOSECNAME;
    return SNMP_ERR_NOERROR;
}

int NetSnmpAgent::handle(netsnmp_mib_handler* handler, netsnmp_handler_registration*,
                         netsnmp_agent_request_info* info, netsnmp_request_info* requests) {
    auto& self = *static_cast<NetSnmpAgent*>(handler->myvoid);
    switch (info->mode) {
    case MODE_GET:
    case MODE_GETNEXT:
        for (auto* request = requests; request != nullptr; request = request->next) {
            if (request->processed == 0) {
                info->mode == MODE_GET ? self.get(info, request) : self.getNext(request);
            }
        }
        break;
    case MODE_SET_RESERVE1:
        self.prepareSet(info, requests);
        break;
    case MODE_SET_ACTION:
        self.undo_ = self.store_.apply(std::exchange(self.pending_, {}));
        break;
    case MODE_SET_UNDO:
        self.store_.apply(std::exchange(self.undo_, {}));
        break;
    default:
        break;
    }
    return SNMP_ERR_NOERROR;
}

void NetSnmpAgent::get(netsnmp_agent_request_info* info, netsnmp_request_info* request) const {
    netsnmp_variable_list& variable = *request->requestvb;
    const Oid name = fromNetSnmp(variable.name, variable.name_length);
    const Value* value = store_.find(name);
    if (value != nullptr && value->tag != Tag::null) {
        setValue(variable, *value);
    } else {
        const bool known = value != nullptr || store_.objects().find(name) != nullptr;
        netsnmp_set_request_error(info, request, known ? SNMP_NOSUCHINSTANCE : SNMP_NOSUCHOBJECT);
    }
}

void NetSnmpAgent::getNext(netsnmp_request_info* request) const {
    netsnmp_variable_list& variable = *request->requestvb;
    const Oid name = fromNetSnmp(variable.name, variable.name_length);
    if (const auto* entry = store_.next(name, request->inclusive != 0)) {
        const std::vector<oid> found = toNetSnmp(entry->first);
        snmp_set_var_objid(&variable, found.data(), found.size());
        setValue(variable, entry->second);
    }
}

void NetSnmpAgent::prepareSet(netsnmp_agent_request_info* info, netsnmp_request_info* requests) {
    VarBinds bindings;
    std::vector<netsnmp_request_info*> sources;
    for (auto* request = requests; request != nullptr; request = request->next) {
        bindings.push_back(bindingOf(*request->requestvb));
        sources.push_back(request);
    }
    auto changes = store_.prepare(bindings);
    if (!changes) {
        const SetFailure& failure = changes.failure();
        netsnmp_set_request_error(info, sources[failure.index], static_cast<int>(failure.status));
        return;
    }
    pending_ = std::move(changes).value();
}

} // namespace

Result<std::unique_ptr<Agent>> Agent::open(Store& store, Access access, const Endpoint& endpoint) {
    auto agent = std::make_unique<NetSnmpAgent>(store, std::move(access));
    if (const Result<void> listening = agent->listen(endpoint); !listening) {
        return Error{listening.error()};
    }
    return std::unique_ptr<Agent>(std::move(agent));
}

} // namespace onudesk::sim
