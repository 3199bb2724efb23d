// SPDX-License-Identifier: MIT
#pragma once

#include "onudesk/exports.h"

namespace onudesk {

// Runs one configuration session on the calling thread; returns after the window closed. A call
// while a window is open shows that window and returns at once.
void showConfigForm(QApplication* application, ReplyRouteTable* routeTable,
                    const HolderConfigParam& param, std::uint32_t hostThreadId,
                    ReleaseCodeParaFn releaseFn);

// Gives the library its own application object back; called when the library is unloaded.
void restoreApplication();

} // namespace onudesk
