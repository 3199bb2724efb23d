// SPDX-License-Identifier: MIT
//
// Whole programs, from start to end, in turns: onuctl showing the basic page, snmpget asking for
// the same objects, and a Qt program that only shows an empty window. Then the memory of the
// window.
#include "host/client_host.h"
#include "measure.h"
#include "snmp/object_schema.h"

#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

namespace {

using onudesk::bench::median;
using onudesk::bench::Run;
using onudesk::bench::run;

constexpr int kRounds = 31;
const std::filesystem::path kClient = BENCH_CLIENT_DIR;

std::vector<std::string> snmpget(const std::string& peer, bool v3) {
    std::vector<std::string> words{"snmpget", "-Oqv"};
    const std::vector<std::string> access = v3 ? std::vector<std::string>{"-v3",
                                                                          "-lauthPriv",
                                                                          "-uadmin",
                                                                          "-aSHA",
                                                                          "-Ademo-auth-phrase",
                                                                          "-xDES",
                                                                          "-Xdemo-priv-phrase"}
                                               : std::vector<std::string>{"-v2c", "-cpublic"};
    words.insert(words.end(), access.begin(), access.end());
    words.push_back(peer);
    const auto schema = onudesk::loadSchema(kClient / "CONF/snmp/snmpconfig.xml");
    for (const auto& object : schema->at(606).front().objects) {
        words.push_back(object.object.oidstr + ".1.2.5");
    }
    return words;
}

void compareStarts(const std::string& peer, bool v3, const std::string& bareQt) {
    std::vector<double> ctl;
    std::vector<double> get;
    std::vector<double> qt;
    const std::vector<std::string> show = {kClient / "bin/onuctl",
                                           "--agent",
                                           peer,
                                           "-v",
                                           v3 ? "3" : "2c",
                                           "--onu",
                                           "1.2.5",
                                           "show",
                                           "606"};
    for (int round = 0; round < kRounds; ++round) {
        const Run shown = run(show);
        const Run got = run(snmpget(peer, v3));
        const Run empty = run({bareQt});
        if (shown.status != 0 || got.status != 0 || empty.status != 0) {
            std::printf("a program failed: onuctl %d, snmpget %d, bare_qt %d\n", shown.status,
                        got.status, empty.status);
            return;
        }
        ctl.push_back(shown.milliseconds);
        get.push_back(got.milliseconds);
        qt.push_back(empty.milliseconds);
    }
    const double limit = 2 * median(get) + median(qt);
    std::printf("cold %s: onuctl %.1f ms; snmpget %.1f ms; bare Qt %.1f ms; "
                "limit 2 x snmpget + Qt = %.1f ms; onuctl / limit %.2f\n",
                v3 ? "v3" : "v2c", median(ctl), median(get), median(qt), limit,
                median(ctl) / limit);
}

} // namespace

int main(int /*argc*/, char** argv) {
    auto agent = onudesk::host::AgentLauncher::start(onudesk::host::demoAgent(kClient));
    if (!agent) {
        std::cerr << agent.error() << '\n';
        return 1;
    }
    const std::filesystem::path here = std::filesystem::absolute(argv[0]).parent_path();
    const std::string peer = "127.0.0.1:" + std::to_string(agent->port());
    // Demonstration access for onuctl, which takes secrets from no argument.
    for (const auto& [name, value] :
         {std::pair("READ_COMMUNITY", "public"), std::pair("V3_USER", "admin"),
          std::pair("V3_LEVEL", "authPriv"), std::pair("V3_AUTH_PROTOCOL", "SHA"),
          std::pair("V3_AUTH_PASSPHRASE", "demo-auth-phrase"), std::pair("V3_PRIV_PROTOCOL", "DES"),
          std::pair("V3_PRIV_PASSPHRASE", "demo-priv-phrase")}) {
        ::setenv((std::string("ONUDESK_") + name).c_str(), value, 1);
    }
    compareStarts(peer, false, here / "bare_qt");
    compareStarts(peer, true, here / "bare_qt");
    const Run window = run({here / "page_bench", "--memory"});
    const Run empty = run({here / "bare_qt"});
    std::printf("memory: window with page %ld kB; empty Qt window %ld kB; difference %.1f MB "
                "(limit 15)\n",
                std::stol(window.output), std::stol(empty.output),
                static_cast<double>(std::stol(window.output) - std::stol(empty.output)) / 1024);
    return 0;
}
