// SPDX-License-Identifier: MIT
//
// A manager: one Net-SNMP session that waits for its replies.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace onudesk::sim::test {

struct Reply {
    // "ok"; "status N at I" for an error reply; else the library's reason, as in "Timeout".
    std::string outcome{};
    // "OID|tag|value" in the order of the reply; the value of an exception is its name.
    std::vector<std::string> bindings{};
};

class SnmpClient {
public:
    // Versions 1 and 2 (v2c).
    SnmpClient(const std::string& endpoint, int version, const std::string& community);

    Reply get(const std::vector<std::string>& oids);
    Reply getNext(const std::vector<std::string>& oids);
    Reply getBulk(const std::string& oid, int repetitions);
    // Bindings are "OID|tag|value".
    Reply set(const std::vector<std::string>& bindings);
    // All bindings from the first one behind the OID to the end, by GETNEXT.
    std::vector<std::string> walk(const std::string& oid);

private:
    struct Session;
    Reply request(int command, const std::vector<std::string>& oids, long repetitions);

    std::shared_ptr<Session> session_;
};

} // namespace onudesk::sim::test
