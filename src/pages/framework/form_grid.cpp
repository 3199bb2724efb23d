// SPDX-License-Identifier: MIT
#include "pages/framework/form_grid.h"

#include "env/language_module.h"
#include "pages/framework/controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>

namespace onudesk {

namespace {

// Grid columns of one pair: label, control, what stands beside it, and the gap to the next pair.
constexpr int kColumnsPerPair = 4;
constexpr int kGap = 16;
constexpr int kMargin = 8;
constexpr int kMemoLines = 2;

} // namespace

FormGrid::FormGrid(QWidget& parent, int pairs)
    : parent_(parent), grid_(new QGridLayout(&parent)), pairs_(pairs) {
    grid_->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    for (int pair = 0; pair < pairs; ++pair) {
        grid_->setColumnStretch(pair * kColumnsPerPair + 1, 1);
        if (pair + 1 < pairs) {
            grid_->setColumnMinimumWidth(pair * kColumnsPerPair + 3, kGap);
        }
    }
}

void FormGrid::titles(const std::vector<int>& messageIds) {
    for (const int id : messageIds) {
        auto* title = new QLabel(&parent_);
        setCaption(*title, id);
        place(nullptr, title, false);
    }
}

void FormGrid::add(const std::vector<Field>& fields) {
    for (const Field& field : fields) {
        addField(field);
    }
}

void FormGrid::addField(const Field& field) {
    if (field.kind == ControlKind::none) {
        if (!field.enabledBy.tick.empty()) {
            place(makeTick(field), nullptr, false);
        }
        return;
    }
    const bool isMemo = field.kind == ControlKind::memo || field.kind == ControlKind::listMemo;
    if (isMemo) {
        newRow();
    }
    // Before the control: the order of making is the order of tabs.
    QWidget* caption = makeCaption(field);
    QWidget& control = *makeControl(field);
    control.setObjectName(QString::fromStdString(field.control));
    control.setAccessibleName(shown(messageText(field.labelId)));
    if (lastLabel_ != nullptr) {
        lastLabel_->setBuddy(&control);
        setCaption(*lastLabel_, field.labelId);
    }
    place(caption, &control, isMemo);
    if (field.show.unit != nullptr) {
        auto* unit = new QLabel(&parent_);
        setCaption(*unit, QString::fromUtf8(field.show.unit));
        unit->setObjectName(control.objectName() + QStringLiteral("Unit"));
        beside(*unit);
    }
}

QWidget* FormGrid::makeControl(const Field& field) {
    const bool readOnly = field.written == Written::never;
    if (field.kind == ControlKind::combo) {
        auto* combo = new QComboBox(&parent_);
        if (!field.codes.empty()) {
            fillCombo(*combo, field.codes);
        }
        combo->setEnabled(!readOnly || field.position == kNotRead);
        return combo;
    }
    if (field.kind == ControlKind::memo || field.kind == ControlKind::listMemo) {
        auto* memo = new QPlainTextEdit(&parent_);
        memo->setReadOnly(readOnly);
        memo->setTabChangesFocus(true);
        if (field.typing.bytes >= 0) {
            limitTyping(*memo, field.typing.bytes);
        }
        if (field.typing.characters >= 0) {
            limitCharacters(*memo, field.typing.characters);
        }
        const int lines = memo->fontMetrics().lineSpacing() * kMemoLines;
        memo->setFixedHeight(lines + 2 * memo->frameWidth() + 10);
        return memo;
    }
    auto* edit = new QLineEdit(&parent_);
    edit->setReadOnly(readOnly);
    if (field.typing.bytes >= 0) {
        limitTyping(*edit, field.typing.bytes);
    }
    if (field.typing.characters >= 0) {
        limitCharacters(*edit, field.typing.characters);
    }
    if (field.typing.digitsOnly) {
        digitsOnly(*edit);
    }
    if (field.kind == ControlKind::mac) {
        maskMac(*edit);
    }
    return edit;
}

QLineEdit* FormGrid::edit(const char* name, int labelId) {
    addField({.control = name, .labelId = labelId, .written = Written::always});
    return find<QLineEdit>(name);
}

QComboBox* FormGrid::combo(const char* name, int labelId) {
    addField({.control = name, .labelId = labelId, .kind = ControlKind::combo});
    return find<QComboBox>(name);
}

void FormGrid::over(QWidget& widget) {
    grid_->addWidget(&widget, lastRow_, lastPair_ * kColumnsPerPair + 1);
}

void FormGrid::newRow() {
    row_ += pair_ == 0 ? 0 : 1;
    pair_ = 0;
}

void FormGrid::beside(QWidget& widget) {
    grid_->addWidget(&widget, lastRow_, lastPair_ * kColumnsPerPair + 2);
}

QWidget* FormGrid::makeTick(const Field& field) {
    QAbstractButton* tick = nullptr;
    if (field.enabledBy.isRadio) {
        tick = new QRadioButton(&parent_);
        tick->setChecked(!hasRadio_);
        hasRadio_ = true;
    } else {
        tick = new QCheckBox(&parent_);
    }
    tick->setObjectName(QString::fromStdString(field.enabledBy.tick));
    setCaption(*tick, field.labelId);
    return tick;
}

QWidget* FormGrid::makeCaption(const Field& field) {
    lastLabel_ = nullptr;
    const bool shared = find(field.enabledBy.tick) != nullptr;
    if (!field.enabledBy.tick.empty() && !shared) {
        tickLabelId_ = field.labelId;
        return makeTick(field);
    }
    if (shared && field.labelId == tickLabelId_) {
        return nullptr;
    }
    lastLabel_ = new QLabel(&parent_);
    lastLabel_->setObjectName(QString::fromStdString(field.control + "Label"));
    lastLabel_->setTextFormat(Qt::PlainText);
    return lastLabel_;
}

void FormGrid::place(QWidget* caption, QWidget* control, bool wholeRow) {
    const int column = pair_ * kColumnsPerPair;
    if (caption != nullptr) {
        // No wider than its text: a box takes no clicks beside it.
        const bool isTick = qobject_cast<QAbstractButton*>(caption) != nullptr;
        grid_->addWidget(caption, row_, column,
                         (wholeRow ? Qt::AlignTop : Qt::Alignment()) |
                             (isTick ? Qt::AlignLeft : Qt::Alignment()));
    }
    // Up to the right edge of the last pair's controls.
    const int span = wholeRow ? (pairs_ - 1) * kColumnsPerPair + 1 : 1;
    if (control != nullptr) {
        grid_->addWidget(control, row_, column + 1, 1, span);
    }
    lastRow_ = row_;
    lastPair_ = pair_;
    pair_ = wholeRow ? 0 : (pair_ + 1) % pairs_;
    row_ += pair_ == 0 ? 1 : 0;
}

void addNote(QWidget& form, int messageId) {
    auto* note = new QLabel(&form);
    note->setObjectName(QStringLiteral("noteLabel"));
    setCaption(*note, messageId);
    auto* grid = static_cast<QGridLayout*>(form.layout());
    grid->addWidget(note, grid->rowCount(), 0, 1, kColumnsPerPair);
}

} // namespace onudesk
