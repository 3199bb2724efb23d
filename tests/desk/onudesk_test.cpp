// SPDX-License-Identifier: MIT
//
// The program itself, as a process.
#include "host/desk/program.h"

#include "support/client_tree.h"

#include <QProcess>

#include <gtest/gtest.h>

namespace onudesk::desk {

namespace {

struct Ended {
    int status = -1;
    std::string out;
    std::string err;
};

Ended runOnudesk(const QStringList& arguments, const QStringList& withoutVariables = {}) {
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& variable : withoutVariables) {
        environment.remove(variable);
    }
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(ONUDESK_PROGRAM), arguments);
    if (!program.waitForFinished() || program.exitStatus() != QProcess::NormalExit) {
        return {};
    }
    return {program.exitCode(), program.readAllStandardOutput().toStdString(),
            program.readAllStandardError().toStdString()};
}

const QStringList kDisplayVariables = {QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("DISPLAY"),
                                       QStringLiteral("WAYLAND_DISPLAY")};

TEST(Onudesk, HelpAndVersionNeedNoDisplay) {
    const Ended help = runOnudesk({QStringLiteral("--help")}, kDisplayVariables);
    EXPECT_EQ(help.status, exitOk);
    EXPECT_EQ(help.out.find("usage: onudesk "), 0U) << help.out;
    const Ended version = runOnudesk({QStringLiteral("--version")}, kDisplayVariables);
    EXPECT_EQ(version.status, exitOk);
    EXPECT_EQ(version.out.find("onudesk "), 0U) << version.out;
}

TEST(Onudesk, SaysSoWhenThereIsNoDisplay) {
    const Ended ended = runOnudesk({}, kDisplayVariables);
    EXPECT_EQ(ended.status, exitNoDisplay);
    EXPECT_EQ(ended.err.find("onudesk: no display"), 0U) << ended.err;
}

TEST(Onudesk, RefusesArgumentsItDoesNotKnow) {
    const Ended ended = runOnudesk({QStringLiteral("--bogus")});
    EXPECT_EQ(ended.status, exitUsage);
    EXPECT_TRUE(ended.err.ends_with("onudesk: unknown argument --bogus\n")) << ended.err;
}

TEST(Onudesk, NamesARecordingItCannotUse) {
    const test::TemporaryDirectory directory;
    const auto file = directory.write("bad.snmprec", "1.3.6.1|99|x\n");
    const Ended ended = runOnudesk({QString::fromStdString("--sim=" + file.string())});
    EXPECT_EQ(ended.status, exitClientFailed);
    EXPECT_NE(ended.err.find("bad.snmprec:1:"), std::string::npos) << ended.err;
}

} // namespace

} // namespace onudesk::desk
