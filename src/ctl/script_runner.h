// SPDX-License-Identifier: MIT
//
// Runs a script on an open window.
//
//     ScriptRunner runner(steps, tools);
//     driver.runUntilClosed(target, [&] { runner.start(); });
//     const ExitCode outcome = runner.finish();
#pragma once

#include "ctl/questions.h"
#include "ctl/script.h"
#include "ctl/step_worker.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <QObject>

namespace onudesk::ctl {

// One step per turn of the event loop, and never one that blocks it: a step may open a dialog,
// whose own loop then runs the next ones. When the script ends, for whatever reason, everything
// asked of the agent is waited for, and dialogs and window are closed from the inside out.
class ScriptRunner : public QObject {
public:
    ScriptRunner(std::vector<Step> steps, RunTools tools);
    ~ScriptRunner() override;
    ScriptRunner(const ScriptRunner&) = delete;
    ScriptRunner& operator=(const ScriptRunner&) = delete;

    // Call once the window is open. Closes it in the end.
    void start();
    // Call after the window closed: what the script wanted after that is its failure. Returns the
    // exit status; why it is not 0 was told.
    [[nodiscard]] ExitCode finish();
    // Call when RunTools::interruptions has changed.
    void lookAgain();

private:
    void next();
    void later(void (ScriptRunner::*work)());
    void onceChanged(void (ScriptRunner::*work)());
    bool begin(const Step& step);
    [[nodiscard]] bool mustWait(StepKind kind) const;
    void atEnd();
    [[nodiscard]] std::optional<Failure> verdict() const;
    [[nodiscard]] std::optional<Failure> connectionFailure() const;
    [[nodiscard]] std::optional<Failure> unexpectedBox() const;
    [[nodiscard]] std::optional<Failure> untoldError() const;
    [[nodiscard]] std::string place() const;
    [[nodiscard]] int interruptions() const;
    void fail(const Failure& failure);
    void end(ExitCode outcome);
    void settle();
    void unwind();

    const std::vector<Step> steps_;
    const RunTools tools_;
    Questions questions_;
    StepWorker worker_;
    void (ScriptRunner::*waiting_)() = nullptr; // goes on when something has changed
    std::size_t at_ = 0;                        // the step to do next
    std::size_t begun_ = 0;                     // steps announced
    int line_ = 0;                              // of the step at hand
    bool beyondEnd_ = false;
    int patience_ = 0; // interruptions that end the waiting
    bool started_ = false;
    bool ending_ = false;
    bool done_ = false;
    ExitCode outcome_ = exitClientFailed;
};

} // namespace onudesk::ctl
