// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/session.h"
#include "support/client_tree.h"
#include "support/test_desk.h"
#include "support/test_host.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <QComboBox>
#include <QPoint>
#include <QTableView>
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

    // A control of a page or dialog.
    template <typename Control = QWidget>
    static Control& in(const QWidget& window, const std::string& name) {
        auto* found = window.findChild<Control*>(QString::fromStdString(name));
        if (found == nullptr) {
            throw std::invalid_argument(name); // ends the program, naming the control
        }
        return *found;
    }
    // The buttons that can be pressed, in the order of the alphabet, besides that for help.
    static std::string usableIn(const QWidget& window);
    static std::string textIn(const QWidget& window, const std::string& name);
    // Its text, "-" before what cannot be edited.
    static std::string stateIn(const QWidget& window, const std::string& name);
    // Puts a text into a control, or chooses it as the operator does.
    static void setTextIn(const QWidget& window, const std::string& name, const std::string& text);
    static void choose(QComboBox& list, const std::string& text);
    static std::vector<std::string> entriesOf(const QComboBox& list);

private:
    ClientTree tree_;
    // Fails the test at a dialog of a row that nobody works in as soon as it is there, and closes
    // it so that the test can end.
    std::unique_ptr<QObject> dialogWatch_;
};

// Presses and releases the left button in the middle of the control (or at a place in it) as the
// operator does; a disabled control stays untouched.
void click(QWidget& control);
void clickAt(QWidget& control, QPoint position);
void doubleClickAt(QWidget& control, QPoint position);
// The same on a row of a table, with row -1 below the last one.
void clickRow(const QTableView& table, int row);
void doubleClickRow(const QTableView& table, int row);
// Presses the left button at a place, moves it by so much and releases it there.
void drag(QWidget& control, QPoint from, QPoint by);
void hover(QWidget& control);
void key(QWidget& control, int code, const QString& text = {});
// Types a text character by character.
void type(QWidget& control, const QString& text);
void type(QWidget& control, const char* text);
// Fires the running timer of a page now; fails the test when it is not running.
void elapse(const QObject& page);

} // namespace onudesk::test
