// SPDX-License-Identifier: MIT
#include "desk/onu_dialog.h"
#include "desk/profile_dialog.h"
#include "desk/profiles_dialog.h"
#include "desk_test.h"
#include "sample_entries.h"

namespace onudesk::desk {

namespace {

using test::press;
using test::problemIn;
using test::submit;
using test::withModal;

constexpr const char* kSchool = "nameEdt=  School |agentEdt= 10.0.0.1 |onuEdt=1.1.1 ";

class DialogTest : public testing::Test {
protected:
    Inventory inventory = test::sampleInventory();
    int changes = 0;
    std::optional<AccessProfile> profile;
    std::optional<OnuEntry> onu;

    [[nodiscard]] ProfileDialog profileDialog(const AccessProfile& shown) {
        return {QStringLiteral("Edit"), shown,
                [this](const AccessProfile& taken) {
                    profile = taken;
                    return Checked();
                },
                nullptr};
    }
    // What is entered goes into the inventory as well.
    [[nodiscard]] OnuDialog onuDialog(const OnuEntry& shown) {
        return {QStringLiteral("Edit"),
                shown,
                {.inventory = inventory,
                 .menuDirectory = std::string(ONUDESK_SOURCE_DIR) + "/client/CONF/snmp",
                 .onNewProfile = [this] { ++changes; }},
                [this](const OnuEntry& taken) {
                    onu = taken;
                    return inventory.putOnu(taken, "Town hall");
                },
                nullptr};
    }
};

TEST_F(DialogTest, ProfilesAreGivenBackAsTheyWere) {
    for (const AccessProfile& shown : {test::communityProfile(), test::v3Profile()}) {
        ProfileDialog dialog = profileDialog(shown);
        press(dialog, QDialogButtonBox::Ok);
        ASSERT_TRUE(profile);
        EXPECT_EQ(dialog.result(), QDialog::Accepted);
        AccessProfile expected = shown;
        expected.v3.level = profile->v3.level; // there is always one chosen, as protocols are
        expected.v3.authProtocol = profile->v3.authProtocol;
        expected.v3.privProtocol = profile->v3.privProtocol;
        EXPECT_EQ(*profile, shown.version == host::SnmpVersion::v3 ? shown : expected);
    }
}

TEST_F(DialogTest, VersionAndLevelEnableWhatTheyUseAndKeepTheRest) {
    const std::pair<const char*, const char*> rows[] = {
        {"versionCmb=v1|levelCmb=authPriv", "readCommunityEdt writeCommunityEdt "},
        {"versionCmb=v3|levelCmb=noAuthNoPriv", "userEdt levelCmb contextEdt "},
        {"levelCmb=authNoPriv", "userEdt levelCmb authProtocolCmb authPassphraseEdt contextEdt "},
        {"levelCmb=authPriv", "userEdt levelCmb authProtocolCmb authPassphraseEdt "
                              "privProtocolCmb privPassphraseEdt contextEdt "},
        {"versionCmb=v2c", "readCommunityEdt writeCommunityEdt "}};
    ProfileDialog dialog = profileDialog(test::v3Profile());
    for (const auto& [entries, usable] : rows) {
        test::enter(dialog, entries);
        std::string enabled;
        for (const char* name :
             {"readCommunityEdt", "writeCommunityEdt", "userEdt", "levelCmb", "authProtocolCmb",
              "authPassphraseEdt", "privProtocolCmb", "privPassphraseEdt", "contextEdt"}) {
            const bool is = test::control<QWidget>(dialog, name).isEnabled();
            enabled += is ? std::string(name) + ' ' : std::string();
        }
        EXPECT_EQ(enabled, usable) << entries;
    }
    press(dialog, QDialogButtonBox::Ok);
    EXPECT_EQ(profile.value_or(AccessProfile()).v3, test::v3Profile().v3);
    for (const QLineEdit* secret : {dialog.readCommunityEdt, dialog.writeCommunityEdt,
                                    dialog.authPassphraseEdt, dialog.privPassphraseEdt}) {
        EXPECT_EQ(secret->echoMode(), QLineEdit::Password) << secret->objectName().toStdString();
    }
}

TEST_F(DialogTest, RefusalNamesTheFieldAndLosesNothing) {
    ProfileDialog dialog(
        QStringLiteral("Add"), test::v3Profile("new"),
        [&](const AccessProfile& taken) { return inventory.putProfile(taken); }, nullptr);
    dialog.show();
    submit(dialog, "userEdt=somebody|privPassphraseEdt=7 bytes");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(dialog.problemLbl->isVisible());
    EXPECT_EQ(problemIn(dialog), "Privacy pass phrase needs at least 8 characters");
    EXPECT_EQ(dialog.focusWidget(), dialog.privPassphraseEdt);
    EXPECT_EQ(typed(*dialog.privPassphraseEdt), "7 bytes");
    EXPECT_EQ(inventory, test::sampleInventory());
    submit(dialog, "privPassphraseEdt=8 bytes!");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(inventory.profiles().at("new").v3.user, "somebody");
}

TEST_F(DialogTest, AnEntryKeepsWhatThereIsNoChoiceForAndIsTrimmed) {
    OnuEntry shown = test::sampleOnu();
    shown.menuFile = "own_menu.xml";
    shown.localeId = 1031;
    OnuDialog other = onuDialog(shown);
    press(other, QDialogButtonBox::Ok);
    EXPECT_EQ(onu, shown);

    OnuDialog dialog = onuDialog({});
    EXPECT_EQ(dialog.menuCmb->currentText().toStdString(), kGeneralMenu);
    EXPECT_GE(dialog.menuCmb->findText(QStringLiteral("epononu4590_menu.xml")), 0);
    EXPECT_LT(dialog.menuCmb->findText(QStringLiteral("snmpconfig.xml")), 0);
    submit(dialog, kSchool);
    EXPECT_EQ(problemIn(dialog), "");
    EXPECT_EQ(onu->name + onu->agent + onu->onu, "School10.0.0.11.1.1");
}

TEST_F(DialogTest, AProfileCanBeMadeWithoutLosingTheEntry) {
    inventory = {};
    OnuDialog dialog = onuDialog({});
    dialog.show();
    submit(dialog, kSchool);
    EXPECT_EQ(problemIn(dialog), "Access profile is missing");
    withModal([&] { dialog.newProfileBtn->click(); },
              [](QWidget& modal) { submit(modal, "nameEdt=field|readCommunityEdt=look"); });
    EXPECT_EQ(changes, 1);
    press(dialog, QDialogButtonBox::Ok);
    ASSERT_TRUE(inventory.onus().contains("School"));
    EXPECT_EQ(inventory.onus().at("School").profile, "field");
}

TEST_F(DialogTest, EveryFieldHasALabelThatLeadsToIt) {
    const OnuDialog entry = onuDialog({});
    const ProfileDialog access = profileDialog({});
    for (const QDialog* dialog : {static_cast<const QDialog*>(&entry), //
                                  static_cast<const QDialog*>(&access)}) {
        QList<QWidget*> buddies;
        QStringList keys;
        for (const QLabel* label : dialog->findChildren<QLabel*>()) {
            if (label->buddy() != nullptr) {
                buddies << label->buddy();
                const QString text = label->text();
                keys << text.mid(text.indexOf(QLatin1Char('&')) + 1, 1).toLower();
            }
        }
        for (QWidget* field :
             dialog->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            EXPECT_TRUE(buddies.contains(field) || (qobject_cast<QLineEdit*>(field) == nullptr &&
                                                    qobject_cast<QComboBox*>(field) == nullptr))
                << field->objectName().toStdString();
        }
        EXPECT_EQ(keys.removeDuplicates(), 0) << dialog->objectName().toStdString();
    }
}

TEST_F(DialogTest, ProfilesInUseStayAndRenamedOnesTakeTheirUsersWithThem) {
    ProfilesDialog dialog(
        inventory, [this] { ++changes; }, nullptr);
    const auto edit = [&](QPushButton* button, const std::function<void(QWidget&)>& work) {
        withModal([&] { button->click(); }, work);
    };
    ASSERT_EQ(dialog.profileList->count(), 2);
    edit(dialog.addBtn, [](QWidget& modal) {
        test::enter(modal, "nameEdt=new|readCommunityEdt=look");
        press(modal, QDialogButtonBox::Cancel);
    });
    dialog.profileList->setCurrentRow(1);
    dialog.removeBtn->click();
    EXPECT_EQ(problemIn(dialog), "Access profile \"field\" is in use by ONU \"Town hall\"");
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(inventory, test::sampleInventory());
    edit(dialog.editBtn, [](QWidget& modal) {
        submit(modal, "nameEdt=core");
        EXPECT_EQ(problemIn(modal), "There is already an access profile \"core\"");
        submit(modal, "nameEdt=outdoor");
    });
    EXPECT_EQ(inventory.onus().at("Town hall").profile, "outdoor");
    EXPECT_EQ(dialog.profileList->currentItem()->text(), QStringLiteral("outdoor"));
    EXPECT_EQ(changes, 1);
    dialog.profileList->setCurrentRow(0);
    dialog.removeBtn->click();
    EXPECT_EQ(problemIn(dialog), "");
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(dialog.profileList->count(), 1);
    EXPECT_FALSE(inventory.profiles().contains("core"));
}

} // namespace

} // namespace onudesk::desk
