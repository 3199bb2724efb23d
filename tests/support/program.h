// SPDX-License-Identifier: MIT
#pragma once

#include <csignal>
#include <string>

#include <QProcess>

#include <gtest/gtest.h>

namespace onudesk::test {

// How a program ended, -1 when a signal did it, and all it said.
struct Finished {
    int status = -1;
    std::string out{};
    std::string err{};
};

// A child process, killed in the end should it still run.
class Program {
public:
    explicit Program(const std::string& file, const QStringList& arguments,
                     const QStringList& environment = QProcess::systemEnvironment(),
                     const std::string& input = {}) {
        process_.setEnvironment(environment);
        process_.start(QString::fromStdString(file), arguments);
        process_.write(QByteArray::fromStdString(input));
        process_.closeWriteChannel();
    }

    // Reads up to the first line with the text, and returns it; empty when there comes none.
    std::string lineWith(QProcess::ProcessChannel channel, const std::string& text) {
        process_.setReadChannel(channel);
        std::string& said = channel == QProcess::StandardOutput ? said_.out : said_.err;
        while (process_.canReadLine() || process_.waitForReadyRead(kPatience)) {
            const std::string line = process_.readLine().toStdString();
            said += line;
            if (line.find(text) != std::string::npos) {
                return line;
            }
        }
        return {};
    }
    [[nodiscard]] pid_t id() const { return static_cast<pid_t>(process_.processId()); }
    Finished finish(int signal = 0) {
        if (signal != 0) {
            ::kill(id(), signal);
        }
        EXPECT_TRUE(process_.state() == QProcess::NotRunning ||
                    process_.waitForFinished(kPatience));
        said_.status = process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
        said_.out += process_.readAllStandardOutput().toStdString();
        said_.err += process_.readAllStandardError().toStdString();
        return said_;
    }

private:
    static constexpr int kPatience = 60000; // milliseconds

    QProcess process_;
    Finished said_;
};

inline Finished run(const std::string& file, const QStringList& arguments,
                    const QStringList& environment = QProcess::systemEnvironment(),
                    const std::string& input = {}) {
    return Program(file, arguments, environment, input).finish();
}

// Arguments separated by blanks.
inline QStringList words(const std::string& arguments) {
    return QString::fromStdString(arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace onudesk::test
