// SPDX-License-Identifier: MIT
#include "ctl/program.h"

#include "ctl/commands.h"
#include "ctl/options.h"
#include "ctl/secrets.h"
#include "host/agent_launcher.h"
#include "host/secret_mask.h"
#include "host/trace.h"
#include "onudesk/messages.h"

#include <fstream>
#include <memory>
#include <mutex>
#include <optional>
#include <ostream>
#include <thread>
#include <utility>

#include <QApplication>

namespace onudesk::ctl {

namespace {

using host::AgentLauncher;
using host::ClientHost;

constexpr const char* kVersion = "onuctl 0.1.0\n";

// Writes the trace and keeps the first error, on the engine's thread; read after the engine stopped
// or when it is quiet.
class Observation {
public:
    Observation(std::ostream* trace, host::SecretMask mask)
        : trace_(trace), mask_(std::move(mask)) {}

    host::EngineObserver observer() {
        return {[this](const host::RequestRecord& request) { write(host::traceLine(request)); },
                [this](const host::ReplyRecord& reply) {
                    write(host::traceLine(reply));
                    note(reply.error);
                }};
    }
    [[nodiscard]] host::ReplyError firstError() const {
        const std::scoped_lock lock(mutex_);
        return firstError_;
    }

private:
    void write(const std::string& line) {
        const std::scoped_lock lock(mutex_);
        if (trace_ != nullptr) {
            *trace_ << mask_.apply(line).toStdString() << '\n' << std::flush;
        }
    }
    void note(const host::ReplyError& error) {
        const std::scoped_lock lock(mutex_);
        if (firstError_.text.empty()) {
            firstError_ = error;
        }
    }

    mutable std::mutex mutex_;
    std::ostream* trace_;
    host::SecretMask mask_;
    host::ReplyError firstError_;
};

Result<bool> readSecrets(Options& options) {
    if (options.simulate) {
        host::useDemoAccess(options.target);
    }
    Result<bool> taken = readSecretsEnvironment(options.target);
    if (taken && options.secretsFile) {
        taken = readSecretsFile(*options.secretsFile, options.target);
    }
    return taken;
}

Result<AgentLauncher> startSimulator(Options& options) {
    host::LaunchOptions launch = host::demoAgent(options.clientDirectory);
    launch.recording = options.recording.value_or(launch.recording);
    Result<AgentLauncher> agent = AgentLauncher::start(launch);
    if (agent) {
        options.target.agentAddress = "127.0.0.1";
        options.target.port = agent->port();
    }
    return agent;
}

ExitCode runCommand(const CommandContext& context) {
    switch (context.options.command) {
    case Command::items:
        return listItems(context);
    case Command::show:
        return showPage(context);
    case Command::screenshot:
        return saveScreenshot(context);
    case Command::help:
    case Command::version:
        break;
    }
    return exitOk;
}

ExitCode exitOf(std::int32_t errorStatus) {
    switch (errorStatus) {
    case error_status::badRequest: // settings that no request can be made of
        return exitUsage;
    case error_status::noPlan:
        return exitClientFailed;
    case error_status::walkRefused:
    case error_status::badReply:
        return exitAgentError;
    default:
        return errorStatus > 0 ? exitAgentError : exitConnectionFailed;
    }
}

// An error of the agent or of the way to it outweighs a command that did its part.
ExitCode judge(ExitCode command, const host::ReplyError& error, std::ostream& err) {
    if (command != exitOk || error.text.empty()) {
        return command;
    }
    err << "onuctl: " << error.text << '\n';
    return exitOf(error.status);
}

ExitCode runWindow(const Options& options, std::ostream* trace, std::ostream& out,
                   std::ostream& err) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The client opens while the toolkit starts: neither needs the other.
    std::unique_ptr<ClientHost> opened;
    std::string problem;
    std::jthread opening([&] {
        Result<std::unique_ptr<ClientHost>> result = ClientHost::open(options.clientDirectory);
        if (result) {
            opened = std::move(result).value();
        } else {
            problem = result.error();
        }
    });
    int argc = 1;
    std::string name = "onuctl";
    char* argv[] = {name.data(), nullptr};
    QApplication application(argc, argv);
    opening.join();
    if (!opened) {
        err << "onuctl: " << problem << '\n';
        return exitClientFailed;
    }
    ClientHost& host = *opened;
    const host::OnuTarget& target = options.target;
    Observation observation(trace, host::SecretMask(host::secretsOf(
                                       target.readCommunity, target.writeCommunity, target.v3)));
    host.engine().setObserver(observation.observer());
    const Recorder recorder;
    WindowDriver driver(application, host);
    ExitCode outcome = exitClientFailed;
    driver.run(options.target, [&] {
        outcome = runCommand({options, driver, recorder, out, err});
    });
    host.engine().stop();
    out.flush();
    if (!out || (trace != nullptr && !trace->flush())) {
        err << "onuctl: the output cannot be written\n";
        return exitClientFailed;
    }
    return judge(outcome, observation.firstError(), err);
}

} // namespace

ExitCode runProgram(const std::vector<std::string>& arguments, std::ostream& out,
                    std::ostream& err) {
    Result<Options> options = parseOptions(arguments);
    if (!options) {
        err << "onuctl: " << options.error() << '\n';
        return exitUsage;
    }
    if (options->command == Command::help || options->command == Command::version) {
        out << (options->command == Command::help ? usageText() : kVersion);
        return exitOk;
    }
    if (const Result<bool> secrets = readSecrets(*options); !secrets) {
        err << "onuctl: " << secrets.error() << '\n';
        return exitUsage;
    }
    std::ofstream traceFile;
    std::ostream* trace = nullptr;
    if (options->traceFile) {
        if (*options->traceFile != kStandardOutput) {
            traceFile.open(*options->traceFile);
        }
        if (!traceFile.is_open() && *options->traceFile != kStandardOutput) {
            err << "onuctl: " << options->traceFile->string() << ": cannot be written\n";
            return exitClientFailed;
        }
        trace = traceFile.is_open() ? &traceFile : &out;
    }
    std::optional<AgentLauncher> simulator;
    if (options->simulate) {
        Result<AgentLauncher> started = startSimulator(*options);
        if (!started) {
            err << "onuctl: " << started.error() << '\n';
            return exitClientFailed;
        }
        simulator = std::move(started).value();
    }
    return runWindow(*options, trace, out, err);
}

} // namespace onudesk::ctl
