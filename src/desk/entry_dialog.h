// SPDX-License-Identifier: MIT
#pragma once

#include "desk/inventory.h"

#include <map>
#include <optional>
#include <string>

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

namespace onudesk::desk {

// A form that closes with OK only once its entry was taken; until then it tells, beside the
// buttons, what is wrong and points to the field.
class EntryDialog : public QDialog {
public:
    EntryDialog(const QString& title, QWidget* parent);

    QLabel* problemLbl;
    QDialogButtonBox* buttonBox;

    void accept() override;

protected:
    // Tells why the entry is refused, or nothing when it was taken.
    [[nodiscard]] virtual Checked take() = 0;

    // The row's label is the control's buddy; `field` is the field in Problem.
    void addRow(const char* field, const QString& label, QWidget* control);
    // The same with something beside the control.
    void addRow(const char* field, const QString& label, QWidget* control, QWidget* beside);
    QLineEdit* addText(const char* field, const QString& label, const char* objectName,
                       const std::string& value);
    QLineEdit* addSecret(const char* field, const QString& label, const char* objectName,
                         const std::string& value);
    QComboBox* addChoice(const char* field, const QString& label, const char* objectName);
    // Enables or disables a row.
    void setRowEnabled(QWidget* control, bool enabled);

private:
    QFormLayout* form_;
    std::map<std::string, QWidget*, std::less<>> controls_;
};

// A label, named problemLbl, for telling why something was refused.
[[nodiscard]] QLabel* makeProblemLabel(QWidget* parent);

// Text as typed, in UTF-8.
[[nodiscard]] std::string typed(const QLineEdit& edit);
// The same without blanks at both ends.
[[nodiscard]] std::string typedName(const QLineEdit& edit);

} // namespace onudesk::desk
