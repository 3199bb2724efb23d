// SPDX-License-Identifier: MIT
//
// The real program, from its command line to its exit status.
#include "ctl/exit_code.h"
#include "support/client_tree.h"
#include "support/program_run.h"

#include <fstream>
#include <sstream>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace onudesk::ctl {
namespace {

using test::ProgramRun;

ProgramRun onuctl(const std::string& arguments, const QStringList& environment = {}) {
    return test::run(ONUCTL_FILE, "--sim --onu 1.2.5 " + arguments,
                     QProcess::systemEnvironment() + environment);
}

QJsonObject json(const std::string& text) {
    QJsonParseError error{};
    const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(text), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << text;
    return document.object();
}

TEST(Onuctl, ShowsTheBasicPageOverEverySnmpVersion) {
    for (const char* version : {"1", "2c", "3"}) {
        SCOPED_TRACE(version);
        const ProgramRun outcome = onuctl(std::string("--json -v ") + version + " show 606");
        ASSERT_EQ(outcome.status, exitOk) << outcome.err;
        const QJsonObject page = json(outcome.out);
        EXPECT_EQ(page[QLatin1String("item")], 606);
        EXPECT_EQ(page[QLatin1String("class")], QStringLiteral("TOnuBasic"));
        EXPECT_EQ(page[QLatin1String("caption")], QStringLiteral("Basic Information"));
        EXPECT_TRUE(page[QLatin1String("boxes")].toArray().isEmpty());
        const QJsonObject controls = page[QLatin1String("controls")].toObject();
        for (const char* name : {"llidEdt", "rttEdit", "timeEdit", "nameEdit", "macEdit",
                                 "serviceMemo", "numgeEdit", "mapgeEdit", "batteryEdit"}) {
            const QJsonObject control = controls[QLatin1String(name)].toObject();
            EXPECT_FALSE(control[QLatin1String("text")].toString().isEmpty()) << name;
            EXPECT_TRUE(control[QLatin1String("visible")].toBool()) << name;
        }
        EXPECT_EQ(controls[QLatin1String("macBtn")].toObject()[QLatin1String("visible")], false)
            << "the ONU is registered";
    }
}

TEST(Onuctl, TraceHoldsRequestAndReplyAndNoSecret) {
    const test::TemporaryDirectory directory;
    const std::string file = (directory.path() / "trace.jsonl").string();
    const ProgramRun outcome = onuctl("--trace " + file + " -v 3 show 606");
    ASSERT_EQ(outcome.status, exitOk) << outcome.err;
    std::ifstream trace(file);
    std::vector<QJsonObject> lines;
    std::string all;
    for (std::string line; std::getline(trace, line);) {
        lines.push_back(json(line));
        all += line;
    }
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0][QLatin1String("dir")], QStringLiteral("request"));
    EXPECT_EQ(lines[0][QLatin1String("kind")], QStringLiteral("read"));
    EXPECT_EQ(lines[0][QLatin1String("suffix")], QStringLiteral(".1.2.5"));
    EXPECT_EQ(lines[1][QLatin1String("dir")], QStringLiteral("reply"));
    EXPECT_EQ(lines[1][QLatin1String("result")], QStringLiteral("maintable"));
    EXPECT_EQ(lines[1][QLatin1String("status")], 1);
    EXPECT_EQ(lines[1][QLatin1String("values")].toArray().size(), 22);
    for (const char* secret : {"demo-auth-phrase", "demo-priv-phrase", "private"}) {
        EXPECT_EQ(all.find(secret), std::string::npos) << secret;
    }
}

TEST(Onuctl, ListsTheItemsOfTheMenu) {
    const ProgramRun text = onuctl("items");
    ASSERT_EQ(text.status, exitOk) << text.err;
    EXPECT_NE(text.out.find("606 Basic Information\n"), std::string::npos);
    const ProgramRun chinese = onuctl("--locale 2052 --json items");
    ASSERT_EQ(chinese.status, exitOk);
    QString caption;
    for (const QJsonValue& item : json(chinese.out)[QLatin1String("items")].toArray()) {
        if (item[QLatin1String("item")] == 606) {
            caption = item[QLatin1String("caption")].toString();
        }
    }
    EXPECT_FALSE(caption.isEmpty());
    EXPECT_NE(caption, QStringLiteral("Basic Information"));
}

TEST(Onuctl, SavesPictures) {
    const test::TemporaryDirectory directory;
    const auto file = directory.path() / "page.png";
    const ProgramRun outcome = onuctl("screenshot 606 " + file.string());
    ASSERT_EQ(outcome.status, exitOk) << outcome.err;
    EXPECT_GT(std::filesystem::file_size(file), 10000U);
    EXPECT_EQ(onuctl("screenshot 606 /nowhere/page.png").status, exitClientFailed);
}

TEST(Onuctl, ExitStatusTellsWhatWentWrong) {
    struct Case {
        const char* arguments;
        const char* secret; // in the environment
        int status;
        const char* told;
    };
    const Case cases[] = {
        {"show 4711", {}, exitUsage, "the menu has no such item"},
        {"show 826", {}, exitUsage, "there is no page"},
        {"--onu 9.9.9 show 606", {}, exitAgentError, "noSuch"},
        {"show", {}, exitUsage, "onuctl: ITEM is required\n"},
        {"--sim=/nowhere.snmprec show 606", {}, exitClientFailed, "/nowhere.snmprec"},
        {"--client /nowhere show 606", {}, exitClientFailed, "/nowhere"},
        {"--secrets /nowhere show 606", {}, exitUsage, "/nowhere"},
        {"--trace /nowhere/t show 606", {}, exitClientFailed, "/nowhere/t"},
        {"-v 3 show 606", "V3_USER=nobody", exitConnectionFailed, "unknown user"},
        {"-v 3 show 606", "V3_AUTH_PASSPHRASE=wrong-phrase", exitConnectionFailed, "wrong digest"},
        {"-v 3 show 606", "V3_AUTH_PASSPHRASE=short", exitUsage, "8"},
    };
    for (const Case& expected : cases) {
        SCOPED_TRACE(expected.arguments);
        const ProgramRun outcome = onuctl(
            expected.arguments, {QStringLiteral("ONUDESK_") + QLatin1String(expected.secret)});
        EXPECT_EQ(outcome.status, expected.status) << outcome.err;
        EXPECT_NE(outcome.err.find(expected.told), std::string::npos) << outcome.err;
    }
}

} // namespace
} // namespace onudesk::ctl
