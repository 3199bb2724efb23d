// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/fields.h"
#include "pages/framework/form_grid.h"
#include "pages/framework/row_table.h"
#include "pages/framework/write_request.h"

#include <cstdint>
#include <string>
#include <vector>

#include <QAbstractButton>
#include <QComboBox>
#include <QWidget>

namespace onudesk {

// The fields of a page or item dialog together with their controls: made, filled, checked and
// written in one order.
class FieldSet {
public:
    // Makes the controls in the form, which owns them. Order is the order of adding.
    void add(FormGrid& form, std::vector<Field> fields);

    // The control of a field, or the check box or radio button that it is ticked by, by object
    // name. There must be one of that kind.
    template <typename Control = QWidget>
    [[nodiscard]] Control* control(const std::string& name) const {
        auto* found = qobject_cast<Control*>(find(name));
        if (found == nullptr) {
            qFatal("no such control in the fields: %s", name.c_str());
        }
        return found;
    }

    // The field of a control, to change its bounds.
    [[nodiscard]] Field& at(const std::string& control);
    // All of them, in order.
    [[nodiscard]] std::vector<Field> list() const;

    // Shows a decoded reply; fields it has no value for stay as they are.
    void show(const ReadResult& result) const;
    // Shows the row of a table: cells as they stand, in combos what their values choose; a value
    // that is no code of its combo leaves the combo as it is.
    void showRow(const RowTable& table, int row) const;
    // Enables each control as its declaration says; the operator's choices and ticks do so, too.
    void enable() const;
    // Empties edits and memos and clears selections of all fields that replies fill.
    void empty() const;
    // Checks in order. The first bad field is told, in a box owned by that window, and gets the
    // focus.
    [[nodiscard]] bool check(std::uint32_t owner) const;
    // One binding per field that is written, in order, for that instance. With a prefix, only of
    // objects whose names begin with it.
    void bind(WriteRequest& request, const std::string& suffix,
              const std::string& prefix = {}) const;

private:
    struct Bound {
        Field field;
        QWidget* control = nullptr; // null for a constant
        QAbstractButton* tick = nullptr;
        QComboBox* list = nullptr; // that it is enabled by
    };
    void follow(const Bound& bound) const;
    [[nodiscard]] static FieldState stateOf(const Bound& bound);
    [[nodiscard]] QWidget* find(const std::string& name) const; // null when there is none

    std::vector<Bound> bound_;
};

} // namespace onudesk
