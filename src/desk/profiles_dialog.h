// SPDX-License-Identifier: MIT
#pragma once

#include "desk/inventory.h"

#include <functional>
#include <string>

#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

namespace onudesk::desk {

// The list of access profiles. Every change is in the inventory at once.
class ProfilesDialog : public QDialog {
public:
    // `onChange` is called after each change. The inventory outlives the dialog.
    ProfilesDialog(Inventory& inventory, std::function<void()> onChange, QWidget* parent);

    QListWidget* profileList;
    QPushButton* addBtn;
    QPushButton* editBtn;
    QPushButton* removeBtn;
    QPushButton* closeBtn;
    QLabel* problemLbl;

private:
    QPushButton* addButton(const QString& text, const char* objectName,
                           void (ProfilesDialog::*slot)());
    void addProfile();
    void editProfile();
    void removeProfile();
    void reload(const std::string& selected);
    void enableUsed();
    [[nodiscard]] std::string selectedName() const;

    Inventory& inventory_;
    std::function<void()> onChange_;
};

// Asks for a new profile and puts it into the inventory. Empty when the operator cancelled,
// otherwise its name.
[[nodiscard]] std::string askForProfile(Inventory& inventory, QWidget* parent);

} // namespace onudesk::desk
