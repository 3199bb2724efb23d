// SPDX-License-Identifier: MIT
#include "pages/framework/form_grid.h"

#include "env/language_module.h"
#include "pages/framework/controls.h"

#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>

namespace onudesk {

namespace {

// Grid columns of one pair: label, control, what stands beside it, and the gap to the next pair.
constexpr int kColumnsPerPair = 4;
constexpr int kGap = 16;
constexpr int kMemoLines = 2;

} // namespace

FormGrid::FormGrid(QWidget& parent, int pairs)
    : parent_(parent), grid_(new QGridLayout(&parent)), pairs_(pairs) {
    for (int pair = 0; pair < pairs; ++pair) {
        grid_->setColumnStretch(pair * kColumnsPerPair + 1, 1);
        if (pair + 1 < pairs) {
            grid_->setColumnMinimumWidth(pair * kColumnsPerPair + 3, kGap);
        }
    }
}

void FormGrid::add(const std::vector<Field>& fields) {
    for (const Field& field : fields) {
        addField(field);
    }
}

void FormGrid::addField(const Field& field) {
    const bool readOnly = field.written == Written::never;
    const char* name = field.control.c_str();
    switch (field.kind) {
    case ControlKind::edit:
        edit(name, field.labelId)->setReadOnly(readOnly);
        break;
    case ControlKind::memo:
        memo(name, field.labelId)->setReadOnly(readOnly);
        break;
    case ControlKind::combo:
        fillCombo(*combo(name, field.labelId), *field.map);
        break;
    }
}

QLineEdit* FormGrid::edit(const char* name, int labelId) {
    auto* control = new QLineEdit(&parent_);
    place(*control, name, labelId, false);
    return control;
}

QComboBox* FormGrid::combo(const char* name, int labelId) {
    auto* control = new QComboBox(&parent_);
    place(*control, name, labelId, false);
    return control;
}

QPlainTextEdit* FormGrid::memo(const char* name, int labelId) {
    auto* control = new QPlainTextEdit(&parent_);
    control->setTabChangesFocus(true);
    const int lines = control->fontMetrics().lineSpacing() * kMemoLines;
    control->setFixedHeight(lines + 2 * control->frameWidth() + 10);
    place(*control, name, labelId, true);
    return control;
}

void FormGrid::newRow() {
    row_ += pair_ == 0 ? 0 : 1;
    pair_ = 0;
}

void FormGrid::beside(QWidget& widget) {
    grid_->addWidget(&widget, lastRow_, lastPair_ * kColumnsPerPair + 2);
}

QWidget& FormGrid::place(QWidget& control, const char* name, int labelId, bool wholeRow) {
    if (wholeRow) {
        newRow();
    }
    control.setObjectName(QString::fromLatin1(name));
    lastLabel_ = new QLabel(&parent_);
    lastLabel_->setObjectName(QString::fromLatin1(name) + QStringLiteral("Label"));
    lastLabel_->setTextFormat(Qt::PlainText);
    lastLabel_->setBuddy(&control);
    setCaption(*lastLabel_, labelId);
    control.setAccessibleName(shown(messageText(labelId)));
    const int column = pair_ * kColumnsPerPair;
    // Up to the right edge of the last pair's controls.
    const int span = wholeRow ? (pairs_ - 1) * kColumnsPerPair + 1 : 1;
    grid_->addWidget(lastLabel_, row_, column, wholeRow ? Qt::AlignTop : Qt::Alignment());
    grid_->addWidget(&control, row_, column + 1, 1, span);
    lastRow_ = row_;
    lastPair_ = pair_;
    pair_ = wholeRow ? 0 : (pair_ + 1) % pairs_;
    row_ += pair_ == 0 ? 1 : 0;
    return control;
}

} // namespace onudesk
