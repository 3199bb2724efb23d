// SPDX-License-Identifier: MIT
//
// The program itself, as a process.
#include "desk/program.h"

#include "support/client_tree.h"
#include "support/program.h"

namespace onudesk::desk {

namespace {

// Without any display.
test::Finished runOnudesk(const std::string& arguments) {
    QStringList environment = QProcess::systemEnvironment();
    environment.removeIf([](const QString& variable) {
        return variable.startsWith(QLatin1String("QT_QPA_PLATFORM=")) ||
               variable.startsWith(QLatin1String("DISPLAY=")) ||
               variable.startsWith(QLatin1String("WAYLAND_DISPLAY="));
    });
    return test::run(ONUDESK_PROGRAM, test::words(arguments), environment);
}

TEST(Onudesk, ExitStatusAndErrorTellWhatWentWrong) {
    const test::TemporaryDirectory directory;
    const auto file = directory.write("bad.snmprec", "1.3.6.1|99|x\n").string();
    struct Case {
        std::string arguments;
        int status;
        const char* told;
    };
    const Case rows[] = {
        {"--help", exitOk, "usage: onudesk "},
        {"--version", exitOk, "onudesk 0.1.0\n"},
        {"", exitNoDisplay, "onudesk: no display"},
        {"--bogus -platform offscreen", exitUsage, "onudesk: unexpected argument --bogus\n"},
        {"-platform offscreen --sim=" + file, exitClientFailed, "bad.snmprec:1:"},
    };
    for (const Case& row : rows) {
        const test::Finished run = runOnudesk(row.arguments);
        EXPECT_EQ(run.status, row.status) << row.arguments;
        const std::string& said = row.status == exitOk ? run.out : run.err;
        EXPECT_NE(said.find(row.told), std::string::npos) << run.out << run.err;
    }
}

} // namespace

} // namespace onudesk::desk
