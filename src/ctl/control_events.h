// SPDX-License-Identifier: MIT
//
// Working controls through the events that mouse and keyboard send.
//
// Every function may return long after it sent its events: a handler may open a dialog. Where one
// checks what came of it, the answer only counts when nothing else was done to the window
// meanwhile.
#pragma once

#include "base/result.h"

#include <string>

class QTableView;
class QTimer;
class QWidget;

namespace onudesk::ctl {

// Why something could not be done names no control where the caller knows it.

// The left button, pressed and released in the middle.
void click(QWidget& control);

// Replaces what stands in a line edit or memo by typing the text key by key.
Result<void> typeText(QWidget& control, const std::string& text);
// Picks the item with the text from the list of a combo box.
Result<void> selectItem(QWidget& control, const std::string& text);
// Ticks or unticks a check box, or chooses a radio button.
Result<void> setChecked(QWidget& control, bool on);
// Clicks a row; -1 clicks beside the rows.
Result<void> clickRow(QWidget& control, int row);
// Double-clicks a row, up to the second press; endDoubleClick() releases the button again.
Result<void> beginDoubleClick(QWidget& control, int row);
void endDoubleClick(QWidget& control, int row);
// Presses and releases a key of QKeySequence's portable names in the focused widget of the window.
void pressKey(QWidget& window, const std::string& name);
// Lets the timer's time be over.
void elapse(QTimer& timer);

} // namespace onudesk::ctl
