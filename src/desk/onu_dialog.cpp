// SPDX-License-Identifier: MIT
#include "desk/onu_dialog.h"

#include "desk/profiles_dialog.h"
#include "platform/files.h"

#include <utility>

#include <QDir>

namespace onudesk::desk {

namespace {

constexpr std::uint32_t kEnglish = 1033;
constexpr std::uint32_t kSimplifiedChinese = 2052;

} // namespace

OnuDialog::OnuDialog(const QString& title, const OnuEntry& onu, Context context, Take take,
                     QWidget* parent)
    : EntryDialog(title, parent), menuCmb(new QComboBox(this)), localeCmb(new QComboBox(this)),
      profileCmb(new QComboBox(this)), newProfileBtn(new QPushButton(tr("Ne&w…"), this)),
      context_(std::move(context)), take_(std::move(take)) {
    setObjectName(QStringLiteral("OnuDialog"));
    nameEdt = addText("name", tr("&Name"), "nameEdt", onu.name);
    agentEdt = addText("agent", tr("&Agent"), "agentEdt", onu.agent);
    agentEdt->setPlaceholderText(tr("HOST or HOST:PORT"));
    onuEdt = addText("onu", tr("&ONU"), "onuEdt", onu.onu);
    onuEdt->setPlaceholderText(tr("OLT.PON.ONU, such as 1.2.5"));
    menuCmb->setObjectName(QStringLiteral("menuCmb"));
    menuCmb->setEditable(true);
    addRow("menu", tr("&Menu file"), menuCmb);
    profileCmb->setObjectName(QStringLiteral("profileCmb"));
    newProfileBtn->setObjectName(QStringLiteral("newProfileBtn"));
    newProfileBtn->setAutoDefault(false);
    addRow("profile", tr("Access &profile"), profileCmb, newProfileBtn);
    localeCmb->setObjectName(QStringLiteral("localeCmb"));
    addRow("locale", tr("&Language"), localeCmb);
    connect(newProfileBtn, &QPushButton::clicked, this, &OnuDialog::addProfile);

    QWidget* const order[] = {nameEdt,    agentEdt,      onuEdt,    menuCmb,
                              profileCmb, newProfileBtn, localeCmb, buttonBox};
    for (std::size_t i = 1; i < std::size(order); ++i) {
        setTabOrder(order[i - 1], order[i]);
    }
    fillMenus(onu.menuFile);
    fillLocales(onu.localeId);
    fillProfiles(onu.profile);
}

void OnuDialog::fillMenus(const std::string& menuFile) {
    const QDir directory(QString::fromStdString(context_.menuDirectory.string()));
    menuCmb->addItems(directory.entryList({QStringLiteral("*_menu.xml")}, QDir::Files));
    menuCmb->setCurrentText(menuFile.empty() ? QString::fromLatin1(kGeneralMenu)
                                             : QString::fromStdString(menuFile));
}

void OnuDialog::fillLocales(std::uint32_t localeId) {
    localeCmb->addItem(tr("As the program"), 0);
    localeCmb->addItem(tr("English"), kEnglish);
    localeCmb->addItem(tr("Simplified Chinese"), kSimplifiedChinese);
    if (localeCmb->findData(localeId) < 0) {
        localeCmb->addItem(QString::fromStdString(platform::localeAbbreviation(localeId)),
                           localeId);
    }
    localeCmb->setCurrentIndex(localeCmb->findData(localeId));
}

void OnuDialog::fillProfiles(const std::string& profile) {
    profileCmb->clear();
    for (const auto& [name, access] : context_.inventory.profiles()) {
        profileCmb->addItem(QString::fromStdString(name));
    }
    profileCmb->setCurrentIndex(
        profile.empty() ? 0 : profileCmb->findText(QString::fromStdString(profile)));
}

void OnuDialog::addProfile() {
    const std::string name = askForProfile(context_.inventory, this);
    if (!name.empty()) {
        fillProfiles(name);
        context_.onNewProfile();
    }
}

Checked OnuDialog::take() {
    return take_({.name = typedName(*nameEdt),
                  .agent = typedName(*agentEdt),
                  .onu = typedName(*onuEdt),
                  .menuFile = menuCmb->currentText().trimmed().toStdString(),
                  .localeId = localeCmb->currentData().toUInt(),
                  .profile = profileCmb->currentText().toStdString()});
}

} // namespace onudesk::desk
