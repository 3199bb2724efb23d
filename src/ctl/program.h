// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/exit_code.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace onudesk::ctl {

// The whole program: arguments without its name, what it prints, and its exit status. Makes the
// process's QApplication; once per process.
[[nodiscard]] ExitCode runProgram(const std::vector<std::string>& arguments, std::ostream& out,
                                  std::ostream& err);

} // namespace onudesk::ctl
