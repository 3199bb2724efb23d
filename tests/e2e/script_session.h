// SPDX-License-Identifier: MIT
#pragma once

#include "host/agent_launcher.h"
#include "support/program.h"

#include <optional>
#include <string>
#include <vector>

namespace onudesk::test {

// A simulated agent with the demonstration recording, the scripts that onuctl runs against it, and
// what snmpget finds on it.
class ScriptSession {
public:
    // Fails the test when the agent does not start.
    ScriptSession();

    // Runs tests/e2e/SCRIPT, whose steps stand behind each other with " ; " between them; `page
    // ITEM` opens it and waits, `done BUTTON` waits for a write that goes well, {11007} is that
    // message in the language of the options. On an ONU ("1.2.5") with an SNMP version ("1", "2c",
    // "3") and further options of onuctl.
    [[nodiscard]] Finished run(const std::string& script, const std::string& onu,
                               const std::string& version,
                               const std::vector<std::string>& options = {}) const;
    // The object's value as `snmpget -Oqv` prints it, without the line break.
    [[nodiscard]] std::string get(const std::string& oid) const;

private:
    std::optional<host::AgentLauncher> agent_;
};

} // namespace onudesk::test
