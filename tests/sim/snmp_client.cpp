// SPDX-License-Identifier: MIT
#include "snmp_client.h"

#include "snmp/wire/variable.h"

#include <cstdlib>
#include <stdexcept>

namespace onudesk::sim::test {

namespace {

constexpr std::size_t kLongestWalk = 100000; // no recording of the tests has as many values

struct PduDelete {
    void operator()(netsnmp_pdu* pdu) const { snmp_free_pdu(pdu); }
};
using Pdu = std::unique_ptr<netsnmp_pdu, PduDelete>;

void startLibraryOnce() {
    static const bool started = [] {
        for (const char* variable : {"MIBS", "MIBDIRS", "MIBFILES"}) {
            ::setenv(variable, "", 1);
        }
        for (const int option :
             {NETSNMP_DS_LIB_DONT_READ_CONFIGS, NETSNMP_DS_LIB_DONT_PERSIST_STATE,
              NETSNMP_DS_LIB_DONT_LOAD_HOST_FILES}) {
            netsnmp_ds_set_boolean(NETSNMP_DS_LIBRARY_ID, option, 1);
        }
        init_snmp("onusim_test");
        return true;
    }();
    static_cast<void>(started);
}

std::string bindingText(const netsnmp_variable_list& variable) {
    const std::string name = fromNetSnmp(variable.name, variable.name_length).text() + "|";
    switch (variable.type) {
    case SNMP_NOSUCHOBJECT:
        return name + "noSuchObject";
    case SNMP_NOSUCHINSTANCE:
        return name + "noSuchInstance";
    case SNMP_ENDOFMIBVIEW:
        return name + "endOfMibView";
    default:
        return name + recordedText(valueOf(variable));
    }
}

std::vector<oid> oidOf(const std::string& text) {
    return toNetSnmp(Oid::parseWhole(text).value());
}

} // namespace

struct SnmpClient::Session {
    explicit Session(netsnmp_session wanted) : handle(snmp_sess_open(&wanted)) {
        if (handle == nullptr) {
            throw std::runtime_error("no session");
        }
    }
    ~Session() { snmp_sess_close(handle); }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    Reply send(Pdu pdu) const {
        netsnmp_pdu* received = nullptr;
        const int state = snmp_sess_synch_response(handle, pdu.release(), &received);
        const Pdu reply(received);
        if (state == STAT_TIMEOUT) {
            return {"Timeout"};
        }
        if (state != STAT_SUCCESS || reply == nullptr) {
            char* text = nullptr;
            snmp_sess_error(handle, nullptr, nullptr, &text);
            const std::unique_ptr<char, decltype(&std::free)> reason(text, &std::free);
            return {reason ? reason.get() : "no reply"};
        }
        Reply answer{"ok"};
        if (reply->errstat != SNMP_ERR_NOERROR) {
            answer.outcome = "status " + std::to_string(reply->errstat) + " at " +
                             std::to_string(reply->errindex);
        }
        for (const auto* each = reply->variables; each != nullptr; each = each->next_variable) {
            answer.bindings.push_back(bindingText(*each));
        }
        return answer;
    }

    void* handle;
};

SnmpClient::SnmpClient(const std::string& endpoint, int version, const std::string& community) {
    startLibraryOnce();
    std::string peer = "udp:" + endpoint;
    std::string name = community;
    netsnmp_session session;
    snmp_sess_init(&session);
    session.version = version == 1 ? SNMP_VERSION_1 : SNMP_VERSION_2c;
    session.peername = peer.data();
    session.community = reinterpret_cast<u_char*>(name.data());
    session.community_len = name.size();
    session.timeout = 300'000;
    session.retries = 0;
    session_ = std::make_shared<Session>(session);
}

Reply SnmpClient::request(int command, const std::vector<std::string>& oids, long repetitions) {
    Pdu pdu(snmp_pdu_create(command));
    if (command == SNMP_MSG_GETBULK) {
        pdu->non_repeaters = 0;
        pdu->max_repetitions = repetitions;
    }
    for (const std::string& each : oids) {
        const std::vector<oid> name = oidOf(each);
        snmp_add_null_var(pdu.get(), name.data(), name.size());
    }
    return session_->send(std::move(pdu));
}

Reply SnmpClient::get(const std::vector<std::string>& oids) {
    return request(SNMP_MSG_GET, oids, 0);
}

Reply SnmpClient::getNext(const std::vector<std::string>& oids) {
    return request(SNMP_MSG_GETNEXT, oids, 0);
}

Reply SnmpClient::getBulk(const std::string& oid, int repetitions) {
    return request(SNMP_MSG_GETBULK, {oid}, repetitions);
}

Reply SnmpClient::set(const std::vector<std::string>& bindings) {
    Pdu pdu(snmp_pdu_create(SNMP_MSG_SET));
    for (const std::string& each : bindings) {
        const auto first = each.find('|');
        const auto second = each.find('|', first + 1);
        const std::vector<oid> name = oidOf(each.substr(0, first));
        const auto value =
            parseRecorded(each.substr(first + 1, second - first - 1), each.substr(second + 1));
        setValue(*snmp_add_null_var(pdu.get(), name.data(), name.size()), *value);
    }
    return session_->send(std::move(pdu));
}

std::vector<std::string> SnmpClient::walk(const std::string& oid) {
    std::vector<std::string> bindings;
    std::string at = oid;
    while (true) {
        const Reply reply = getNext({at});
        if (reply.outcome != "ok" || reply.bindings.size() != 1 ||
            reply.bindings.front().ends_with("|endOfMibView")) {
            return bindings;
        }
        bindings.push_back(reply.bindings.front());
        if (bindings.size() > kLongestWalk) {
            throw std::runtime_error("the walk does not end");
        }
        at = bindings.back().substr(0, bindings.back().find('|'));
    }
}

} // namespace onudesk::sim::test
