// SPDX-License-Identifier: MIT
//
// The real configuration window on a private simulated agent, through the window of onudesk.
#include "desk/demo.h"
#include "desk/desk_window.h"
#include "desk_test.h"
#include "onudesk/window_names.h"
#include "platform/window_messages.h"
#include "support/silent_port.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QStatusBar>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

namespace onudesk::desk {

namespace {

constexpr int kBasicItem = 606;

QWidget* configurationWindow() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr && modal->objectName() == QLatin1String(window_names::kMainForm)
               ? modal
               : nullptr;
}

// Clicks the item's node.
void openItem(const QWidget& form, int itemType) {
    auto& tree = test::control<QTreeWidget>(form, window_names::kItemTree);
    for (QTreeWidgetItemIterator node(&tree); *node != nullptr; ++node) {
        if ((*node)->data(0, window_names::kItemTypeRole).toInt() == itemType) {
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

TEST_F(ConfigureTest, EveryOnuIsReachedFromOneWindowWithItsProfileAndTraced) {
    Inventory inventory = demo->inventory;
    host::OnuTarget access;
    host::useDemoAccess(access);
    ASSERT_TRUE(
        inventory.putProfile({.name = "v3", .version = host::SnmpVersion::v3, .v3 = access.v3}));
    // What the agent holds as the name of an ONU is a secret of a profile.
    AccessProfile profile = inventory.profiles().at("demo");
    profile.v3.privPassphrase = "Town hall";
    ASSERT_TRUE(inventory.putProfile(profile, "demo"));
    OnuEntry onu = inventory.onus().at("Town hall");
    onu.profile = "v3";
    ASSERT_TRUE(inventory.putOnu(onu, onu.name));
    DeskWindow window(options, inventory);
    window.show();
    EXPECT_EQ(window.onuTable->rowCount(), 8);
    for (const auto& [index, llid] : {std::pair("1.2.5", "05"), {"1.1.1", "1A"}, {"1.2.5", "05"}}) {
        window.selectOnu(index);
        configure(window, pageIsFilled, [&](const QWidget& form) {
            EXPECT_EQ(test::control<QLineEdit>(form, "llidEdt").text().toStdString(), llid);
        });
    }
    ASSERT_TRUE(test::waitFor([&] { return traceOf(window).size() >= 6; }));
    const QStringList lines = traceOf(window);
    ASSERT_EQ(lines.size(), 6);
    EXPECT_TRUE(lines[0].contains(QStringLiteral("\"dir\":\"request\""))) << lines[0].toStdString();
    EXPECT_TRUE(lines[0].contains(QStringLiteral("\"suffix\":\".1.2.5\"")));
    EXPECT_TRUE(lines[1].contains(QStringLiteral("\"dir\":\"reply\""))) << lines[1].toStdString();
    EXPECT_TRUE(lines[1].contains(QStringLiteral("\"Fire station\"")));
    EXPECT_TRUE(lines[3].contains(QStringLiteral("\"•••\"")));
    for (const QString& line : lines) {
        for (const char* secret : {"public", "private", "demo-auth-phrase", "Town hall"}) {
            EXPECT_FALSE(line.contains(QLatin1String(secret))) << line.toStdString();
        }
    }
    EXPECT_EQ(window.statusBar()->currentMessage(), QStringLiteral("Item 606: read"));
    EXPECT_EQ(platform::pendingWindowMessages(), 0U);
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
