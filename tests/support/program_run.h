// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <QProcess>

#include <gtest/gtest.h>

namespace onudesk::test {

// How a program ended; -1 when a signal did it.
struct ProgramRun {
    int status = -1;
    std::string out{};
    std::string err{};
};

inline ProgramRun finish(QProcess& process) {
    EXPECT_TRUE(process.waitForFinished(60000));
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

// Arguments are separated by blanks.
inline ProgramRun run(const char* program, const std::string& arguments,
                      const QStringList& environment = QProcess::systemEnvironment(),
                      const std::string& input = {}) {
    QProcess process;
    process.setEnvironment(environment);
    process.start(QString::fromLatin1(program),
                  QString::fromStdString(arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts));
    process.write(QByteArray::fromStdString(input));
    process.closeWriteChannel();
    return finish(process);
}

} // namespace onudesk::test
