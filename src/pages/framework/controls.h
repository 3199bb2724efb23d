// SPDX-License-Identifier: MIT
//
// Between bytes and widgets: the few things pages do to their controls.
#pragma once

#include "pages/framework/checks.h"
#include "pages/framework/fields.h"
#include "pages/framework/value_map.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <QComboBox>
#include <QFont>
#include <QLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QString>
#include <QWidget>

namespace onudesk {

// Texts are UTF-8 bytes everywhere but at the widget; a text ends at its first zero byte.
[[nodiscard]] QString shown(std::string_view bytes);
[[nodiscard]] std::string bytesOf(const QString& text);

// The text as captions take it, with every "&" meaning itself.
[[nodiscard]] QString withoutMnemonics(QString text);

// The message's text as caption, for ids 500 to 4000; other ids leave the caption as it is.
// Knows labels, buttons, group boxes and windows.
void loadCaption(QWidget& control, int messageId);
// The same for any id.
void setCaption(QWidget& control, int messageId);
// The same with a text of its own.
void setCaption(QWidget& control, const QString& text);

// One row per pair, in the order of the map, each carrying its code. Nothing is selected.
void fillCombo(QComboBox& combo, const ValueMap& map);
// Selects the row with the text or code; an empty or unknown one selects nothing.
void selectByText(QComboBox& combo, std::string_view text);
void selectOrClear(QComboBox& combo, std::string_view code);
// The same, but an unknown code leaves the selection as it is.
void selectIfKnown(QComboBox& combo, std::string_view code);
// The code behind the selected row; nothing without a selection.
[[nodiscard]] std::optional<std::string> selectedCode(const QComboBox& combo);

// Shows the display text of a code in an edit or memo, or selects it in a combo.
void showValue(QWidget& control, const ValueMap& map, std::string_view value);

// Text and state of a line edit, memo, combo or check box.
[[nodiscard]] FieldState stateOf(const QWidget& control);
// Puts a text into a line edit or memo, whatever typing limit it has.
void setControlText(QWidget& control, std::string_view text);

// Lets the operator type at most so many bytes of UTF-8; texts set by the program stay whole.
void limitTyping(QLineEdit& edit, int bytes);
void limitTyping(QPlainTextEdit& memo, int bytes);
// The same in characters.
void limitCharacters(QLineEdit& edit, int characters);
void limitCharacters(QPlainTextEdit& memo, int characters);
// Lets the operator type digits only; texts set by the program stay whole.
void digitsOnly(QLineEdit& edit);

// Masks an edit for a MAC address.
void maskMac(QLineEdit& edit);
// The text of a masked edit with its separators, and blanks where nothing was typed.
[[nodiscard]] std::string maskedText(const QLineEdit& edit);

// Tabs through what stands on the panel, in the order in which it was made, then the buttons.
void tabThrough(const QWidget& panel, const QLayout& buttons);

// Tells the operator, in a box owned by the window with that handle, and moves the focus.
void refuse(const CheckFailure& failure, QWidget* focus, std::uint32_t owner);
// A question to answer with yes or no; true for yes.
[[nodiscard]] bool confirm(const std::string& text, const std::string& caption,
                           std::uint32_t owner);
// Asks whether to delete (message 11057, caption 11058 followed by what goes).
[[nodiscard]] bool confirmDelete(std::uint32_t owner, const std::string& what = {});
// Refuses a text that should be a number: a warning that quotes it.
void refuseNotANumber(std::string_view text, std::uint32_t owner);

// The window's text font: its own family first, then one that has the Chinese characters.
[[nodiscard]] QFont textFont();

} // namespace onudesk
