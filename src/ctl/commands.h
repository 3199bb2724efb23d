// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/exit_code.h"
#include "ctl/options.h"
#include "ctl/recorder.h"
#include "ctl/window_driver.h"

#include <iosfwd>

namespace onudesk::ctl {

// What a command prints goes to `out`, why it could not to `err`.
struct CommandContext {
    const Options& options;
    WindowDriver& driver;
    const Recorder& recorder;
    std::ostream& out;
    std::ostream& err;
};

// Each runs inside the open window.
[[nodiscard]] ExitCode listItems(const CommandContext& context);
[[nodiscard]] ExitCode showPage(const CommandContext& context);
[[nodiscard]] ExitCode saveScreenshot(const CommandContext& context);

} // namespace onudesk::ctl
