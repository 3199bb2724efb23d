// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/session.h"
#include "support/client_tree.h"
#include "support/test_desk.h"
#include "support/test_host.h"

#include <memory>
#include <string>
#include <vector>

#include <QPoint>
#include <QWidget>

#include <gtest/gtest.h>

namespace onudesk::test {

// English texts, the client tree as built, a host and an operator: what every page test needs.
class UiTest : public testing::Test {
protected:
    UiTest();
    ~UiTest() override;

    TestHost host;
    TestDesk desk;
    Session session = host.session();

    // The bindings of the oldest request not yet taken, which must be a write: "onuName@1.2.5=Lab",
    // values that are no printable text as "#001A".
    [[nodiscard]] std::vector<std::string> takeWrite();
    // Takes the oldest request, which must be a read, and returns its instance suffix.
    std::string takeRead();

private:
    ClientTree tree_;
};

// Presses and releases the left button in the middle of the control (or at a place in it) as the
// operator does; a disabled control stays untouched.
void click(QWidget& control);
void clickAt(QWidget& control, QPoint position);
void doubleClickAt(QWidget& control, QPoint position);
// Presses the left button at a place, moves it by so much and releases it there.
void drag(QWidget& control, QPoint from, QPoint by);
void hover(QWidget& control);
void key(QWidget& control, int code, const QString& text = {});
// Types a text character by character.
void type(QWidget& control, const QString& text);
// Fires the running timer of a page now; fails the test when it is not running.
void elapse(const QObject& page);

} // namespace onudesk::test
