// SPDX-License-Identifier: MIT
#include "desk/onu_dialog.h"
#include "desk/profile_dialog.h"
#include "desk/profiles_dialog.h"
#include "desk_test.h"
#include "sample_entries.h"

#include <QLabel>

namespace onudesk::desk {

namespace {

using test::choose;
using test::enter;
using test::press;
using test::problemIn;
using test::withModal;

template <typename Entry>
auto takeInto(std::optional<Entry>& taken) {
    return [&taken](const Entry& entry) {
        taken = entry;
        return Checked();
    };
}

void enterSchool(const QWidget& dialog) {
    enter(dialog, "nameEdt", "  School ");
    enter(dialog, "agentEdt", " 10.0.0.1 ");
    enter(dialog, "onuEdt", "1.1.1 ");
    press(dialog, QDialogButtonBox::Ok);
}

TEST(ProfileDialog, GivesBackWhatItWasGiven) {
    for (const AccessProfile& profile : {test::communityProfile(), test::v3Profile()}) {
        std::optional<AccessProfile> taken;
        ProfileDialog dialog(QStringLiteral("Edit"), profile, takeInto(taken), nullptr);
        press(dialog, QDialogButtonBox::Ok);
        ASSERT_TRUE(taken);
        EXPECT_EQ(dialog.result(), QDialog::Accepted);
        EXPECT_EQ(taken->name, profile.name);
        EXPECT_EQ(taken->version, profile.version);
        EXPECT_EQ(taken->readCommunity, profile.readCommunity);
        EXPECT_EQ(taken->writeCommunity, profile.writeCommunity);
        if (profile.version == host::SnmpVersion::v3) {
            EXPECT_EQ(taken->v3, profile.v3);
        }
    }
}

TEST(ProfileDialog, SecretsAreNeverReadable) {
    const ProfileDialog dialog(QStringLiteral("Edit"), test::v3Profile(), {}, nullptr);
    for (const QLineEdit* edit : {dialog.readCommunityEdt, dialog.writeCommunityEdt,
                                  dialog.authPassphraseEdt, dialog.privPassphraseEdt}) {
        EXPECT_EQ(edit->echoMode(), QLineEdit::Password) << edit->objectName().toStdString();
    }
}

TEST(ProfileDialog, EnablesWhatVersionAndLevelUseAndKeepsTheRest) {
    struct Case {
        const char* version;
        const char* level;
        bool communities, user, auth, priv;
    };
    constexpr Case cases[] = {{"v1", "authPriv", true, false, false, false},
                              {"v2c", "authPriv", true, false, false, false},
                              {"v3", "noAuthNoPriv", false, true, false, false},
                              {"v3", "authNoPriv", false, true, true, false},
                              {"v3", "authPriv", false, true, true, true}};
    std::optional<AccessProfile> taken;
    ProfileDialog dialog(QStringLiteral("Edit"), test::v3Profile(), takeInto(taken), nullptr);
    for (const Case& wanted : cases) {
        choose(dialog, "versionCmb", wanted.version);
        choose(dialog, "levelCmb", wanted.level);
        SCOPED_TRACE(std::string(wanted.version) + " " + wanted.level);
        EXPECT_EQ(dialog.readCommunityEdt->isEnabled(), wanted.communities);
        EXPECT_EQ(dialog.writeCommunityEdt->isEnabled(), wanted.communities);
        EXPECT_EQ(dialog.userEdt->isEnabled(), wanted.user);
        EXPECT_EQ(dialog.levelCmb->isEnabled(), wanted.user);
        EXPECT_EQ(dialog.contextEdt->isEnabled(), wanted.user);
        EXPECT_EQ(dialog.authProtocolCmb->isEnabled(), wanted.auth);
        EXPECT_EQ(dialog.authPassphraseEdt->isEnabled(), wanted.auth);
        EXPECT_EQ(dialog.privProtocolCmb->isEnabled(), wanted.priv);
        EXPECT_EQ(dialog.privPassphraseEdt->isEnabled(), wanted.priv);
    }
    choose(dialog, "versionCmb", "v1");
    press(dialog, QDialogButtonBox::Ok);
    ASSERT_TRUE(taken);
    EXPECT_EQ(taken->v3, test::v3Profile().v3);
}

TEST(ProfileDialog, RefusalNamesTheFieldAndLosesNothing) {
    Inventory inventory;
    ProfileDialog dialog(
        QStringLiteral("Add"), test::v3Profile(),
        [&](const AccessProfile& profile) { return inventory.putProfile(profile); }, nullptr);
    dialog.show();
    enter(dialog, "userEdt", "somebody");
    enter(dialog, "privPassphraseEdt", "7 bytes");
    press(dialog, QDialogButtonBox::Ok);

    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(dialog.problemLbl->isVisible());
    EXPECT_EQ(problemIn(dialog), "Privacy pass phrase needs at least 8 characters");
    EXPECT_EQ(dialog.focusWidget(), dialog.privPassphraseEdt);
    EXPECT_EQ(typed(*dialog.userEdt), "somebody");
    EXPECT_EQ(typed(*dialog.privPassphraseEdt), "7 bytes");
    EXPECT_TRUE(inventory.profiles().empty());

    enter(dialog, "privPassphraseEdt", "8 bytes!");
    press(dialog, QDialogButtonBox::Ok);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(inventory.profiles().at("core").v3.user, "somebody");
}

TEST(OnuDialog, KeepsAnEntryItHasNoChoiceFor) {
    Inventory inventory = test::sampleInventory();
    OnuEntry onu = test::sampleOnu();
    onu.menuFile = "own_menu.xml";
    onu.localeId = 1031;
    std::optional<OnuEntry> taken;
    OnuDialog dialog(QStringLiteral("Edit"), onu,
                     {.inventory = inventory, .menuDirectory = {}, .onNewProfile = [] {}},
                     takeInto(taken), nullptr);
    press(dialog, QDialogButtonBox::Ok);
    ASSERT_TRUE(taken);
    EXPECT_EQ(*taken, onu);
}

TEST(OnuDialog, OffersTheMenusOfTheClientAndTrimsWhatIsTyped) {
    Inventory inventory = test::sampleInventory();
    OnuDialog dialog(
        QStringLiteral("Add"), {},
        {.inventory = inventory,
         .menuDirectory = std::string(ONUDESK_SOURCE_DIR) + "/client/CONF/snmp",
         .onNewProfile = [] {}},
        [&](const OnuEntry& entered) { return inventory.putOnu(entered); }, nullptr);
    EXPECT_EQ(dialog.menuCmb->currentText().toStdString(), kGeneralMenu);
    EXPECT_GE(dialog.menuCmb->findText(QStringLiteral("epononu4590_menu.xml")), 0);
    EXPECT_LT(dialog.menuCmb->findText(QStringLiteral("snmpconfig.xml")), 0);
    enterSchool(dialog);
    EXPECT_EQ(problemIn(dialog), "");
    ASSERT_TRUE(inventory.onus().contains("School"));
    EXPECT_EQ(inventory.onus().at("School").onu, "1.1.1");
}

TEST(OnuDialog, AProfileCanBeMadeWithoutLosingTheEntry) {
    Inventory inventory;
    int changes = 0;
    OnuDialog dialog(
        QStringLiteral("Add"), {},
        {.inventory = inventory, .menuDirectory = {}, .onNewProfile = [&] { ++changes; }},
        [&](const OnuEntry& entered) { return inventory.putOnu(entered); }, nullptr);
    dialog.show();
    enterSchool(dialog);
    EXPECT_EQ(problemIn(dialog), "Access profile is missing");

    withModal([&] { dialog.newProfileBtn->click(); },
              [](QWidget& modal) {
                  enter(modal, "nameEdt", "field");
                  enter(modal, "readCommunityEdt", "look");
                  press(modal, QDialogButtonBox::Ok);
              });
    EXPECT_EQ(changes, 1);
    press(dialog, QDialogButtonBox::Ok);
    ASSERT_TRUE(inventory.onus().contains("School"));
    EXPECT_EQ(inventory.onus().at("School").profile, "field");
}

TEST(EntryDialogs, EveryFieldHasALabelThatLeadsToIt) {
    Inventory inventory;
    const OnuDialog onu(QStringLiteral("Add"), {},
                        {.inventory = inventory, .menuDirectory = {}, .onNewProfile = {}}, {},
                        nullptr);
    const ProfileDialog profile(QStringLiteral("Add"), {}, {}, nullptr);
    for (const QDialog* dialog :
         {static_cast<const QDialog*>(&onu), static_cast<const QDialog*>(&profile)}) {
        QList<QWidget*> buddies;
        QStringList keys;
        for (const QLabel* label : dialog->findChildren<QLabel*>()) {
            if (label->buddy() != nullptr) {
                buddies << label->buddy();
                const QString text = label->text();
                keys << text.mid(text.indexOf(QLatin1Char('&')) + 1, 1).toLower();
            }
        }
        for (QLineEdit* edit :
             dialog->findChildren<QLineEdit*>(QString(), Qt::FindDirectChildrenOnly)) {
            EXPECT_TRUE(buddies.contains(edit)) << edit->objectName().toStdString();
        }
        for (QComboBox* box : dialog->findChildren<QComboBox*>()) {
            EXPECT_TRUE(buddies.contains(box)) << box->objectName().toStdString();
        }
        EXPECT_EQ(keys.removeDuplicates(), 0) << dialog->objectName().toStdString();
    }
}

class ProfilesDialogTest : public testing::Test {
protected:
    Inventory inventory = test::sampleInventory();
    int changes = 0;
    ProfilesDialog dialog{inventory, [this] { ++changes; }, nullptr};

    void select(int row) { dialog.profileList->setCurrentRow(row); }
};

TEST_F(ProfilesDialogTest, RefusesToRemoveAProfileInUseAndRemovesAFreeOne) {
    ASSERT_EQ(dialog.profileList->count(), 2);
    select(1);
    dialog.removeBtn->click();
    EXPECT_EQ(problemIn(dialog), "Access profile \"field\" is in use by ONU \"Town hall\"");
    EXPECT_EQ(changes, 0);
    select(0);
    dialog.removeBtn->click();
    EXPECT_EQ(problemIn(dialog), "");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(dialog.profileList->count(), 1);
    EXPECT_FALSE(inventory.profiles().contains("core"));
}

TEST_F(ProfilesDialogTest, RenamesAProfileAndItsUsersWithIt) {
    select(1);
    withModal([&] { dialog.editBtn->click(); },
              [](QWidget& modal) {
                  enter(modal, "nameEdt", "core");
                  press(modal, QDialogButtonBox::Ok);
                  EXPECT_EQ(problemIn(modal), "There is already an access profile \"core\"");
                  enter(modal, "nameEdt", "outdoor");
                  press(modal, QDialogButtonBox::Ok);
              });
    EXPECT_EQ(inventory.onus().at("Town hall").profile, "outdoor");
    EXPECT_EQ(dialog.profileList->currentItem()->text(), QStringLiteral("outdoor"));
    EXPECT_EQ(changes, 1);
}

TEST_F(ProfilesDialogTest, CancelChangesNothing) {
    withModal([&] { dialog.addBtn->click(); },
              [](QWidget& modal) {
                  enter(modal, "nameEdt", "new");
                  enter(modal, "readCommunityEdt", "look");
                  press(modal, QDialogButtonBox::Cancel);
              });
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(inventory, test::sampleInventory());
}

} // namespace

} // namespace onudesk::desk
