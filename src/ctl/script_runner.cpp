// SPDX-License-Identifier: MIT
#include "ctl/script_runner.h"

#include <QCoreApplication>
#include <QDialog>
#include <QEventLoop>
#include <QPointer>

#include <algorithm>
#include <ostream>
#include <utility>

namespace onudesk::ctl {

namespace {

// Ends the dialog's loop even when the dialog wants to stay.
void close(QDialog& dialog) {
    const QPointer<QDialog> alive(&dialog);
    dialog.reject();
    if (alive && alive->isVisible()) {
        alive->hide();
    }
}

} // namespace

ScriptRunner::ScriptRunner(std::vector<Step> steps, RunTools tools)
    : steps_(std::move(steps)), tools_(std::move(tools)), questions_(tools_.recorder),
      worker_(tools_, questions_) {
    tools_.window.onChange = [this] { lookAgain(); };
}

ScriptRunner::~ScriptRunner() {
    tools_.window.onChange = {};
}

void ScriptRunner::start() {
    started_ = true;
    later(&ScriptRunner::next);
}

ExitCode ScriptRunner::finish() {
    while (started_ && !done_) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return outcome_;
}

// Through the event queue: a loop that the step at hand ended is left before the next step.
void ScriptRunner::later(void (ScriptRunner::*work)()) {
    QMetaObject::invokeMethod(
        this, [this, work] { (this->*work)(); }, Qt::QueuedConnection);
}

// All that the waiting is for happens in this thread's event loop, so that nothing can come between
// the look that found it missing and this.
void ScriptRunner::onceChanged(void (ScriptRunner::*work)()) {
    waiting_ = work;
}

void ScriptRunner::lookAgain() {
    if (waiting_ != nullptr) {
        later(std::exchange(waiting_, nullptr));
    }
}

void ScriptRunner::next() {
    if (ending_) {
        return;
    }
    if (at_ == steps_.size()) {
        atEnd();
        return;
    }
    const Step& step = steps_[at_];
    if (begun_ == at_ && !begin(step)) {
        return;
    }
    if (interruptions() > 0) {
        fail({exitInterrupted, "interrupted"});
        return;
    }
    if (mustWait(step.kind)) {
        onceChanged(&ScriptRunner::next);
        return;
    }
    if (step.kind == StepKind::wait) {
        if (const auto failure = connectionFailure()) {
            fail(*failure);
            return;
        }
    }
    ++at_;
    // First, for the step may return only after later ones were done.
    later(&ScriptRunner::next);
    if (const auto failure = worker_.perform(step); failure && !ending_) {
        fail(*failure);
    }
}

// False when the step cannot be done as things stand; the run has then ended.
bool ScriptRunner::begin(const Step& step) {
    line_ = step.line;
    ++begun_;
    const QWidget* const window = tools_.window.window();
    std::optional<Failure> failure;
    if (interruptions() > 0) {
        failure = Failure{exitInterrupted, "interrupted before this step"};
    } else if (window == nullptr || !window->isVisible()) {
        failure = Failure{exitScriptFailed, "the window is closed"};
    } else if (questions_.isOpen() && !isForQuestions(step.kind)) {
        failure = Failure{exitScriptFailed, "unanswered question \"" + questions_.text() + '"'};
    } else if (isAction(step.kind)) {
        failure = unexpectedBox();
    }
    if (failure) {
        fail(*failure);
        return false;
    }
    if (tools_.watch) {
        tools_.err << tools_.observation.masked(std::to_string(step.line) + ": " + step.text)
                   << std::endl;
    }
    return true;
}

bool ScriptRunner::mustWait(StepKind kind) const {
    switch (kind) {
    case StepKind::wait:
        return !tools_.window.quiet();
    case StepKind::expectWrites:
    case StepKind::print:
        return !tools_.window.observed();
    default:
        return false;
    }
}

void ScriptRunner::atEnd() {
    beyondEnd_ = true;
    if (questions_.isOpen()) {
        fail({exitScriptFailed, "unanswered question \"" + questions_.text() + '"'});
    } else if (interruptions() > 0) {
        fail({exitInterrupted, "interrupted"});
    } else if (!tools_.window.quiet()) {
        onceChanged(&ScriptRunner::next);
    } else if (const auto failure = verdict()) {
        fail(*failure);
    } else {
        end(exitOk);
    }
}

std::optional<Failure> ScriptRunner::verdict() const {
    for (const auto& failure : {connectionFailure(), unexpectedBox(), untoldError()}) {
        if (failure) {
            return failure;
        }
    }
    return std::nullopt;
}

std::optional<Failure> ScriptRunner::connectionFailure() const {
    for (const ObservedError& observed : tools_.observation.errors()) {
        if (exitOf(observed.error.status) == exitConnectionFailed) {
            return Failure{exitConnectionFailed, observed.error.text};
        }
    }
    return std::nullopt;
}

std::optional<Failure> ScriptRunner::unexpectedBox() const {
    const auto at = tools_.recorder.oldestUnexpected();
    if (!at) {
        return std::nullopt;
    }
    const platform::Prompt& box = tools_.recorder.boxes()[*at];
    const std::vector<ObservedError> errors = tools_.observation.errors();
    const bool tellsError = std::ranges::any_of(errors, [&](const ObservedError& observed) {
        return observed.kind == host::RequestKind::write &&
               box.text.find(observed.error.text) != std::string::npos;
    });
    return Failure{tellsError ? exitAgentError : exitScriptFailed,
                   "unexpected box " + boxText(box)};
}

// Errors of writes are told in boxes, which the script took; nobody tells those of reads.
std::optional<Failure> ScriptRunner::untoldError() const {
    const std::vector<platform::Prompt>& boxes = tools_.recorder.boxes();
    for (const ObservedError& observed : tools_.observation.errors()) {
        const bool told = observed.kind == host::RequestKind::write &&
                          std::ranges::any_of(boxes, [&](const platform::Prompt& box) {
                              return box.text.find(observed.error.text) != std::string::npos;
                          });
        if (!told) {
            return Failure{exitOf(observed.error.status), observed.error.text};
        }
    }
    return std::nullopt;
}

int ScriptRunner::interruptions() const {
    return tools_.interruptions ? tools_.interruptions() : 0;
}

std::string ScriptRunner::place() const {
    return tools_.scriptName + ": " +
           (beyondEnd_ ? std::string("end of script") : "line " + std::to_string(line_)) + ": ";
}

void ScriptRunner::fail(const Failure& failure) {
    end(failure.code);
    tools_.err << "onuctl: " << tools_.observation.masked(place() + failure.text) << std::endl;
}

void ScriptRunner::end(ExitCode outcome) {
    outcome_ = outcome;
    ending_ = true;
    // An interruption that ended the script may be followed by the next one at any time.
    patience_ = outcome == exitInterrupted ? 2 : interruptions() + 1;
    questions_.refuseMore();
    later(&ScriptRunner::settle);
}

void ScriptRunner::settle() {
    if (!tools_.window.answered() && interruptions() < patience_) {
        onceChanged(&ScriptRunner::settle);
    } else {
        unwind();
    }
}

void ScriptRunner::unwind() {
    QWidget* const window = tools_.window.window();
    if (questions_.answer(platform::PromptAnswer::no)) {
        later(&ScriptRunner::unwind);
    } else if (QDialog* const dialog = window == nullptr ? nullptr : dialogBefore(window)) {
        later(&ScriptRunner::unwind); // first, for closing may open another one
        close(*dialog);
    } else {
        done_ = true;
        if (window != nullptr && !window->close()) {
            window->hide();
        }
    }
}

} // namespace onudesk::ctl
