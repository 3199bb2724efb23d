// SPDX-License-Identifier: MIT
#pragma once

#include "base/result.h"

#include <cstdint>
#include <functional>

#include <QString>

class QWidget;

namespace onudesk::ctl {

// An open window with its page, and what is under way behind it. User-interface thread only.
class DrivenWindow {
public:
    virtual ~DrivenWindow() = default;

    // Called from the event loop, dialogs' loops included, when observed(), answered() or quiet()
    // may have become true.
    std::function<void()> onChange;

    // Null when it is not open.
    [[nodiscard]] virtual QWidget* window() const = 0;
    // The page that is shown, or null.
    [[nodiscard]] virtual QWidget* page() const = 0;
    // Opens an item as a click on it does, and returns its page; the values come later. In
    // single-item mode the page is there already. The error says why there is none.
    virtual Result<QWidget*> openPage(std::int32_t itemType) = 0;
    // Of an item; empty when the menu does not have it.
    [[nodiscard]] virtual QString captionOf(std::int32_t itemType) const = 0;

    // Every request posted was observed.
    [[nodiscard]] virtual bool observed() const = 0;
    // Every request posted was answered.
    [[nodiscard]] virtual bool answered() const = 0;
    // Every request posted was answered and every reply handled.
    [[nodiscard]] virtual bool quiet() const = 0;
};

} // namespace onudesk::ctl
