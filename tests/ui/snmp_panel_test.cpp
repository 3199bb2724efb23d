// SPDX-License-Identifier: MIT
#include "env/language_module.h"
#include "mainform/snmp_panel.h"
#include "pages/framework/controls.h"
#include "ui_test.h"
#include "window/request.h"

#include <map>

namespace onudesk {
namespace {

using platform::PromptIcon;

using Texts = std::vector<std::string>;

// Everything that Apply stores.
Texts stored(const SessionContext& context) {
    return {std::to_string(context.snmpVersion),
            std::to_string(context.snmpPort),
            std::to_string(context.timeout),
            std::to_string(context.retries),
            context.readCommunity,
            context.writeCommunity,
            context.v3EngineId,
            context.v3ContextName,
            std::to_string(context.securityModel),
            std::to_string(context.securityLevel),
            context.v3UserName,
            std::to_string(context.authProtocol),
            context.authPassword,
            std::to_string(context.privProtocol),
            context.privPassword};
}

const QWidget* nextTabStop(const QWidget& from) {
    const QWidget* next = from.nextInFocusChain();
    while ((next->focusPolicy() & Qt::TabFocus) == 0) {
        next = next->nextInFocusChain();
    }
    return next;
}

class SnmpPanelTest : public test::UiTest {
protected:
    SnmpPanelTest() { panel.load(); }

    // The operator's choice in a list.
    void choose(QComboBox& list, const char* text) {
        ASSERT_GE(list.findText(QString::fromLatin1(text)), 0) << text;
        list.setCurrentText(QString::fromLatin1(text));
    }
    void chooseUser(const char* level, const char* auth, const char* priv) {
        choose(*panel.cbSnmpVersion, "version3");
        choose(*panel.cbSecurityLevel, level);
        choose(*panel.cbAuthProtocol, auth);
        choose(*panel.cbPrivProtocol, priv);
    }
    void enter(QLineEdit& edit, const std::string& text) { setControlText(edit, text); }
    // Presses Apply and gives back the message id of the only box.
    int apply() {
        panel.btnApply->setFocus(); // away from what the step before refused
        test::click(*panel.btnApply);
        box = desk.takeBox();
        EXPECT_EQ(box.caption, messageText(11054));
        for (const int id : {3013, 3014, 3015, 3016, 3017, 3018}) {
            if (box.text == messageText(id)) {
                return id;
            }
        }
        return box.text.ends_with(" is not a number.") ? message::notANumber : 0;
    }
    [[nodiscard]] std::string focus() const {
        const QWidget* widget = panel.focusWidget();
        return widget == nullptr ? std::string() : bytesOf(widget->objectName());
    }

    SessionContext& context = session.context;
    SnmpPanel panel{context, nullptr};
    platform::Prompt box;
};

TEST_F(SnmpPanelTest, LoadingSelectsKnownCodesAndKeepsTheSelectionOnOthers) {
    using Context = SessionContext;
    struct Case {
        std::int32_t Context::*code;
        QComboBox* list;
        std::map<std::int32_t, const char*> shown;
    };
    const Case cases[] = {
        {&Context::snmpVersion,
         panel.cbSnmpVersion,
         {{0, "version1"}, {1, "version2c"}, {3, "version3"}}},
        {&Context::securityModel,
         panel.cbSecurityModel,
         {{0, "any"}, {1, "v1"}, {2, "v2"}, {3, "v3"}}},
        {&Context::securityLevel,
         panel.cbSecurityLevel,
         {{1, "NoAuth,NoPriv"}, {2, "Auth,NoPriv"}, {3, "Auth,Priv"}}},
        {&Context::authProtocol, panel.cbAuthProtocol, {{1, "NONE"}, {2, "MD5"}, {3, "SHA"}}},
        {&Context::privProtocol, panel.cbPrivProtocol, {{1, "NONE"}, {2, "DES"}}}};
    for (const Case& expected : cases) {
        EXPECT_EQ(expected.list->count(), static_cast<int>(expected.shown.size()));
        for (const auto& [code, text] : expected.shown) {
            for (const std::int32_t next : {code, -1, 0, 1, 2, 3, 4}) {
                if (next == code || !expected.shown.contains(next)) {
                    context.*expected.code = next;
                    panel.load();
                    EXPECT_EQ(bytesOf(expected.list->currentText()), text) << next;
                }
            }
        }
    }
}

TEST_F(SnmpPanelTest, StartsWithTheDefaultsAndShowsTextsAsStored) {
    const std::pair<const char*, const char*> defaults[] = {
        {"cbSecurityModel", "v3"},  {"cbSecurityLevel", "NoAuth,NoPriv"},
        {"cbAuthProtocol", "NONE"}, {"cbPrivProtocol", "NONE"},
        {"edtSnmpTimeout", "5"},    {"edtRetries", "1"}};
    for (const auto& [control, text] : defaults) {
        EXPECT_EQ(textIn(panel, control), text) << control;
    }
    context.snmpPort = -7;
    context.readCommunity = std::string(100, 'r');
    context.writeCommunity = "\xD6\xD0"; // no UTF-8
    context.writeCommunityCopy = "as given";
    panel.load();
    EXPECT_EQ(bytesOf(panel.edtSnmpPort->text()), "-7");
    EXPECT_EQ(bytesOf(panel.edtReadCommunity->text()), context.readCommunity);
    enter(*panel.edtSnmpPort, "161");
    EXPECT_EQ(apply(), 3018);
    EXPECT_EQ(context.readCommunity, std::string(100, 'r'));
    EXPECT_EQ(context.writeCommunity, "\xD6\xD0");
    EXPECT_EQ(context.writeCommunityCopy, "as given");
}

TEST_F(SnmpPanelTest, LoadingFiresNoHandlerAndEnablesWhatItSelected) {
    int changes = 0;
    for (const QComboBox* list : panel.findChildren<QComboBox*>()) {
        QObject::connect(list, &QComboBox::currentIndexChanged, list, [&] { ++changes; });
    }
    context.snmpVersion = 3;
    context.securityLevel = 3;
    context.authProtocol = 3;
    context.privProtocol = 2;
    panel.load();
    EXPECT_EQ(changes, 0);
    EXPECT_TRUE(panel.edtPrivPassword->isEnabled());
    EXPECT_FALSE(panel.edtReadCommunity->isEnabled());
    context.snmpVersion = 1;
    panel.load();
    EXPECT_FALSE(panel.edtPrivPassword->isEnabled());
    EXPECT_TRUE(panel.edtReadCommunity->isEnabled());
}

TEST_F(SnmpPanelTest, EveryChoiceEnablesWhatItUses) {
    struct Case {
        QComboBox* list;
        const char* choice;
        std::string enabled; // besides what always is
    };
    const std::string communities = "edtReadCommunity edtWriteCommunity";
    const std::string user = "edtEngineID edtContextName edtUserName cbSecurityLevel";
    const std::string auth = user + " cbAuthProtocol";
    const std::string authKey = auth + " edtAuthPassword";
    const std::string privKey = authKey + " cbPrivProtocol edtPrivPassword";
    // One after the other on the same panel.
    const Case cases[] = {
        {panel.cbSnmpVersion, "version1", communities},
        {panel.cbSnmpVersion, "version3", user},
        {panel.cbSecurityLevel, "Auth,NoPriv", auth},
        {panel.cbAuthProtocol, "MD5", authKey},
        {panel.cbSecurityLevel, "Auth,Priv", authKey + " cbPrivProtocol"},
        {panel.cbPrivProtocol, "DES", privKey},
        {panel.cbAuthProtocol, "NONE", auth + " cbPrivProtocol edtPrivPassword"},
        {panel.cbAuthProtocol, "SHA", privKey},
        {panel.cbSnmpVersion, "version2c", communities},
        {panel.cbSnmpVersion, "version3", privKey}, // from the lists, not from what is stored
        {panel.cbSecurityLevel, "Auth,NoPriv", authKey},
        {panel.cbSecurityLevel, "NoAuth,NoPriv", user},
        {panel.cbSnmpVersion, "version1", communities}};
    const QColor usable = panel.palette().color(QPalette::Active, QPalette::Base);
    const QColor face = panel.palette().color(QPalette::Active, QPalette::Button);
    ASSERT_NE(usable, face);
    for (const Case& next : cases) {
        choose(*next.list, next.choice);
        const std::string enabled =
            "cbSnmpVersion edtSnmpPort edtSnmpTimeout edtRetries " + next.enabled;
        const bool version3 = enabled.find("edtUserName") != std::string::npos;
        for (const QLabel* label : panel.findChildren<QLabel*>()) {
            const QWidget* control = label->buddy();
            const std::string name = bytesOf(control->objectName());
            SCOPED_TRACE(std::string(next.choice) + " " + name);
            EXPECT_EQ(control->isEnabled(), enabled.find(name) != std::string::npos);
            EXPECT_EQ(label->isEnabled(),
                      name == "cbSecurityModel" ? version3 : control->isEnabled());
            if (qobject_cast<const QLineEdit*>(control) != nullptr) {
                EXPECT_EQ(control->palette().color(QPalette::Base),
                          control->isEnabled() ? usable : face);
            }
        }
        EXPECT_EQ(bytesOf(panel.cbSecurityModel->currentText()), "v3");
    }
}

struct RefusalCase {
    const char* level;
    const char* user;
    const char* authPassword;
    const char* privPassword;
    int textId;
    const char* focus;
};

TEST_F(SnmpPanelTest, ApplyChecksTheUserInOrderAndStoresNothingThatFails) {
    const RefusalCase cases[] = {{"NoAuth,NoPriv", "", "", "", 3013, "edtUserName"},
                                 {"NoAuth,NoPriv", "a b", "", "", 3015, "edtUserName"},
                                 {"NoAuth,NoPriv", "anna", "", "?", 3018, "btnApply"},
                                 {"Auth,NoPriv", "", "", "", 3013, "edtUserName"},
                                 {"Auth,NoPriv", "anna", "", "", 3016, "edtAuthPassword"},
                                 {"Auth,NoPriv", "an?a", "", "", 3015, "edtUserName"},
                                 {"Auth,NoPriv", "anna", "se?ret", "", 3015, "edtAuthPassword"},
                                 {"Auth,NoPriv", "anna", "se\"ret", "?", 3018, "btnApply"},
                                 {"Auth,Priv", "anna", "secret", "", 3017, "edtPrivPassword"},
                                 {"Auth,Priv", "anna", "", "", 3016, "edtAuthPassword"},
                                 {"Auth,Priv", "anna", "secret", "se|ret", 3015, "edtPrivPassword"},
                                 {"Auth,Priv", "anna", "se|ret", "", 3015, "edtAuthPassword"},
                                 {"Auth,Priv", "anna", "secret", "hidden", 3018, "btnApply"}};
    const SessionContext before = context;
    for (const RefusalCase& expected : cases) {
        SCOPED_TRACE(std::string(expected.level) + " " + expected.user + " " +
                     expected.authPassword + " " + expected.privPassword);
        context = before;
        chooseUser(expected.level, "MD5", "DES");
        enter(*panel.edtUserName, expected.user);
        enter(*panel.edtAuthPassword, expected.authPassword);
        enter(*panel.edtPrivPassword, expected.privPassword);
        // The user is checked before the port is converted.
        enter(*panel.edtSnmpPort, expected.textId == 3018 ? "162" : "");
        EXPECT_EQ(apply(), expected.textId);
        EXPECT_EQ(focus(), expected.focus);
        if (expected.textId == 3018) {
            EXPECT_EQ(box.icon, PromptIcon::information);
            EXPECT_EQ(context.authPassword, expected.authPassword);
            EXPECT_EQ(context.privPassword, expected.privPassword);
            continue;
        }
        EXPECT_EQ(box.icon, expected.textId == 3015 ? PromptIcon::warning : PromptIcon::none);
        EXPECT_EQ(stored(context), stored(before));
    }
    enter(*panel.edtUserName, "");
    enter(*panel.edtRetries, "10");
    EXPECT_EQ(apply(), 3014) << "retries are judged before the user";
}

TEST_F(SnmpPanelTest, ForbiddenCharactersAreRefusedOneByOne) {
    chooseUser("Auth,Priv", "SHA", "DES");
    const std::vector<QLineEdit*> edits{panel.edtUserName, panel.edtAuthPassword,
                                        panel.edtPrivPassword};
    for (QLineEdit* checked : edits) {
        for (int c = 1; c <= 255; ++c) {
            for (QLineEdit* edit : edits) {
                enter(*edit, "good");
            }
            enter(*checked, std::string("a") + static_cast<char>(c));
            const bool forbidden =
                c >= 128 ||
                std::string(" */:<>?\\|").find(static_cast<char>(c)) != std::string::npos;
            EXPECT_EQ(apply(), forbidden ? 3015 : 3018) << c;
        }
    }
    test::type(*panel.edtPrivPassword, QStringLiteral("é"));
    EXPECT_EQ(apply(), 3015);
}

TEST_F(SnmpPanelTest, NumbersAreDecimalAndOnlyRetriesAreBounded) {
    struct Case {
        int retries; // the message that answers it as number of retries
        int other;   // as port or time-out
        std::vector<const char*> texts;
    };
    const Case cases[] = {{3018, 3018, {"0", "9", "009", "-1", " 1"}}, // "-1" from the host
                          {3014, 3018, {"10", "2147483647"}},
                          {20029, 20029, {"2147483648", "4294967297", "", "+-1", "1 ", "0x5"}}};
    const SessionContext before = context;
    const auto expectAnswer = [&](const char* number, QLineEdit& edit, int answer,
                                  const SessionContext& afterwards) {
        SCOPED_TRACE(bytesOf(edit.objectName()) + " " + number);
        context = before;
        panel.load();
        choose(*panel.cbSnmpVersion, "version2c");
        enter(*panel.edtSnmpPort, "1161");
        enter(*panel.edtReadCommunity, "changed");
        enter(edit, number);
        EXPECT_EQ(apply(), answer);
        if (answer == 3018) {
            EXPECT_EQ(context.readCommunity, "changed");
            return;
        }
        EXPECT_EQ(stored(context), stored(afterwards));
        EXPECT_EQ(focus(), bytesOf(edit.objectName()));
        EXPECT_EQ(box.icon, answer == 3014 ? PromptIcon::information : PromptIcon::warning);
        EXPECT_EQ(box.text, fillPlaces(messageText(answer), {number}));
    };
    for (const auto& [retries, other, texts] : cases) {
        for (const char* number : texts) {
            // The version is stored before a port, version and port before a time-out that is none.
            SessionContext partly = before;
            expectAnswer(number, *panel.edtRetries, retries, partly);
            partly.snmpVersion = 1;
            expectAnswer(number, *panel.edtSnmpPort, other, partly);
            partly.snmpPort = 1161;
            expectAnswer(number, *panel.edtSnmpTimeout, other, partly);
        }
    }
}

TEST_F(SnmpPanelTest, TypingIsLimitedAndSecretsAreStars) {
    struct Case {
        QLineEdit& edit;
        int limit;
        bool secret;
    };
    const Case cases[] = {
        {*panel.edtReadCommunity, 32, true}, {*panel.edtWriteCommunity, 100, true},
        {*panel.edtEngineID, 100, false},    {*panel.edtContextName, 100, false},
        {*panel.edtUserName, 32, false},     {*panel.edtAuthPassword, 32, true},
        {*panel.edtPrivPassword, 32, true}};
    chooseUser("Auth,Priv", "MD5", "DES");
    for (const auto& [edit, limit, secret] : cases) {
        edit.setEnabled(true);
        test::type(edit, QString(120, u'x'));
        EXPECT_EQ(edit.text(), QString(limit, u'x')) << bytesOf(edit.objectName());
        EXPECT_EQ(edit.displayText(), QString(limit, secret ? u'*' : u'x'));
    }
    for (QLineEdit* edit : {panel.edtSnmpPort, panel.edtSnmpTimeout, panel.edtRetries}) {
        edit->clear();
        test::type(*edit, QStringLiteral("-1a2 "));
        EXPECT_EQ(edit->text(), QStringLiteral("12"));
    }
    enter(*panel.edtRetries, "1");
    enter(*panel.edtEngineID, std::string(101, 'e'));
    EXPECT_EQ(apply(), 3018);
    EXPECT_EQ(context.v3EngineId, std::string(100, 'e'));
    EXPECT_EQ(context.writeCommunity, std::string(100, 'x'));
}

TEST_F(SnmpPanelTest, ControlsAreNamedInBothLanguagesAndFollowTheEye) {
    for (const char* file : {"libonuconfig.ENU", "libonuconfig.CHS"}) {
        installLanguage(
            LanguageModule::load(std::string(ONUDESK_SOURCE_DIR) + "/client/lang/" + file).value());
        SnmpPanel shownPanel(context, nullptr);
        shownPanel.show();
        const auto labels = shownPanel.findChildren<QLabel*>();
        EXPECT_EQ(labels.size(), 15);
        for (const QLabel* label : labels) {
            EXPECT_FALSE(label->text().isEmpty());
            EXPECT_EQ(label->buddy()->accessibleName(), label->text());
            EXPECT_GE(label->width(), label->sizeHint().width()) << file;
            EXPECT_TRUE(shownPanel.rect().contains(label->parentWidget()->geometry()));
        }
        const QWidget* before = shownPanel.cbSnmpVersion;
        for (std::size_t stop = 1; stop < 15; ++stop) {
            const QWidget* next = nextTabStop(*before);
            const QRect row = before->geometry();
            const QPoint middle = next->geometry().center();
            const bool sameRow = row.top() <= middle.y() && middle.y() <= row.bottom();
            EXPECT_TRUE(sameRow ? row.right() < middle.x() : row.bottom() < middle.y())
                << bytesOf(next->objectName());
            before = next;
        }
        EXPECT_EQ(nextTabStop(*before), shownPanel.btnApply);
    }
}

TEST_F(SnmpPanelTest, AppliedSettingsGoIntoEveryLaterRequest) {
    context.readCommunity = "public";
    context.writeCommunity = "private";
    panel.load();
    // SNMPv1 with an empty user: what the lists show is stored along with the rest.
    choose(*panel.cbSnmpVersion, "version1");
    EXPECT_EQ(apply(), 3018);
    const Texts first{"0", "161", "5", "1", "public", "private", "", "",
                      "3", "1",   "",  "1", "",       "1",       ""};
    EXPECT_EQ(stored(context), first);
    chooseUser("Auth,Priv", "SHA", "DES");
    const std::pair<QLineEdit*, const char*> typed[] = {{panel.edtSnmpPort, "1161"},
                                                        {panel.edtSnmpTimeout, "8"},
                                                        {panel.edtRetries, "9"},
                                                        {panel.edtEngineID, "8000"},
                                                        {panel.edtContextName, "ctx"},
                                                        {panel.edtUserName, "anna"},
                                                        {panel.edtAuthPassword, "auth\"key"},
                                                        {panel.edtPrivPassword, "privkey"}};
    for (const auto& [edit, text] : typed) {
        enter(*edit, text);
    }
    EXPECT_EQ(stored(context), first) << "nothing counts before Apply";
    desk.whileOpen = [&] { EXPECT_FALSE(panel.btnApply->isEnabled()); };
    EXPECT_EQ(apply(), 3018);
    EXPECT_TRUE(panel.btnApply->isEnabled());
    EXPECT_EQ(host.pending(), 0U) << "the panel itself sends nothing";
    EXPECT_EQ(stored(context), (Texts{"3", "1161", "8", "9", "public", "private", "8000", "ctx",
                                      "3", "3", "anna", "3", "auth\"key", "2", "privkey"}));
    ASSERT_TRUE(sendReadRequest(session, 608));
    const auto posted = host.take();
    const CodeParaReader reader(*posted->record);
    EXPECT_EQ(reader.text(CP_V3_USER), "anna");
    EXPECT_EQ(reader.integer(CP_V3_SEC_MODEL), 3U);
    EXPECT_EQ(reader.integer(CP_V3_AUTH_PROTO), 3U);
    EXPECT_EQ(reader.integer(CP_V3_PRIV_PROTO), 2U);
}

} // namespace
} // namespace onudesk
