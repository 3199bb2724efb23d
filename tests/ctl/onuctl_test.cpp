// SPDX-License-Identifier: MIT
//
// The real program, from its command line to its exit status.
#include "ctl/exit_code.h"
#include "support/client_tree.h"

#include <fstream>
#include <sstream>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <gtest/gtest.h>

namespace onudesk::ctl {
namespace {

struct Outcome {
    int status = -1;
    QByteArray out;
    QByteArray err;
};

Outcome onuctl(const QStringList& arguments, const QStringList& environment = {}) {
    QProcess process;
    process.setEnvironment(QProcess::systemEnvironment() + environment);
    process.start(QStringLiteral(ONUCTL_FILE), arguments);
    EXPECT_TRUE(process.waitForFinished(60000));
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput(), process.readAllStandardError()};
}

QStringList words(const char* text) {
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

QJsonObject json(const QByteArray& text) {
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << text.toStdString();
    return document.object();
}

TEST(Onuctl, ShowsTheBasicPageOverEverySnmpVersion) {
    for (const char* version : {"1", "2c", "3"}) {
        SCOPED_TRACE(version);
        const Outcome outcome =
            onuctl(words("--sim --onu 1.2.5 --json -v") + words(version) + words("show 606"));
        ASSERT_EQ(outcome.status, exitOk) << outcome.err.toStdString();
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
    const Outcome outcome =
        onuctl(words("--sim --onu 1.2.5 --trace") + QStringList{QString::fromStdString(file)} +
               words("-v 3 show 606"));
    ASSERT_EQ(outcome.status, exitOk) << outcome.err.toStdString();
    std::ifstream trace(file);
    std::vector<QJsonObject> lines;
    std::string all;
    for (std::string line; std::getline(trace, line);) {
        lines.push_back(json(QByteArray::fromStdString(line)));
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
    const Outcome text = onuctl(words("--sim --onu 1.2.5 items"));
    ASSERT_EQ(text.status, exitOk) << text.err.toStdString();
    EXPECT_TRUE(text.out.contains("606 Basic Information\n"));
    const Outcome chinese = onuctl(words("--sim --onu 1.2.5 --locale 2052 --json items"));
    ASSERT_EQ(chinese.status, exitOk);
    bool found = false;
    for (const QJsonValue& item : json(chinese.out)[QLatin1String("items")].toArray()) {
        if (item[QLatin1String("item")] == 606) {
            found = true;
            EXPECT_NE(item[QLatin1String("caption")], QStringLiteral("Basic Information"));
            EXPECT_FALSE(item[QLatin1String("caption")].toString().isEmpty());
        }
    }
    EXPECT_TRUE(found);
}

TEST(Onuctl, SavesPictures) {
    const test::TemporaryDirectory directory;
    const auto file = directory.path() / "page.png";
    const Outcome outcome = onuctl(words("--sim --onu 1.2.5 screenshot 606") +
                                   QStringList{QString::fromStdString(file.string())});
    ASSERT_EQ(outcome.status, exitOk) << outcome.err.toStdString();
    EXPECT_GT(std::filesystem::file_size(file), 10000U);
    EXPECT_EQ(onuctl(words("--sim --onu 1.2.5 screenshot 606 /nowhere/page.png")).status,
              exitClientFailed);
}

TEST(Onuctl, ExitStatusTellsWhatWentWrong) {
    struct Case {
        const char* arguments;
        QStringList environment;
        int status;
        const char* told;
    };
    const Case cases[] = {
        {"--sim --onu 1.2.5 show 4711", {}, exitUsage, "the menu has no such item"},
        {"--sim --onu 1.2.5 show 826", {}, exitUsage, "there is no page"},
        {"--sim --onu 9.9.9 show 606", {}, exitAgentError, "noSuch"},
        {"--sim --onu 1.2.5 show", {}, exitUsage, "wrong number of arguments"},
        {"--sim=/nowhere.snmprec --onu 1.2.5 show 606", {}, exitClientFailed, "/nowhere.snmprec"},
        {"--sim --client /nowhere --onu 1.2.5 show 606", {}, exitClientFailed, "/nowhere"},
        {"--sim --secrets /nowhere --onu 1.2.5 show 606", {}, exitUsage, "/nowhere"},
        {"--sim --trace /nowhere/t --onu 1.2.5 show 606", {}, exitClientFailed, "/nowhere/t"},
        {"--sim -v 3 --onu 1.2.5 show 606",
         {QStringLiteral("ONUDESK_V3_USER=nobody")},
         exitConnectionFailed,
         "unknown user"},
        {"--sim -v 3 --onu 1.2.5 show 606",
         {QStringLiteral("ONUDESK_V3_AUTH_PASSPHRASE=wrong-phrase")},
         exitConnectionFailed,
         "wrong digest"},
        {"--sim -v 3 --onu 1.2.5 show 606",
         {QStringLiteral("ONUDESK_V3_AUTH_PASSPHRASE=short")},
         exitUsage,
         "8"},
    };
    for (const Case& expected : cases) {
        SCOPED_TRACE(expected.arguments);
        const Outcome outcome = onuctl(words(expected.arguments), expected.environment);
        EXPECT_EQ(outcome.status, expected.status) << outcome.err.toStdString();
        EXPECT_TRUE(outcome.err.contains(expected.told)) << outcome.err.toStdString();
    }
}

} // namespace
} // namespace onudesk::ctl
