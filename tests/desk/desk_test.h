// SPDX-License-Identifier: MIT
#pragma once

#include "support/wait_for.h"

#include <deque>
#include <functional>
#include <stdexcept>
#include <string>

#include <QApplication>
#include <QDialogButtonBox>
#include <QMessageBox>
#include <QWidget>

namespace onudesk::test {

// Processes events until the condition holds.
inline bool waitFor(const std::function<bool()>& condition) {
    return waitFor(condition,
                   [] { QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10); });
}

// Runs `action`, which opens a modal window, and `drive` on that window as soon as it is open.
// Fails the test when no window opens or `drive` leaves it open.
void withModal(const std::function<void()>& action, const std::function<void(QWidget&)>& drive);

// Runs `action` and answers the message boxes that it opens, one after the other, with these
// buttons. Returns the text of the last box. Fails the test when there are fewer boxes.
std::string answerBoxes(const std::function<void()>& action,
                        std::deque<QMessageBox::StandardButton> buttons = {QMessageBox::Ok});

// Calls `then` once, from whichever event loop runs, as soon as the condition holds. When it does
// not hold in time the test fails and every window is closed.
void whenReady(const std::function<bool()>& condition, const std::function<void()>& then);

// The control of that name; fails the test when there is none.
template <typename Control>
Control& control(const QObject& parent, const char* name) {
    auto* found = parent.findChild<Control*>(QString::fromLatin1(name));
    EXPECT_NE(found, nullptr) << name;
    if (found == nullptr) {
        throw std::out_of_range(name);
    }
    return *found;
}

// Enters texts into edits and chooses items of combo boxes: "nameEdt=School|versionCmb=v3".
void enter(const QWidget& dialog, const std::string& entries);
// Clicks OK or Cancel of the dialog.
void press(const QWidget& dialog, int standardButton);
// Both, with OK.
void submit(const QWidget& dialog, const std::string& entries);
// The text beside the buttons of a dialog that refuses its entry.
[[nodiscard]] std::string problemIn(const QWidget& dialog);

} // namespace onudesk::test
