// SPDX-License-Identifier: MIT
//
// The program itself, as a process.
#include "desk/program.h"

#include "support/client_tree.h"
#include "support/program_run.h"

#include <gtest/gtest.h>

namespace onudesk::desk {

namespace {

// Without any display.
test::ProgramRun runOnudesk(const std::string& arguments) {
    QStringList environment = QProcess::systemEnvironment();
    environment.removeIf([](const QString& variable) {
        return variable.startsWith(QLatin1String("QT_QPA_PLATFORM=")) ||
               variable.startsWith(QLatin1String("DISPLAY=")) ||
               variable.startsWith(QLatin1String("WAYLAND_DISPLAY="));
    });
    return test::run(ONUDESK_PROGRAM, arguments, environment);
}

TEST(Onudesk, ExitStatusAndErrorTellWhatWentWrong) {
    const auto help = runOnudesk("--help");
    EXPECT_EQ(help.status, exitOk);
    EXPECT_TRUE(help.out.starts_with("usage: onudesk ")) << help.out;
    const auto version = runOnudesk("--version");
    EXPECT_EQ(version.status, exitOk);
    EXPECT_TRUE(version.out.starts_with("onudesk ")) << version.out;
    const auto blind = runOnudesk("");
    EXPECT_EQ(blind.status, exitNoDisplay);
    EXPECT_TRUE(blind.err.starts_with("onudesk: no display")) << blind.err;
    const auto bogus = test::run(ONUDESK_PROGRAM, "--bogus");
    EXPECT_EQ(bogus.status, exitUsage);
    EXPECT_TRUE(bogus.err.ends_with("onudesk: unexpected argument --bogus\n")) << bogus.err;
    const test::TemporaryDirectory directory;
    const auto file = directory.write("bad.snmprec", "1.3.6.1|99|x\n");
    const auto bad = test::run(ONUDESK_PROGRAM, "--sim=" + file.string());
    EXPECT_EQ(bad.status, exitClientFailed);
    EXPECT_NE(bad.err.find("bad.snmprec:1:"), std::string::npos) << bad.err;
}

} // namespace

} // namespace onudesk::desk
