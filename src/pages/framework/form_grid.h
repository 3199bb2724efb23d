// SPDX-License-Identifier: MIT
//
// Labels and controls in rows: the layout of record pages and item dialogs.
//
//     FormGrid form(*group, 2);
//     form.add(fields);
//     auto* name = form.find<QLineEdit>("nameEdit");
//     form.beside(*makeButton(group, "nameBtn", 20004, …));
#pragma once

#include "pages/framework/fields.h"

#include <string>
#include <vector>

#include <QString>
#include <QWidget>

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;

namespace onudesk {

// Fills a widget with label-and-control pairs, left to right, then down. Every control gets its
// object name, a label named after it ("nameEditLabel") and that label's text as accessible name; a
// field with a tick has the check box or radio button in place of the label; fields that share it
// have a label only where it differs from that of the tick. The first radio button is chosen. Tab
// order is the order of adding.
class FormGrid {
public:
    // The widget owns everything; `pairs` is how many stand side by side.
    FormGrid(QWidget& parent, int pairs);

    // A title above the controls of each pair; call it first.
    void titles(const std::vector<int>& messageIds);
    // Makes the controls; constants have none but their tick. Of what is never written,
    // edits are read-only, and combos that replies fill are disabled.
    void add(const std::vector<Field>& fields);
    // A control made before, by object name; null without a name.
    template <typename Control = QWidget>
    [[nodiscard]] Control* find(const std::string& name) const {
        return name.empty() ? nullptr : parent_.findChild<Control*>(QString::fromStdString(name));
    }
    QLineEdit* edit(const char* name, int labelId);
    QComboBox* combo(const char* name, int labelId);
    // The next control starts a row of its own.
    void newRow();
    // Puts a widget behind the control added last, or into its place.
    void beside(QWidget& widget);
    void over(QWidget& widget);
    // The label of the control added last.
    [[nodiscard]] QLabel* lastLabel() const { return lastLabel_; }

private:
    void addField(const Field& field);
    [[nodiscard]] QWidget* makeControl(const Field& field);
    // What stands before the control: its label or tick, null when it shares the tick before.
    [[nodiscard]] QWidget* makeCaption(const Field& field);
    void place(QWidget* caption, QWidget* control, bool wholeRow); // either may be null
    [[nodiscard]] QWidget* makeTick(const Field& field);

    QWidget& parent_;
    QGridLayout* grid_;
    QLabel* lastLabel_ = nullptr;
    int tickLabelId_ = 0; // of the tick made last
    bool hasRadio_ = false;
    int pairs_;
    int row_ = 0;
    int pair_ = 0;
    int lastRow_ = 0;
    int lastPair_ = 0;
};

// A line of text, noteLabel, below a form of one pair.
void addNote(QWidget& form, int messageId);

} // namespace onudesk
