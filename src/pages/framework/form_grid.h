// SPDX-License-Identifier: MIT
//
// Labels and controls in rows: the layout of record pages and item dialogs.
//
//     FormGrid form(*group, 2);
//     form.add(fields);
//     QLineEdit* name = form.edit("nameEdit", 20013);
//     form.beside(*makeButton(group, "nameBtn", 20004, …));
#pragma once

#include "pages/framework/fields.h"

#include <vector>

#include <QWidget>

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace onudesk {

// Fills a widget with label-and-control pairs, left to right, then down. Every control gets its
// object name, a label named after it ("nameEditLabel") and that label's text as accessible name.
// Tab order is the order of adding.
class FormGrid {
public:
    // The widget owns everything; `pairs` is how many stand side by side.
    FormGrid(QWidget& parent, int pairs);

    void add(const std::vector<Field>& fields);
    QLineEdit* edit(const char* name, int labelId);
    QComboBox* combo(const char* name, int labelId);
    // Takes a whole row.
    QPlainTextEdit* memo(const char* name, int labelId);
    // The next control starts a row of its own.
    void newRow();
    // Puts a widget behind the control added last.
    void beside(QWidget& widget);
    // The label of the control added last.
    [[nodiscard]] QLabel* lastLabel() const { return lastLabel_; }

private:
    QWidget& place(QWidget& control, const char* name, int labelId, bool wholeRow);
    void addField(const Field& field);

    QWidget& parent_;
    QGridLayout* grid_;
    QLabel* lastLabel_ = nullptr;
    int pairs_;
    int row_ = 0;
    int pair_ = 0;
    int lastRow_ = 0;
    int lastPair_ = 0;
};

} // namespace onudesk
