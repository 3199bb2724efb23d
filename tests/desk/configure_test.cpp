// SPDX-License-Identifier: MIT
//
// The real configuration window on a private simulated agent, through the window of onudesk.
#include "desk/demo.h"
#include "desk/desk_window.h"
#include "desk_test.h"
#include "platform/window_messages.h"
#include "support/silent_port.h"

#include <cstdlib>
#include <string>

#include <QElapsedTimer>
#include <QStatusBar>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

namespace onudesk::desk {

namespace {

constexpr int kBasicItem = 606;

QWidget* configurationWindow() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr && modal->objectName() == QStringLiteral("TConfigMainForm") ? modal
                                                                                        : nullptr;
}

// Clicks the item's node.
void openItem(const QWidget& form, int itemType) {
    auto& tree = test::control<QTreeWidget>(form, "ConfigItemTree");
    for (QTreeWidgetItemIterator node(&tree); *node != nullptr; ++node) {
        if ((*node)->data(0, Qt::UserRole).toInt() == itemType) {
            tree.setCurrentItem(*node);
            Q_EMIT tree.itemClicked(*node, 0);
            return;
        }
    }
    ADD_FAILURE() << "the menu has no item " << itemType;
}

QStringList traceOf(const DeskWindow& window) {
    return window.tracePane->traceMemo->toPlainText().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

// Opens the configuration window on the selected ONU, opens the basic page, runs `use` as soon as
// `ready` holds, and closes the window.
void configure(DeskWindow& window, const std::function<bool(const QWidget& form)>& ready,
               const std::function<void(const QWidget& form)>& use) {
    bool used = false;
    test::whenReady([] { return configurationWindow() != nullptr; },
                    [&] {
                        QWidget* form = configurationWindow();
                        EXPECT_FALSE(window.onuTable->isEnabled());
                        EXPECT_FALSE(window.configureAct->isEnabled());
                        EXPECT_FALSE(window.close());
                        openItem(*form, kBasicItem);
                        test::whenReady([form, &ready] { return ready(*form); },
                                        [form, &use, &used] {
                                            used = true;
                                            use(*form);
                                            form->close();
                                        });
                    });
    window.configureAct->trigger();
    EXPECT_TRUE(used);
    EXPECT_EQ(configurationWindow(), nullptr);
    EXPECT_TRUE(window.onuTable->isEnabled());
}

bool pageIsFilled(const QWidget& form) {
    const auto* edit = form.findChild<QLineEdit*>(QStringLiteral("llidEdt"));
    return edit != nullptr && !edit->text().isEmpty();
}

std::string textOf(const QWidget& form, const char* name) {
    return test::control<QLineEdit>(form, name).text().toStdString();
}

class ConfigureTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        Result<Demo> started = startDemo(ONUDESK_BUILD_CLIENT_DIR, std::nullopt);
        ASSERT_TRUE(started) << started.error();
        demo = std::make_unique<Demo>(std::move(started).value());
    }
    static void TearDownTestSuite() { demo.reset(); }

    static std::unique_ptr<Demo> demo;
    const DeskOptions options{.clientDirectory = ONUDESK_BUILD_CLIENT_DIR};
};

std::unique_ptr<Demo> ConfigureTest::demo;

TEST_F(ConfigureTest, ReadsThePageAndTracesOneRequestAndOneReply) {
    DeskWindow window(options, demo->inventory);
    window.show();
    window.selectOnu("1.2.5");
    EXPECT_EQ(window.onuTable->rowCount(), 8);
    EXPECT_EQ(window.onuTable->selectedName(), "Fire station");

    configure(window, pageIsFilled,
              [](const QWidget& form) { EXPECT_EQ(textOf(form, "llidEdt"), "05"); });

    ASSERT_TRUE(test::waitUntil([&] { return traceOf(window).size() >= 2; }));
    const QStringList lines = traceOf(window);
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(lines[0].contains(QStringLiteral("\"dir\":\"request\""))) << lines[0].toStdString();
    EXPECT_TRUE(lines[0].contains(QStringLiteral("\"suffix\":\".1.2.5\"")));
    EXPECT_TRUE(lines[1].contains(QStringLiteral("\"dir\":\"reply\""))) << lines[1].toStdString();
    EXPECT_TRUE(lines[1].contains(QStringLiteral("\"Fire station\"")));
    for (const QString& line : lines) {
        EXPECT_FALSE(line.contains(QStringLiteral("public")));
        EXPECT_FALSE(line.contains(QStringLiteral("private")));
    }
    EXPECT_EQ(window.statusBar()->currentMessage(), QStringLiteral("Item 606: read"));
    EXPECT_EQ(platform::pendingWindowMessages(), 0U);
    if (const char* picture = std::getenv("ONUDESK_SCREENSHOT")) {
        EXPECT_TRUE(window.grab().save(QString::fromLocal8Bit(picture)));
    }
}

TEST_F(ConfigureTest, EveryOnuIsReachedFromOneWindowWithItsProfile) {
    Inventory inventory = demo->inventory;
    ASSERT_TRUE(inventory.putProfile({.name = "v3",
                                      .version = host::SnmpVersion::v3,
                                      .v3 = {.user = "admin",
                                             .level = host::SecurityLevel::authPriv,
                                             .authProtocol = host::AuthProtocol::sha,
                                             .authPassphrase = "demo-auth-phrase",
                                             .privProtocol = host::PrivProtocol::des,
                                             .privPassphrase = "demo-priv-phrase"}}));
    OnuEntry onu = inventory.onus().at("Town hall");
    onu.profile = "v3";
    ASSERT_TRUE(inventory.putOnu(onu, onu.name));
    DeskWindow window(options, inventory);
    window.show();
    for (const auto& [index, llid] : {std::pair("1.1.1", "1A"), {"1.2.5", "05"}, {"1.1.1", "1A"}}) {
        window.selectOnu(index);
        configure(window, pageIsFilled,
                  [&](const QWidget& form) { EXPECT_EQ(textOf(form, "llidEdt"), llid); });
    }
    EXPECT_TRUE(test::waitUntil([&] { return traceOf(window).size() == 6; }));
}

TEST_F(ConfigureTest, SecretsOfTheProfileAreMaskedWhereverAnAgentTellsThem) {
    Inventory inventory = demo->inventory;
    AccessProfile profile = inventory.profiles().at("demo");
    // What the agent holds as the ONU's name.
    profile.v3.authPassphrase = "Fire station";
    ASSERT_TRUE(inventory.putProfile(profile, "demo"));
    DeskWindow window(options, inventory);
    window.show();
    window.selectOnu("1.2.5");
    configure(window, pageIsFilled, [](const QWidget&) {});
    ASSERT_TRUE(test::waitUntil([&] { return traceOf(window).size() >= 2; }));
    EXPECT_TRUE(traceOf(window)[1].contains(QStringLiteral("\"•••\"")));
    EXPECT_FALSE(traceOf(window)[1].contains(QStringLiteral("Fire station")));
}

TEST_F(ConfigureTest, ClosesAtOnceWithARequestOutstanding) {
    const test::SilentPort agent;
    auto window =
        std::make_unique<DeskWindow>(options, demoInventory({{"1.2.5", "Nobody"}}, agent.port()));
    window->show();
    QElapsedTimer closing;
    configure(
        *window, [&](const QWidget&) { return traceOf(*window).size() == 1; },
        [&](const QWidget&) { closing.start(); });
    window.reset();
    // The request's own time-out is five seconds, twice.
    EXPECT_LT(closing.elapsed(), 2000);
}

} // namespace

} // namespace onudesk::desk
