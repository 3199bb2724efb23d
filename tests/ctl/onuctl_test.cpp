// SPDX-License-Identifier: MIT
//
// The real program, from its command line and standard input to its exit status.
#include "base/file.h"
#include "ctl/exit_code.h"
#include "support/client_tree.h"
#include "support/program.h"
#include "support/silent_port.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace onudesk::ctl {
namespace {

using test::Finished;

Finished onuctl(const std::string& arguments, const std::string& script = {},
                const QStringList& environment = {}) {
    return test::run(ONUCTL_FILE, test::words("--sim --onu 1.2.5 " + arguments),
                     QProcess::systemEnvironment() + environment, script);
}

QJsonObject json(const std::string& text) {
    QJsonParseError error{};
    const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(text), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << text;
    return document.object();
}

QString text(const QJsonObject& object, const char* key) {
    return object[QLatin1String(key)].toString();
}

TEST(Onuctl, ShowsAPageAndTracesWithoutSecrets) {
    const test::TemporaryDirectory directory;
    const auto trace = directory.path() / "trace.jsonl";
    const Finished run = onuctl("--json -v 3 --trace " + trace.string() + " show 606");
    ASSERT_EQ(run.status, exitOk) << run.err;
    const QJsonObject page = json(run.out);
    EXPECT_EQ(page[QLatin1String("item")], 606);
    EXPECT_EQ(text(page, "class"), QStringLiteral("TOnuBasic"));
    EXPECT_EQ(text(page, "caption"), QStringLiteral("Basic Information"));
    EXPECT_TRUE(page[QLatin1String("boxes")].toArray().isEmpty());
    const QJsonObject controls = page[QLatin1String("controls")].toObject();
    for (const char* name : {"llidEdt", "rttEdit", "timeEdit", "nameEdit", "macEdit", "serviceMemo",
                             "numgeEdit", "mapgeEdit", "batteryEdit"}) {
        const QJsonObject control = controls[QLatin1String(name)].toObject();
        EXPECT_FALSE(text(control, "text").isEmpty()) << name;
        EXPECT_TRUE(control[QLatin1String("visible")].toBool()) << name;
    }
    EXPECT_EQ(controls[QLatin1String("macBtn")].toObject()[QLatin1String("visible")], false)
        << "the ONU is registered";

    const std::string traced = readFile(trace).value();
    const auto lineBreak = traced.find('\n');
    const QJsonObject request = json(traced.substr(0, lineBreak));
    const QJsonObject reply = json(traced.substr(lineBreak + 1));
    EXPECT_EQ(text(request, "dir") + text(request, "kind"), QStringLiteral("requestread"));
    EXPECT_EQ(text(request, "suffix"), QStringLiteral(".1.2.5"));
    EXPECT_EQ(text(reply, "dir") + text(reply, "result"), QStringLiteral("replymaintable"));
    EXPECT_EQ(reply[QLatin1String("status")], 1);
    EXPECT_EQ(reply[QLatin1String("values")].toArray().size(), 22);
    for (const char* secret : {"demo-auth-phrase", "demo-priv-phrase", "private"}) {
        EXPECT_EQ(traced.find(secret), std::string::npos) << secret;
    }
}

TEST(Onuctl, ListsTheItemsOfTheMenuInTwoLanguages) {
    const Finished plain = onuctl("items");
    ASSERT_EQ(plain.status, exitOk) << plain.err;
    EXPECT_NE(plain.out.find("606 Basic Information\n"), std::string::npos);
    const Finished chinese = onuctl("--locale 2052 --json items");
    ASSERT_EQ(chinese.status, exitOk);
    QString caption;
    for (const QJsonValue& item : json(chinese.out)[QLatin1String("items")].toArray()) {
        caption = item[QLatin1String("item")] == 606 ? text(item.toObject(), "caption") : caption;
    }
    EXPECT_FALSE(caption.isEmpty());
    EXPECT_NE(caption, QStringLiteral("Basic Information"));
}

TEST(Onuctl, SavesPictures) {
    const test::TemporaryDirectory directory;
    const auto file = directory.path() / "page.png";
    const Finished run = onuctl("screenshot 606 " + file.string());
    ASSERT_EQ(run.status, exitOk) << run.err;
    EXPECT_GT(std::filesystem::file_size(file), 10000U);
}

TEST(Onuctl, ExitStatusAndErrorTellWhatWentWrong) {
    struct Case {
        const char* arguments;
        const char* script; // on standard input
        int status;
        const char* told;
        const char* secret = ""; // in the environment
    };
    const Case cases[] = {
        {"-v 1 show 606", "", exitOk, ""},
        {"show", "", exitUsage, "onuctl: ITEM is required\n"},
        {"show 4711", "", exitUsage, "the menu has no such item"},
        {"show 826", "", exitUsage, "there is no page"},
        {"--onu 9.9.9 show 606", "", exitAgentError, "noSuch"},
        {"screenshot 606 /nowhere/p.png", "", exitClientFailed, "/nowhere/p.png"},
        {"--sim=/nowhere.snmprec show 606", "", exitClientFailed, "/nowhere.snmprec"},
        {"--client /nowhere show 606", "", exitClientFailed, "/nowhere"},
        {"--secrets /nowhere show 606", "", exitUsage, "/nowhere"},
        {"--trace /nowhere/t show 606", "", exitClientFailed, "/nowhere/t"},
        {"-v 3 show 606", "", exitConnectionFailed, "unknown user", "V3_USER=nobody"},
        {"-v 3 show 606", "", exitConnectionFailed, "wrong digest", "V3_AUTH_PASSPHRASE=wrong-one"},
        {"-v 3 show 606", "", exitUsage, "8", "V3_AUTH_PASSPHRASE=short"},
        {"run -", "open 606\nwait\nexpect nameEdit text \"Fire station\"", exitOk, ""},
        {"run -", "", exitOk, ""},
        {"run -", "wait\nfly", exitUsage, "standard input: line 2: unknown step fly"},
        {"run -", "open 826", exitScriptFailed, "standard input: line 1: item 826: there is no"},
        {"run -", "open 4711", exitScriptFailed, "line 1: item 4711: the menu has no such item"},
        {"run -", "open 606\nwait\nclick refreshBtn", exitScriptFailed, "refreshBtn is disabled"},
        {"run -", "open 606\nwait\nclick macBtn", exitScriptFailed, "line 3: macBtn is hidden"},
        {"run -", "open 606\nwait\nset macEdit 1", exitScriptFailed, "macEdit is disabled"},
        {"--watch run -", "# reads\nopen 606\nwait\nexpect writes 0\n", exitOk,
         "2: open 606\n3: wait\n4: expect writes 0\n"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(std::string(row.arguments) + '\n' + row.script);
        const Finished run = onuctl(row.arguments, row.script,
                                    {QStringLiteral("ONUDESK_") + QLatin1String(row.secret)});
        EXPECT_EQ(run.status, row.status) << run.err;
        EXPECT_NE(run.err.find(row.told), std::string::npos) << run.err;
    }
}

// Both directions; the page itself shows the password.
TEST(Onuctl, KeepsThePasswordsOfTheOnuOutOfTraceAndWrites) {
    const Finished run =
        onuctl("--trace - run -",
               "open 823\nwait\nselect modeComb PPPoE\nset passwordEdit hush-hush\n"
               "click configBtn\nwait\nexpect passwordEdit text hush-hush\nprint writes\n");
    EXPECT_EQ(run.status, exitOk) << run.err;
    EXPECT_NE(run.out.find("voipGlobalParamPPPoEpwd 1.3"), std::string::npos) << run.out;
    EXPECT_EQ(run.out.find("hush"), std::string::npos) << run.out;
    EXPECT_EQ(run.out.find("f1restat10n"), std::string::npos) << run.out;
}

TEST(Onuctl, TheSecondSignalEndsTheWaitForAnAgentThatIsSilent) {
    const test::SilentPort silent;
    const std::string agent = "--agent 127.0.0.1:" + std::to_string(silent.port());
    test::Program program(ONUCTL_FILE, test::words(agent + " --onu 1.2.5 --watch run -"),
                          QProcess::systemEnvironment(), "open 606\nwait\n");
    ASSERT_NE(program.lineWith(QProcess::StandardError, "2: wait"), "");
    ::kill(program.id(), SIGTERM);
    ASSERT_NE(program.lineWith(QProcess::StandardError, "standard input: line 2: interrupted"), "");
    const Finished run = program.finish(SIGINT);
    EXPECT_EQ(run.status, exitInterrupted) << run.err;
    EXPECT_EQ(run.err.find("time-out"), std::string::npos);
}

} // namespace
} // namespace onudesk::ctl
