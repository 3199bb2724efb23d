// SPDX-License-Identifier: MIT
#include "ctl/program.h"

#include "ctl/commands.h"
#include "ctl/observation.h"
#include "ctl/options.h"
#include "ctl/script.h"
#include "ctl/script_runner.h"
#include "ctl/secrets.h"
#include "ctl/signal_watch.h"
#include "host/agent_launcher.h"
#include "host/secret_mask.h"

#include <fstream>
#include <memory>
#include <optional>
#include <ostream>
#include <thread>
#include <utility>

#include <QApplication>
#include <QFontMetrics>

namespace onudesk::ctl {

namespace {

using host::AgentLauncher;
using host::ClientHost;

// A command line that can be carried out.
struct Invocation {
    const Options& options;
    const std::vector<Step>& script; // of run
    std::ostream* trace;             // null for none
    std::ostream& out;
    std::ostream& err;
};

Result<void> readSecrets(Options& options) {
    if (options.simulate) {
        host::useDemoAccess(options.target);
    }
    Result<void> taken = readSecretsEnvironment(options.target);
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
    case Command::run:
        break;
    }
    return exitOk;
}

// An error of the agent or of the way to it outweighs a command that did its part.
ExitCode judge(ExitCode command, const Observation& observation, std::ostream& err) {
    const std::vector<ObservedError> errors = observation.errors();
    if (command != exitOk || errors.empty()) {
        return command;
    }
    err << "onuctl: " << errors.front().error.text << '\n';
    return exitOf(errors.front().error.status);
}

ExitCode runCommand(const Invocation& call, WindowDriver& driver, const Recorder& recorder,
                    const Observation& observation) {
    ExitCode outcome = exitClientFailed;
    driver.run(call.options.target, [&] {
        outcome = runCommand({call.options, driver, recorder, call.out, call.err});
    });
    return judge(outcome, observation, call.err);
}

// The script decides itself what an error of the agent means.
ExitCode runScript(const Invocation& call, WindowDriver& driver, Recorder& recorder,
                   const Observation& observation) {
    const Options& options = call.options;
    std::optional<SignalWatch> signals;
    ScriptRunner runner(call.script, {.window = driver,
                                      .recorder = recorder,
                                      .observation = observation,
                                      .out = call.out,
                                      .err = call.err,
                                      .interruptions = [&] { return signals->count(); },
                                      .scriptName = scriptName(options.scriptFile),
                                      .itemType = options.target.subUnitItemType,
                                      .json = options.json,
                                      .watch = options.watch});
    signals.emplace([&] { runner.lookAgain(); });
    driver.runUntilClosed(options.target, [&] { runner.start(); });
    return runner.finish();
}

ExitCode runWindow(const Invocation& call) {
    const Options& options = call.options;
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
    // Looks for the fonts now, which takes long, instead of when the window is built.
    static_cast<void>(QFontMetrics(QApplication::font()).height());
    opening.join();
    if (!opened) {
        call.err << "onuctl: " << problem << '\n';
        return exitClientFailed;
    }
    ClientHost& host = *opened;
    const host::OnuTarget& target = options.target;
    Observation observation(
        call.trace,
        host::SecretMask(host::secretsOf(target.readCommunity, target.writeCommunity, target.v3),
                         host.secretObjects()));
    host.engine().setObserver(observation.observer());
    Recorder recorder;
    WindowDriver driver(application, host);
    const ExitCode outcome = options.command == Command::run
                                 ? runScript(call, driver, recorder, observation)
                                 : runCommand(call, driver, recorder, observation);
    host.engine().stop();
    call.out.flush();
    if (!call.out || (call.trace != nullptr && !call.trace->flush())) {
        call.err << "onuctl: the output cannot be written\n";
        return exitClientFailed;
    }
    return outcome;
}

} // namespace

ExitCode runProgram(const std::vector<std::string>& arguments, std::ostream& out,
                    std::ostream& err) {
    Result<Options> options = parseOptions(arguments);
    if (!options) {
        err << "onuctl: " << options.error() << '\n';
        return exitUsage;
    }
    if (!options->text.empty()) {
        out << options->text;
        return exitOk;
    }
    if (const Result<void> secrets = readSecrets(*options); !secrets) {
        err << "onuctl: " << secrets.error() << '\n';
        return exitUsage;
    }
    std::vector<Step> script;
    if (options->command == Command::run) {
        Result<std::vector<Step>> loaded = loadScript(options->scriptFile);
        if (!loaded) {
            err << "onuctl: " << loaded.error() << '\n';
            return exitUsage;
        }
        script = std::move(loaded).value();
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
    return runWindow({*options, script, trace, out, err});
}

} // namespace onudesk::ctl
