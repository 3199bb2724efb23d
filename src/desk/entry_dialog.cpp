// SPDX-License-Identifier: MIT
#include "desk/entry_dialog.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace onudesk::desk {

namespace {

constexpr int kTextWidth = 40; // characters
constexpr QColor kProblemColour(176, 0, 32);

} // namespace

EntryDialog::EntryDialog(const QString& title, QWidget* parent)
    : QDialog(parent), problemLbl(makeProblemLabel(this)),
      buttonBox(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this)),
      form_(new QFormLayout) {
    setWindowTitle(title);
    problemLbl->hide();
    buttonBox->setObjectName(QStringLiteral("buttonBox"));
    connect(buttonBox, &QDialogButtonBox::accepted, this, &EntryDialog::accept);
    connect(buttonBox, &QDialogButtonBox::rejected, this, &EntryDialog::reject);

    form_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    auto* column = new QVBoxLayout(this);
    column->addLayout(form_);
    column->addStretch();
    column->addWidget(problemLbl);
    column->addWidget(buttonBox);
}

void EntryDialog::accept() {
    const Checked taken = take();
    if (taken) {
        QDialog::accept();
        return;
    }
    problemLbl->setText(QString::fromStdString(taken.error()));
    problemLbl->show();
    if (const auto control = controls_.find(taken.failure().field); control != controls_.end()) {
        control->second->setFocus();
    }
}

void EntryDialog::addRow(const char* field, const QString& label, QWidget* control) {
    controls_.emplace(field, control);
    form_->addRow(label, control);
}

void EntryDialog::addRow(const char* field, const QString& label, QWidget* control,
                         QWidget* beside) {
    controls_.emplace(field, control);
    auto* pair = new QHBoxLayout;
    pair->addWidget(control, 1);
    pair->addWidget(beside);
    auto* name = new QLabel(label, this);
    name->setBuddy(control);
    form_->addRow(name, pair);
}

QLineEdit* EntryDialog::addText(const char* field, const QString& label, const char* objectName,
                                const std::string& value) {
    auto* edit = new QLineEdit(QString::fromStdString(value), this);
    edit->setObjectName(QString::fromLatin1(objectName));
    edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * kTextWidth);
    addRow(field, label, edit);
    return edit;
}

QLineEdit* EntryDialog::addSecret(const char* field, const QString& label, const char* objectName,
                                  const std::string& value) {
    QLineEdit* edit = addText(field, label, objectName, value);
    edit->setEchoMode(QLineEdit::Password);
    return edit;
}

QComboBox* EntryDialog::addChoice(const char* field, const QString& label, const char* objectName) {
    auto* box = new QComboBox(this);
    box->setObjectName(QString::fromLatin1(objectName));
    addRow(field, label, box);
    return box;
}

void EntryDialog::setRowEnabled(QWidget* control, bool enabled) {
    control->setEnabled(enabled);
    if (QWidget* label = form_->labelForField(control)) {
        label->setEnabled(enabled);
    }
}

QLabel* makeProblemLabel(QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(QStringLiteral("problemLbl"));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    QPalette colours = label->palette();
    colours.setColor(QPalette::WindowText, kProblemColour);
    label->setPalette(colours);
    return label;
}

std::string typed(const QLineEdit& edit) {
    return edit.text().toStdString();
}

std::string typedName(const QLineEdit& edit) {
    return edit.text().trimmed().toStdString();
}

} // namespace onudesk::desk
