// SPDX-License-Identifier: MIT
#include "desk/profile_dialog.h"

#include <utility>

namespace onudesk::desk {

namespace {

// The first choice stands for a value without a name.
template <typename Value, std::size_t count>
void fill(QComboBox& box, const Named<Value> (&names)[count], Value value) {
    for (const Named<Value>& known : names) {
        box.addItem(QString::fromLatin1(known.name), static_cast<int>(known.value));
    }
    box.setCurrentIndex(std::max(0, box.findData(static_cast<int>(value))));
}

template <typename Value>
Value chosen(const QComboBox& box) {
    return static_cast<Value>(box.currentData().toInt());
}

} // namespace

ProfileDialog::ProfileDialog(const QString& title, const AccessProfile& profile, Take take,
                             QWidget* parent)
    : EntryDialog(title, parent), take_(std::move(take)) {
    setObjectName(QStringLiteral("ProfileDialog"));
    nameEdt = addText("name", tr("&Name"), "nameEdt", profile.name);
    versionCmb = addChoice("version", tr("SNMP &version"), "versionCmb");
    readCommunityEdt = addSecret("readCommunity", tr("&Read community"), "readCommunityEdt",
                                 profile.readCommunity);
    writeCommunityEdt = addSecret("writeCommunity", tr("&Write community"), "writeCommunityEdt",
                                  profile.writeCommunity);
    userEdt = addText("user", tr("&User"), "userEdt", profile.v3.user);
    levelCmb = addChoice("level", tr("Security &level"), "levelCmb");
    authProtocolCmb = addChoice("authProtocol", tr("&Authentication"), "authProtocolCmb");
    authPassphraseEdt = addSecret("authPassphrase", tr("Authentication pass p&hrase"),
                                  "authPassphraseEdt", profile.v3.authPassphrase);
    privProtocolCmb = addChoice("privProtocol", tr("Privac&y"), "privProtocolCmb");
    privPassphraseEdt = addSecret("privPassphrase", tr("Privacy pass phras&e"), "privPassphraseEdt",
                                  profile.v3.privPassphrase);
    contextEdt = addText("context", tr("Conte&xt"), "contextEdt", profile.v3.contextName);

    fill(*versionCmb, kSnmpVersions, profile.version);
    fill(*levelCmb, kSecurityLevels, profile.v3.level);
    fill(*authProtocolCmb, kAuthProtocols, profile.v3.authProtocol);
    fill(*privProtocolCmb, kPrivProtocols, profile.v3.privProtocol);
    connect(versionCmb, &QComboBox::currentIndexChanged, this, &ProfileDialog::enableUsed);
    connect(levelCmb, &QComboBox::currentIndexChanged, this, &ProfileDialog::enableUsed);
    enableUsed();
}

void ProfileDialog::enableUsed() {
    const bool v3 = chosen<host::SnmpVersion>(*versionCmb) == host::SnmpVersion::v3;
    const auto level = chosen<host::SecurityLevel>(*levelCmb);
    setRowEnabled(readCommunityEdt, !v3);
    setRowEnabled(writeCommunityEdt, !v3);
    setRowEnabled(userEdt, v3);
    setRowEnabled(levelCmb, v3);
    setRowEnabled(contextEdt, v3);
    setRowEnabled(authProtocolCmb, v3 && level >= host::SecurityLevel::authNoPriv);
    setRowEnabled(authPassphraseEdt, v3 && level >= host::SecurityLevel::authNoPriv);
    setRowEnabled(privProtocolCmb, v3 && level == host::SecurityLevel::authPriv);
    setRowEnabled(privPassphraseEdt, v3 && level == host::SecurityLevel::authPriv);
}

AccessProfile ProfileDialog::entered() const {
    return {.name = typedName(*nameEdt),
            .version = chosen<host::SnmpVersion>(*versionCmb),
            .readCommunity = typed(*readCommunityEdt),
            .writeCommunity = typed(*writeCommunityEdt),
            .v3 = {.user = typed(*userEdt),
                   .contextName = typed(*contextEdt),
                   .level = chosen<host::SecurityLevel>(*levelCmb),
                   .authProtocol = chosen<host::AuthProtocol>(*authProtocolCmb),
                   .authPassphrase = typed(*authPassphraseEdt),
                   .privProtocol = chosen<host::PrivProtocol>(*privProtocolCmb),
                   .privPassphrase = typed(*privPassphraseEdt)}};
}

Checked ProfileDialog::take() {
    return take_(entered());
}

} // namespace onudesk::desk
