// SPDX-License-Identifier: MIT
#include "desk/profiles_dialog.h"

#include "desk/profile_dialog.h"

#include <utility>

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace onudesk::desk {

std::string askForProfile(Inventory& inventory, QWidget* parent) {
    std::string name;
    ProfileDialog dialog(
        QObject::tr("Add access profile"), {},
        [&](const AccessProfile& profile) {
            name = profile.name;
            return inventory.putProfile(profile);
        },
        parent);
    return dialog.exec() == QDialog::Accepted ? name : std::string();
}

ProfilesDialog::ProfilesDialog(Inventory& inventory, std::function<void()> onChange,
                               QWidget* parent)
    : QDialog(parent), profileList(new QListWidget(this)), problemLbl(makeProblemLabel(this)),
      inventory_(inventory), onChange_(std::move(onChange)) {
    setObjectName(QStringLiteral("ProfilesDialog"));
    setWindowTitle(tr("Access profiles"));
    profileList->setObjectName(QStringLiteral("profileList"));
    profileList->setAccessibleName(tr("Access profiles"));

    auto* row = new QHBoxLayout;
    auto* buttons = new QVBoxLayout;
    row->addWidget(profileList, 1);
    row->addLayout(buttons);
    addBtn = addButton(tr("&Add…"), "addBtn", &ProfilesDialog::addProfile);
    editBtn = addButton(tr("&Edit…"), "editBtn", &ProfilesDialog::editProfile);
    removeBtn = addButton(tr("&Remove"), "removeBtn", &ProfilesDialog::removeProfile);
    closeBtn = new QPushButton(tr("&Close"), this);
    closeBtn->setObjectName(QStringLiteral("closeBtn"));
    connect(closeBtn, &QPushButton::clicked, this, &QDialog::accept);
    for (QPushButton* button : {addBtn, editBtn, removeBtn}) {
        buttons->addWidget(button);
    }
    buttons->addStretch();
    buttons->addWidget(closeBtn);
    auto* column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(problemLbl);
    connect(profileList, &QListWidget::itemDoubleClicked, this, &ProfilesDialog::editProfile);
    connect(profileList, &QListWidget::currentRowChanged, this, &ProfilesDialog::enableUsed);
    reload({});
}

QPushButton* ProfilesDialog::addButton(const QString& text, const char* objectName,
                                       void (ProfilesDialog::*slot)()) {
    auto* button = new QPushButton(text, this);
    button->setObjectName(QString::fromLatin1(objectName));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, slot);
    return button;
}

std::string ProfilesDialog::selectedName() const {
    const QListWidgetItem* item = profileList->currentItem();
    return item == nullptr ? std::string() : item->text().toStdString();
}

void ProfilesDialog::reload(const std::string& selected) {
    problemLbl->clear();
    profileList->clear();
    for (const auto& [name, profile] : inventory_.profiles()) {
        profileList->addItem(QString::fromStdString(name));
        if (name == selected || profileList->count() == 1) {
            profileList->setCurrentRow(profileList->count() - 1);
        }
    }
    enableUsed();
}

void ProfilesDialog::enableUsed() {
    const bool selected = profileList->currentItem() != nullptr;
    editBtn->setEnabled(selected);
    removeBtn->setEnabled(selected);
}

void ProfilesDialog::addProfile() {
    const std::string name = askForProfile(inventory_, this);
    if (!name.empty()) {
        reload(name);
        onChange_();
    }
}

void ProfilesDialog::editProfile() {
    const auto before = inventory_.profiles().find(selectedName());
    if (before == inventory_.profiles().end()) {
        return;
    }
    std::string name = before->first;
    ProfileDialog dialog(
        tr("Edit access profile"), before->second,
        [&](const AccessProfile& profile) {
            Checked put = inventory_.putProfile(profile, name);
            if (put) {
                name = profile.name;
            }
            return put;
        },
        this);
    if (dialog.exec() == QDialog::Accepted) {
        reload(name);
        onChange_();
    }
}

void ProfilesDialog::removeProfile() {
    if (const Checked removed = inventory_.removeProfile(selectedName()); !removed) {
        problemLbl->setText(QString::fromStdString(removed.error()));
        return;
    }
    reload({});
    onChange_();
}

} // namespace onudesk::desk
