// SPDX-License-Identifier: MIT
//
// The real configuration window on a private simulated agent, through the window of onudesk.
#include "desk_test.h"
#include "host/desk/demo.h"
#include "host/desk/desk_window.h"
#include "platform/window_messages.h"

#include <cstdlib>
#include <string>

#include <QApplication>
#include <QElapsedTimer>
#include <QStatusBar>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

namespace onudesk::desk {

namespace {

constexpr int kBasicItem = 606;

// A UDP port on the loopback address that never answers.
class SilentAgent {
public:
    SilentAgent() : socket_(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        auto* general = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(::bind(socket_, general, length), 0);
        EXPECT_EQ(::getsockname(socket_, general, &length), 0);
        port_ = ntohs(address.sin_port);
    }
    ~SilentAgent() { ::close(socket_); }
    SilentAgent(const SilentAgent&) = delete;
    SilentAgent& operator=(const SilentAgent&) = delete;

    [[nodiscard]] std::uint16_t port() const { return port_; }

private:
    int socket_;
    std::uint16_t port_ = 0;
};

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

TEST_F(ConfigureTest, DemoListsTheRecordedOnus) {
    DeskWindow window(options, demo->inventory);
    window.show();
    window.selectOnu("1.2.5");
    EXPECT_EQ(window.onuTable->rowCount(), 8);
    EXPECT_EQ(window.onuTable->selectedName(), "Fire station");
    EXPECT_TRUE(window.configureAct->isEnabled());
}

TEST_F(ConfigureTest, ReadsThePageAndTracesOneRequestAndOneReply) {
    DeskWindow window(options, demo->inventory);
    window.show();
    window.selectOnu("1.2.5");

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

TEST_F(ConfigureTest, EveryVersionReachesTheAgentFromOneWindow) {
    Inventory inventory = demo->inventory;
    const AccessProfile demoProfile = inventory.profiles().at("demo");
    AccessProfile v1 = demoProfile;
    v1.name = "v1";
    v1.version = host::SnmpVersion::v1;
    const AccessProfile v3 = {.name = "v3",
                              .version = host::SnmpVersion::v3,
                              .v3 = {.user = "admin",
                                     .level = host::SecurityLevel::authPriv,
                                     .authProtocol = host::AuthProtocol::sha,
                                     .authPassphrase = "demo-auth-phrase",
                                     .privProtocol = host::PrivProtocol::des,
                                     .privPassphrase = "demo-priv-phrase"}};
    OnuEntry onu = inventory.onus().at("Town hall");
    for (const AccessProfile& profile : {v1, v3}) {
        ASSERT_FALSE(inventory.putProfile(profile));
        onu.name = profile.name;
        onu.profile = profile.name;
        onu.onu = profile.name == "v1" ? "1.1.1" : "1.1.2";
        inventory.removeOnu("Town hall");
        ASSERT_FALSE(inventory.putOnu(onu));
    }
    DeskWindow window(options, inventory);
    window.show();
    struct Step {
        const char* onu;
        const char* llid;
    };
    for (const Step& step : {Step{"1.1.1", "1A"}, Step{"1.2.5", "05"}, Step{"1.1.1", "1A"}}) {
        window.selectOnu(step.onu);
        configure(window, pageIsFilled,
                  [&step](const QWidget& form) { EXPECT_EQ(textOf(form, "llidEdt"), step.llid); });
    }
    for (int row = 0; row < window.onuTable->rowCount(); ++row) {
        if (window.onuTable->item(row, 0)->text() == QStringLiteral("v3")) {
            window.onuTable->setCurrentCell(row, 0);
        }
    }
    ASSERT_EQ(window.onuTable->selectedName(), "v3");
    configure(window, pageIsFilled,
              [](const QWidget& form) { EXPECT_EQ(textOf(form, "llidEdt"), "1B"); });
    EXPECT_TRUE(test::waitUntil([&] { return traceOf(window).size() == 8; }));
}

TEST_F(ConfigureTest, SecretsOfTheProfileAreMaskedWhereverAnAgentTellsThem) {
    Inventory inventory = demo->inventory;
    AccessProfile profile = inventory.profiles().at("demo");
    // What the agent holds as the ONU's name.
    profile.v3.authPassphrase = "Fire station";
    ASSERT_FALSE(inventory.putProfile(profile, "demo"));
    DeskWindow window(options, inventory);
    window.show();
    window.selectOnu("1.2.5");
    configure(window, pageIsFilled, [](const QWidget&) {});
    ASSERT_TRUE(test::waitUntil([&] { return traceOf(window).size() >= 2; }));
    EXPECT_TRUE(traceOf(window)[1].contains(QStringLiteral("\"•••\"")));
    EXPECT_FALSE(traceOf(window)[1].contains(QStringLiteral("Fire station")));
}

TEST_F(ConfigureTest, ClosesAtOnceWithARequestOutstanding) {
    const SilentAgent agent;
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
