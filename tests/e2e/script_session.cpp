// SPDX-License-Identifier: MIT
#include "script_session.h"

#include "env/language_module.h"
#include "host/client_host.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

#include <QTemporaryFile>

#include <gtest/gtest.h>

namespace onudesk::test {

namespace {

QString text(const std::string& bytes) {
    return QString::fromStdString(bytes);
}

// Puts the other text in place of all that are the first one.
void replaceAll(std::string& text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

// A step of a script of this folder as onuctl takes it.
std::string stepOf(const std::string& words, const LanguageModule& language) {
    std::string step = words;
    if (words.starts_with("page ")) {
        step = "open " + words.substr(5) + "\nwait";
    } else if (words.starts_with("done ")) {
        step = "click " + words.substr(5) +
               "\nwait\nexpect box information {11001} \"{11045}{11002}\"";
    }
    for (std::size_t at = step.find('{'); at != std::string::npos; at = step.find('{', at)) {
        const std::size_t end = step.find('}', at);
        std::string text = language.text(std::stoi(step.substr(at + 1, end - at - 1)));
        replaceAll(text, "\n", "\\n");
        const bool quoted =
            std::count(step.begin(), step.begin() + std::ptrdiff_t(at), '"') % 2 != 0;
        step.replace(at, end + 1 - at, quoted ? text : '"' + text + '"');
    }
    return step;
}

// The access that the demonstration agent takes, for onuctl.
QStringList demoEnvironment() {
    host::OnuTarget target;
    host::useDemoAccess(target);
    const std::pair<const char*, std::string> settings[] = {
        {"READ_COMMUNITY", target.readCommunity},
        {"WRITE_COMMUNITY", target.writeCommunity},
        {"V3_USER", target.v3.user},
        {"V3_LEVEL", "authPriv"},
        {"V3_AUTH_PROTOCOL", "SHA"},
        {"V3_AUTH_PASSPHRASE", target.v3.authPassphrase},
        {"V3_PRIV_PROTOCOL", "DES"},
        {"V3_PRIV_PASSPHRASE", target.v3.privPassphrase},
    };
    QStringList environment = QProcess::systemEnvironment();
    for (const auto& [name, value] : settings) {
        environment << text(std::string("ONUDESK_") + name + '=' + value);
    }
    return environment;
}

} // namespace

ScriptSession::ScriptSession() {
    auto agent = host::AgentLauncher::start(host::demoAgent(ONUDESK_BUILD_CLIENT_DIR));
    if (agent) {
        agent_.emplace(std::move(agent).value());
    } else {
        ADD_FAILURE() << agent.error();
    }
}

Finished ScriptSession::run(const std::string& script, const std::string& onu,
                            const std::string& version,
                            const std::vector<std::string>& options) const {
    QStringList arguments = {
        QStringLiteral("--agent"), QStringLiteral("127.0.0.1:%1").arg(agent_ ? agent_->port() : 1),
        QStringLiteral("-v"),      text(version),
        QStringLiteral("--onu"),   text(onu)};
    for (const std::string& option : options) {
        arguments << text(option);
    }
    const bool chinese = std::ranges::count(options, "2052") != 0;
    const LanguageModule language =
        LanguageModule::load(std::string(ONUDESK_SOURCE_DIR "/client/lang/libonuconfig.") +
                             (chinese ? "CHS" : "ENU"))
            .value();
    std::ifstream in(E2E_SCRIPT_DIR "/" + script);
    EXPECT_TRUE(in) << script;
    QTemporaryFile steps;
    EXPECT_TRUE(steps.open());
    std::string lines((std::istreambuf_iterator<char>(in)), {});
    replaceAll(lines, " ; ", "\n");
    std::istringstream all(lines);
    for (std::string line; std::getline(all, line);) {
        steps.write((stepOf(line, language) + '\n').c_str());
    }
    steps.close();
    arguments << QStringLiteral("run") << steps.fileName();
    return test::run(ONUCTL_FILE, arguments, demoEnvironment());
}

std::string ScriptSession::get(const std::string& oid) const {
    const Finished tool = test::run(
        "snmpget", {QStringLiteral("-v2c"), QStringLiteral("-cpublic"), QStringLiteral("-Oqv"),
                    QStringLiteral("127.0.0.1:%1").arg(agent_ ? agent_->port() : 1), text(oid)});
    EXPECT_EQ(tool.status, 0) << tool.err;
    return tool.out.substr(0, tool.out.find_last_not_of('\n') + 1);
}

} // namespace onudesk::test
