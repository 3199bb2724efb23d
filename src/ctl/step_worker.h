// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/control_events.h"
#include "ctl/control_finder.h"
#include "ctl/driven_window.h"
#include "ctl/exit_code.h"
#include "ctl/observation.h"
#include "ctl/questions.h"
#include "ctl/recorder.h"
#include "ctl/report.h"
#include "ctl/script.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>

namespace onudesk::ctl {

// What a script runs on, and where its output goes. Everything outlives the run.
struct RunTools {
    DrivenWindow& window;
    Recorder& recorder;
    const Observation& observation;
    std::ostream& out;
    std::ostream& err;
    // How often somebody wanted the run to end: once ends it after the step at hand, once more ends
    // the waiting for the agent, too. May be empty.
    std::function<int()> interruptions{};
    std::string scriptName{};
    std::int32_t itemType = 0; // shown from the begin, 0 for none
    bool json = false;
    bool watch = false;
};

struct Failure {
    ExitCode code = exitScriptFailed;
    std::string text{};
};

// Does single steps, all but the waiting. A step that opens a dialog or a question returns only
// when that is closed; other steps are done meanwhile.
class StepWorker {
public:
    StepWorker(const RunTools& tools, Questions& questions);

    std::optional<Failure> perform(const Step& step);

private:
    [[nodiscard]] Scope scope() const;
    Result<void> work(const Step& step);
    Result<void> open(const Step& step);
    Result<void> onControl(const Step& step);
    Result<void> act(QWidget& control, const Step& step);
    Result<void> doubleClick(QWidget& control, int row);
    Result<void> elapseTimer();
    Result<void> answer(const std::string& answer);
    Result<void> print(const std::string& what);
    Result<void> printControl(const std::string& name);
    void printPage();
    void print(const ControlSnapshot& control);
    void print(const QJsonObject& object, const std::string& text);
    Result<void> expectControl(const Step& step);
    Result<void> expectBox(const Step& step);
    Result<void> expectNoBox();
    Result<void> expectWrites(std::int32_t count);

    const RunTools& tools_;
    Questions& questions_;
    std::int32_t itemType_;
    std::size_t begun_ = 0; // steps
};

} // namespace onudesk::ctl
