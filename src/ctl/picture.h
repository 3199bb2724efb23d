// SPDX-License-Identifier: MIT
#pragma once

#include <string>

class QWidget;

namespace onudesk::ctl {

// Saves the window as PNG, with the dialogs that are open before it where they stand. False when
// the file cannot be written.
[[nodiscard]] bool savePicture(QWidget& window, const std::string& file);

} // namespace onudesk::ctl
