// SPDX-License-Identifier: MIT
#include "pages/framework/field_set.h"

#include "base/text.h"
#include "pages/framework/controls.h"

#include <algorithm>
#include <utility>

namespace onudesk {

void FieldSet::add(FormGrid& form, std::vector<Field> fields) {
    form.add(fields);
    bound_.reserve(bound_.size() + fields.size());
    for (Field& field : fields) {
        auto* control = form.find<QWidget>(field.control);
        auto* tick = form.find<QAbstractButton>(field.enabledBy.tick);
        auto* list = form.find<QComboBox>(field.enabledBy.list);
        bound_.push_back({std::move(field), control, tick, list});
        follow(bound_.back());
    }
}

void FieldSet::follow(const Bound& bound) const {
    if (bound.field.enabledBy.tickEnables) {
        bound.control->setEnabled(bound.tick->isChecked());
        QObject::connect(bound.tick, &QAbstractButton::toggled, bound.control,
                         &QWidget::setEnabled);
    }
    if (bound.list != nullptr) {
        // Several fields can follow one list: each enables all, which is what a chain of lists
        // needs, too.
        QObject::connect(bound.list, &QComboBox::activated, bound.control, [this] { enable(); });
        QObject::connect(bound.list, &QComboBox::currentIndexChanged, bound.control,
                         [this] { enable(); });
    }
}

void FieldSet::enable() const {
    for (const Bound& bound : bound_) {
        const EnabledBy& by = bound.field.enabledBy;
        const auto chosen = bound.list == nullptr ? std::nullopt : selectedCode(*bound.list);
        if (bound.list != nullptr && (chosen || !by.keepsUnchosen)) {
            bound.control->setEnabled(bound.list->isEnabled() && chosen &&
                                      std::ranges::count(by.codes, *chosen) != 0);
        }
    }
}

QWidget* FieldSet::find(const std::string& name) const {
    for (const Bound& bound : bound_) {
        if (bound.field.control == name) {
            return bound.control;
        }
        if (bound.field.enabledBy.tick == name) {
            return bound.tick;
        }
    }
    return nullptr;
}

Field& FieldSet::at(const std::string& control) {
    const auto found = std::ranges::find_if(
        bound_, [&](const Bound& bound) { return bound.field.control == control; });
    if (found == bound_.end()) {
        qFatal("no field named %s", control.c_str());
    }
    return found->field;
}

std::vector<Field> FieldSet::list() const {
    std::vector<Field> fields;
    fields.reserve(bound_.size());
    for (const Bound& bound : bound_) {
        fields.push_back(bound.field);
    }
    return fields;
}

void FieldSet::show(const ReadResult& result) const {
    for (const Bound& bound : bound_) {
        const auto text = shownText(bound.field, result);
        if (!text) {
            continue;
        }
        if (!bound.field.codes.empty()) {
            showValue(*bound.control, bound.field.codes, result.values[bound.field.position]);
        } else {
            setControlText(*bound.control, *text);
        }
    }
    enable();
}

void FieldSet::showRow(const RowTable& table, int row) const {
    const std::vector<std::string> cells = table.cells(row);
    const std::vector<std::string> values = table.values(row);
    for (const Bound& bound : bound_) {
        if (bound.field.position >= cells.size()) {
            continue;
        }
        if (auto* combo = qobject_cast<QComboBox*>(bound.control)) {
            selectIfKnown(*combo, values[bound.field.position]);
        } else {
            setControlText(*bound.control, cells[bound.field.position]);
        }
    }
    enable();
}

void FieldSet::empty() const {
    for (const Bound& bound : bound_) {
        if (bound.field.position == kNotRead) {
            continue;
        }
        if (auto* combo = qobject_cast<QComboBox*>(bound.control)) {
            selectByText(*combo, {});
        } else {
            setControlText(*bound.control, {});
        }
    }
}

FieldState FieldSet::stateOf(const Bound& bound) {
    FieldState state = bound.control == nullptr ? FieldState{} : onudesk::stateOf(*bound.control);
    if (bound.tick != nullptr) {
        state.ticked = bound.tick->isChecked();
    }
    if (bound.field.kind == ControlKind::listMemo) {
        state.text = std::string(trimmed(state.text));
    }
    return state;
}

bool FieldSet::check(std::uint32_t owner) const {
    for (const Bound& bound : bound_) {
        if (const auto failure = checkField(bound.field, stateOf(bound))) {
            refuse(*failure, bound.control, owner);
            return false;
        }
    }
    return true;
}

void FieldSet::bind(WriteRequest& request, const std::string& suffix,
                    const std::string& prefix) const {
    for (const Bound& bound : bound_) {
        const FieldState state = stateOf(bound);
        if (isWritten(bound.field, state) && bound.field.object.name.starts_with(prefix)) {
            request.bind(bound.field.object, writtenValue(bound.field, state), suffix,
                         writtenLength(bound.field));
        }
    }
}

} // namespace onudesk
