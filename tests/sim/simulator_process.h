// SPDX-License-Identifier: MIT
#pragma once

#include "support/program.h"

#include <vector>

namespace onudesk::sim::test {

// The real onusim as a child process, which has said its first line.
class SimulatorProcess : public onudesk::test::Program {
public:
    explicit SimulatorProcess(const std::vector<std::string>& arguments)
        : Program(ONUSIM_PROGRAM, list(arguments)) {
        const std::string line = lineWith(QProcess::StandardOutput, kReady);
        endpoint_ = line.substr(std::min(line.size(), kReady.size()));
        endpoint_.resize(endpoint_.empty() ? 0 : endpoint_.size() - 1);
    }

    // ADDRESS:PORT from the line it printed; empty when it ended before.
    [[nodiscard]] const std::string& endpoint() const { return endpoint_; }

private:
    static QStringList list(const std::vector<std::string>& arguments) {
        QStringList list;
        for (const std::string& argument : arguments) {
            list << QString::fromStdString(argument);
        }
        return list;
    }

    inline static const std::string kReady = "listening on ";
    std::string endpoint_;
};

} // namespace onudesk::sim::test
