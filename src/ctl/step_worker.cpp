// SPDX-License-Identifier: MIT
#include "ctl/step_worker.h"

#include "ctl/picture.h"

#include <QDialog>
#include <QPointer>
#include <QTableView>
#include <QTimer>

#include <ostream>

namespace onudesk::ctl {

namespace {

std::string quoted(const std::string& text) {
    return '"' + text + '"';
}

std::string describeBox(const std::string& icon, const std::string& caption,
                        const std::string& text) {
    return icon + ' ' + quoted(caption) + ' ' + quoted(text);
}

// A box as wanted; "*" at the end of its text stands for anything.
bool fits(const std::string& found, const std::string& wanted) {
    const std::string_view open = R"(*")";
    return found == wanted || (wanted.ends_with(open) &&
                               found.starts_with(wanted.substr(0, wanted.size() - open.size())));
}

} // namespace

StepWorker::StepWorker(const RunTools& tools, Questions& questions)
    : tools_(tools), questions_(questions), itemType_(tools.itemType) {}

Scope StepWorker::scope() const {
    QWidget* const window = tools_.window.window();
    return {dialogBefore(window), tools_.window.page(), window};
}

std::optional<Failure> StepWorker::perform(const Step& step) {
    if (step.kind == StepKind::screenshot) {
        return savePicture(*tools_.window.window(), step.arguments[0])
                   ? std::nullopt
                   : std::optional(Failure{exitClientFailed,
                                           step.arguments[0] + ": the picture cannot be saved"});
    }
    const std::size_t mine = ++begun_;
    const Result<void> done = work(step);
    // What a step finds in the end says nothing about it when other steps were done since.
    return !done && begun_ == mine ? std::optional(Failure{exitScriptFailed, done.error()})
                                   : std::nullopt;
}

Result<void> StepWorker::work(const Step& step) {
    switch (step.kind) {
    case StepKind::open:
        return open(step);
    case StepKind::key:
        pressKey(scope().dialog != nullptr ? *scope().dialog : *tools_.window.window(),
                 step.arguments[0]);
        return {};
    case StepKind::elapse:
        return elapseTimer();
    case StepKind::answer:
        return answer(step.arguments[0]);
    case StepKind::print:
        return print(step.arguments[0]);
    case StepKind::expectControl:
        return expectControl(step);
    case StepKind::expectBox:
        return expectBox(step);
    case StepKind::expectNoBox:
        return expectNoBox();
    case StepKind::expectWrites:
        return expectWrites(step.number);
    case StepKind::wait:
    case StepKind::screenshot:
        return {};
    default:
        return onControl(step);
    }
}

Result<void> StepWorker::open(const Step& step) {
    if (scope().dialog != nullptr) {
        return Error{"the items are behind the open dialog"};
    }
    const Result<QWidget*> page = tools_.window.openPage(step.number);
    if (!page) {
        return Error{page.error()};
    }
    itemType_ = step.number;
    return {};
}

Result<void> StepWorker::onControl(const Step& step) {
    const std::string& name = step.arguments[0];
    const Result<QWidget*> control = usableControl(scope(), name);
    if (!control) {
        return Error{control.error()};
    }
    const Result<void> done = act(**control, step);
    return done ? done : Error{name + ' ' + done.error()};
}

Result<void> StepWorker::act(QWidget& control, const Step& step) {
    switch (step.kind) {
    case StepKind::set:
        return typeText(control, step.arguments[1]);
    case StepKind::select:
        return selectItem(control, step.arguments[1]);
    case StepKind::check:
        return setChecked(control, step.arguments[1] == "on");
    case StepKind::row:
        return clickRow(control, step.number);
    case StepKind::doubleClick:
        return doubleClick(control, step.number);
    default:
        click(control);
        return {};
    }
}

// A dialog that the second press opens gets the release, not the table below it.
Result<void> StepWorker::doubleClick(QWidget& control, int row) {
    const QPointer<QWidget> alive(&control);
    const std::size_t mine = begun_;
    Result<void> begun = beginDoubleClick(control, row);
    if (begun && alive && begun_ == mine) {
        endDoubleClick(control, row);
    }
    return begun;
}

Result<void> StepWorker::elapseTimer() {
    QTimer* const timer = runningTimer(scope());
    if (timer == nullptr) {
        return Error{"Timer1 is not running"};
    }
    elapse(*timer);
    return {};
}

Result<void> StepWorker::answer(const std::string& answer) {
    if (answer == "ok") {
        if (questions_.isOpen()) {
            return Error{"the open question must be answered yes or no: " +
                         quoted(questions_.text())};
        }
        return questions_.acknowledge() ? Result<void>()
                                        : Error{"no box was shown since the last answer"};
    }
    return questions_.answer(answer == "yes" ? platform::PromptAnswer::yes
                                             : platform::PromptAnswer::no)
               ? Result<void>()
               : Error{"no question is open"};
}

Result<void> StepWorker::print(const std::string& what) {
    if (what == "page") {
        if (tools_.window.page() == nullptr) {
            return Error{"no page is open"};
        }
        printPage();
    } else if (what == "tables") {
        for (const QTableView* table : tablesIn(scope())) {
            print(snapshotControl(*table));
        }
    } else if (what == "boxes") {
        for (const platform::Prompt& box : tools_.recorder.boxes()) {
            print(boxJson(box), "box " + boxText(box) + '\n');
        }
    } else if (what == "writes") {
        for (const QJsonObject& request : tools_.observation.writes()) {
            print(request, writeText(request));
        }
    } else {
        return printControl(what);
    }
    return {};
}

void StepWorker::printPage() {
    const PageReport report{itemType_, tools_.window.captionOf(itemType_), tools_.window.page(),
                            dialogsBefore(tools_.window.window())};
    print(pageJson(report, tools_.recorder.boxes()), pageText(report));
}

Result<void> StepWorker::printControl(const std::string& name) {
    const QObject* control = findControl(scope(), QString::fromStdString(name));
    if (control == nullptr) {
        return Error{"there is no control " + name};
    }
    print(snapshotControl(*control));
    return {};
}

void StepWorker::print(const ControlSnapshot& control) {
    print(controlJson(control), describe(control).toStdString() + '\n');
}

void StepWorker::print(const QJsonObject& object, const std::string& text) {
    tools_.observation.print(tools_.out, tools_.json ? jsonLine(object) : text);
}

Result<void> StepWorker::expectControl(const Step& step) {
    const std::string& name = step.arguments[0];
    const std::string& property = step.arguments[1];
    const std::string& wanted = step.arguments[2];
    const QObject* control = findControl(scope(), QString::fromStdString(name));
    if (control == nullptr) {
        return Error{"there is no control " + name};
    }
    const auto found = propertyText(snapshotControl(*control), QString::fromStdString(property));
    if (!found) {
        return Error{name + " has no " + property + "; wanted " + quoted(wanted)};
    }
    if (found->toStdString() != wanted) {
        return Error{name + ' ' + property + " is " + quoted(found->toStdString()) + ", wanted " +
                     quoted(wanted)};
    }
    return {};
}

Result<void> StepWorker::expectBox(const Step& step) {
    const std::string wanted = describeBox(step.arguments[1], step.arguments[2], step.arguments[3]);
    const auto box = tools_.recorder.oldestUntaken();
    if (!box) {
        return Error{"there is no box, wanted " + wanted};
    }
    tools_.recorder.take(*box);
    const std::string found = boxText(tools_.recorder.boxes()[*box]);
    return fits(found, wanted) ? Result<void>()
                               : Error{"the box is " + found + ", wanted " + wanted};
}

Result<void> StepWorker::expectNoBox() {
    const auto box = tools_.recorder.oldestUntaken();
    return box ? Error{"there is a box: " + boxText(tools_.recorder.boxes()[*box])}
               : Result<void>();
}

Result<void> StepWorker::expectWrites(std::int32_t count) {
    const std::size_t found = tools_.observation.writeCount();
    return found == static_cast<std::size_t>(count)
               ? Result<void>()
               : Error{"writes are " + std::to_string(found) + ", wanted " + std::to_string(count)};
}

} // namespace onudesk::ctl
