// SPDX-License-Identifier: MIT
#include "ctl/control_events.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTableView>
#include <QTimer>

namespace onudesk::ctl {

namespace {

QString quoted(const QString& text) {
    return QLatin1Char('"') + text + QLatin1Char('"');
}

Error problem(const QString& text) {
    return {text.toStdString()};
}

void mouse(QWidget& control, QEvent::Type type, QPoint position) {
    QMouseEvent event(type, position, control.mapToGlobal(position), Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&control, &event);
}

// The one that a click on the widget gives the focus to: itself or the nearest above that takes it.
void focusByMouse(QWidget& control) {
    for (QWidget* at = &control; at != nullptr; at = at->parentWidget()) {
        if (at->isEnabled() && (at->focusPolicy() & Qt::ClickFocus) == Qt::ClickFocus) {
            at->setFocus(Qt::MouseFocusReason);
            return;
        }
        if (at->isWindow()) {
            return;
        }
    }
}

void clickAt(QWidget& control, QPoint position) {
    const QPointer<QWidget> alive(&control);
    focusByMouse(control);
    mouse(control, QEvent::MouseButtonPress, position);
    if (alive) {
        mouse(control, QEvent::MouseButtonRelease, position);
    }
}

void sendKey(QWidget& control, int code, Qt::KeyboardModifiers modifiers, const QString& text) {
    const QPointer<QWidget> alive(&control);
    QKeyEvent press(QEvent::KeyPress, code, modifiers, text);
    QApplication::sendEvent(&control, &press);
    if (alive) {
        QKeyEvent release(QEvent::KeyRelease, code, modifiers, text);
        QApplication::sendEvent(&control, &release);
    }
}

// The place that the operator aims at: a box's text may be shorter than the box.
QPoint indicatorOf(const QAbstractButton& button, QStyle::SubElement element) {
    QStyleOptionButton option;
    option.initFrom(&button);
    return button.style()->subElementRect(element, &option, &button).center();
}

QTableView* tableOf(QWidget& control) {
    return qobject_cast<QTableView*>(&control);
}

// The visible part of the row's first visible cell, in the viewport, after scrolling there.
QPoint cellOf(QTableView& table, int row) {
    int column = 0;
    while (column + 1 < table.model()->columnCount() && table.isColumnHidden(column)) {
        ++column;
    }
    const QModelIndex cell = table.model()->index(row, column);
    table.scrollTo(cell);
    return table.visualRect(cell).intersected(table.viewport()->rect()).center();
}

Result<void> hasRow(const QTableView* table, int row) {
    if (table == nullptr) {
        return Error{"is no table"};
    }
    if (row >= table->model()->rowCount()) {
        return Error{"has " + std::to_string(table->model()->rowCount()) + " rows, none numbered " +
                     std::to_string(row)};
    }
    return {};
}

void clickBesideRows(QTableView& table) {
    table.scrollToBottom();
    const QPoint corner = table.viewport()->rect().bottomLeft();
    if (table.viewport()->rect().contains(corner) && !table.indexAt(corner).isValid()) {
        clickAt(*table.viewport(), corner);
        return;
    }
    table.clearSelection();
    table.setCurrentIndex(QModelIndex());
}

// An edit with a mask that is empty shows the mask.
QString emptyText(const QLineEdit& edit) {
    QLineEdit empty;
    empty.setInputMask(edit.inputMask());
    return empty.displayText();
}

bool shows(const QLineEdit& edit, const QString& text) {
    return edit.echoMode() != QLineEdit::Normal
               ? edit.text() == text
               : edit.displayText() == (text.isEmpty() ? emptyText(edit) : text);
}

void typeKeys(QWidget& control, const QString& text) {
    if (text.isEmpty()) {
        sendKey(control, Qt::Key_Delete, Qt::NoModifier, {});
    }
    const QPointer<QWidget> alive(&control);
    for (const char32_t c : text.toUcs4()) {
        if (!alive) {
            return;
        }
        if (c == U'\n') {
            sendKey(control, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
        } else {
            sendKey(control, Qt::Key_unknown, Qt::NoModifier, QString::fromUcs4(&c, 1));
        }
    }
}

template <typename Edit>
Result<void> replaceText(Edit& edit, const QString& text) {
    if (edit.isReadOnly()) {
        return Error{"is read-only"};
    }
    edit.setFocus(Qt::MouseFocusReason);
    edit.selectAll();
    typeKeys(edit, text);
    return {};
}

QString typedBy(QKeyCombination key) {
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return QStringLiteral("\r");
    case Qt::Key_Tab:
        return QStringLiteral("\t");
    default:
        break;
    }
    // Printable keys are numbered as their capital letters.
    const bool printable = key.key() >= Qt::Key_Space && key.key() <= Qt::Key_AsciiTilde &&
                           (key.keyboardModifiers() & ~Qt::ShiftModifier) == 0;
    const QChar letter(static_cast<char16_t>(key.key()));
    return !printable                                           ? QString()
           : (key.keyboardModifiers() & Qt::ShiftModifier) != 0 ? QString(letter)
                                                                : QString(letter.toLower());
}

} // namespace

void click(QWidget& control) {
    clickAt(control, control.rect().center());
}

Result<void> typeText(QWidget& control, const std::string& text) {
    const QString wanted = QString::fromStdString(text);
    const QPointer<QWidget> alive(&control);
    if (auto* const edit = qobject_cast<QLineEdit*>(&control)) {
        Result<void> typed = replaceText(*edit, wanted);
        if (!typed || !alive || shows(*edit, wanted)) {
            return typed;
        }
        return problem(QStringLiteral("shows ") + quoted(edit->displayText()) +
                       QStringLiteral(" after typing"));
    }
    if (auto* const memo = qobject_cast<QPlainTextEdit*>(&control)) {
        Result<void> typed = replaceText(*memo, wanted);
        if (!typed || !alive || memo->toPlainText() == wanted) {
            return typed;
        }
        return problem(QStringLiteral("shows ") + quoted(memo->toPlainText()) +
                       QStringLiteral(" after typing"));
    }
    return Error{"cannot be typed into"};
}

Result<void> selectItem(QWidget& control, const std::string& text) {
    auto* const combo = qobject_cast<QComboBox*>(&control);
    if (combo == nullptr) {
        return Error{"is no combo box"};
    }
    const QString wanted = QString::fromStdString(text);
    QStringList items;
    for (int at = 0; at < combo->count(); ++at) {
        items << quoted(combo->itemText(at));
    }
    const auto row = static_cast<int>(items.indexOf(quoted(wanted)));
    if (row < 0) {
        return problem(QStringLiteral("has no item ") + quoted(wanted) +
                       QStringLiteral("; it has ") + items.join(QStringLiteral(", ")));
    }
    const QPointer<QComboBox> alive(combo);
    combo->setFocus(Qt::MouseFocusReason);
    combo->showPopup();
    combo->view()->setCurrentIndex(
        combo->model()->index(row, combo->modelColumn(), combo->rootModelIndex()));
    sendKey(*combo->view(), Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    if (!alive || combo->currentText() == wanted) {
        return {};
    }
    return problem(QStringLiteral("shows ") + quoted(combo->currentText()) +
                   QStringLiteral(" after the selection"));
}

Result<void> setChecked(QWidget& control, bool on) {
    auto* const button = qobject_cast<QAbstractButton*>(&control);
    const bool isRadio = qobject_cast<QRadioButton*>(button) != nullptr;
    if (!isRadio && qobject_cast<QCheckBox*>(button) == nullptr) {
        return Error{"is no check box and no radio button"};
    }
    if (isRadio && !on) {
        return Error{"is a radio button and cannot be set off"};
    }
    const QPointer<QAbstractButton> alive(button);
    if (button->isChecked() != on) {
        clickAt(*button, indicatorOf(*button, isRadio ? QStyle::SE_RadioButtonIndicator
                                                      : QStyle::SE_CheckBoxIndicator));
    }
    if (!alive || button->isChecked() == on) {
        return {};
    }
    return Error{on ? "is still off" : "is still on"};
}

Result<void> clickRow(QWidget& control, int row) {
    QTableView* const table = tableOf(control);
    if (Result<void> there = hasRow(table, row); !there) {
        return there;
    }
    if (row < 0) {
        clickBesideRows(*table);
    } else {
        clickAt(*table->viewport(), cellOf(*table, row));
    }
    return {};
}

Result<void> beginDoubleClick(QWidget& control, int row) {
    const QPointer<QWidget> alive(&control);
    Result<void> clicked = clickRow(control, row);
    if (clicked && alive) {
        mouse(*tableOf(control)->viewport(), QEvent::MouseButtonDblClick,
              cellOf(*tableOf(control), row));
    }
    return clicked;
}

void endDoubleClick(QWidget& control, int row) {
    mouse(*tableOf(control)->viewport(), QEvent::MouseButtonRelease,
          cellOf(*tableOf(control), row));
}

void pressKey(QWidget& window, const std::string& name) {
    const QKeyCombination key =
        QKeySequence(QString::fromStdString(name), QKeySequence::PortableText)[0];
    QWidget* const focused = window.focusWidget();
    sendKey(focused == nullptr ? window : *focused, key.key(), key.keyboardModifiers(),
            typedBy(key));
}

void elapse(QTimer& timer) {
    if (timer.isSingleShot()) {
        timer.stop();
    }
    QMetaObject::invokeMethod(&timer, "timeout", Qt::DirectConnection);
}

} // namespace onudesk::ctl
