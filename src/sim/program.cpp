// SPDX-License-Identifier: MIT
#include "sim/program.h"

#include "env/client_paths.h"
#include "platform/files.h"
#include "sim/models.h"
#include "sim/options.h"
#include "sim/recording.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <utility>

#include <csignal>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace onudesk::sim {

namespace {

ExitStatus complain(const std::string& text, ExitStatus status) {
    std::fprintf(stderr, "%s\n", text.c_str());
    return status;
}

// Turns the signals that end the program into a readable descriptor.
class StopSignals {
public:
    StopSignals() {
        sigset_t signals;
        ::sigemptyset(&signals);
        for (const int number : {SIGTERM, SIGINT}) {
            ::sigaddset(&signals, number);
        }
        ::sigprocmask(SIG_BLOCK, &signals, nullptr);
        descriptor_ = ::signalfd(-1, &signals, SFD_CLOEXEC);
    }
    ~StopSignals() { ::close(descriptor_); }
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    [[nodiscard]] int descriptor() const { return descriptor_; }

private:
    int descriptor_ = -1;
};

struct Input {
    ObjectTable objects;
    Recording recording;
    Access access;
};

Result<ObjectTable> loadObjects(const std::string& file) {
    std::string path = file;
    if (path.empty()) {
        const std::string wanted = std::filesystem::path(platform::hostFileName())
                                       .parent_path()
                                       .append(kCatalogueFile)
                                       .string();
        path = platform::resolveClientPath(wanted).value_or(wanted).string();
    }
    const Result<CatalogueSchema> catalogue = loadSchema(path);
    if (!catalogue) {
        return Error{catalogue.error()};
    }
    Result<ObjectTable> objects = ObjectTable::build(*catalogue, isModel);
    return objects ? std::move(objects) : Error{path + ": " + objects.error()};
}

Result<Input> loadInput(const Options& options) {
    Result<ObjectTable> objects = loadObjects(options.catalogue);
    if (!objects) {
        return Error{objects.error()};
    }
    Result<Recording> recording = loadRecording(options.recording);
    if (!recording) {
        return Error{recording.error()};
    }
    Result<Access> access = options.access.empty() ? defaultAccess() : loadAccess(options.access);
    if (!access) {
        return Error{access.error()};
    }
    return Input{std::move(*objects), std::move(*recording), std::move(*access)};
}

// Serves until a signal.
Result<void> serve(Store& store, Access access, const Endpoint& endpoint,
                   const StopSignals& signals) {
    const auto agent = Agent::open(store, std::move(access), endpoint);
    if (!agent) {
        return Error{agent.error()};
    }
    std::printf("listening on %s\n", (*agent)->endpoint().text().c_str());
    std::fflush(stdout);
    (*agent)->serve(signals.descriptor());
    return {};
}

} // namespace

ExitStatus runSimulator(const std::vector<std::string>& arguments) {
    const Result<Options> options = parseOptions(arguments);
    if (!options) {
        return complain("onusim: " + options.error(), ExitStatus::usage);
    }
    if (!options->text.empty()) {
        std::fputs(options->text.c_str(), stdout);
        return ExitStatus::ended;
    }
    const StopSignals signals;
    if (options->withParent) {
        const pid_t parent = ::getppid();
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (::getppid() != parent) {
            return ExitStatus::ended; // it was gone before the signal was asked for
        }
    }
    Result<Input> input = loadInput(*options);
    if (!input) {
        return complain(input.error(), ExitStatus::usage);
    }
    Store store(std::move(input->objects), std::move(input->recording.values));
    const auto served = serve(store, std::move(input->access), options->listen, signals);
    if (!served) {
        return complain("onusim: " + served.error(), ExitStatus::failed);
    }
    if (!options->save.empty()) {
        const auto text = formatRecording(store.values(), input->recording.layout);
        if (const auto saved = saveFile(options->save, text); !saved) {
            return complain(saved.error(), ExitStatus::failed);
        }
    }
    return ExitStatus::ended;
}

} // namespace onudesk::sim
