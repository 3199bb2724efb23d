// SPDX-License-Identifier: MIT
#include "ctl/window_driver.h"
#include "host/client_host.h"
#include "ui/ui_test.h"

#include <QApplication>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>

#include <gtest/gtest.h>

namespace onudesk {
namespace {

using host::ClientHost;
using host::SnmpVersion;

constexpr const char* kBasicTable = "1.3.6.1.4.1.27315.606.1.1.";
constexpr const char* kNameColumn = "19";
constexpr const char* kMacColumn = "20";
constexpr const char* kRowStatusColumn = "21";

// A private agent, the real host and the real plug-in, worked without a screen.
class BasicPageEndToEnd : public testing::TestWithParam<SnmpVersion> {
protected:
    void SetUp() override {
        const std::filesystem::path client = TESTED_CLIENT_DIR;
        auto agent = host::AgentLauncher::start(host::demoAgent(client));
        ASSERT_TRUE(agent) << agent.error();
        agent_.emplace(std::move(agent).value());
        auto clientHost = ClientHost::open(client);
        ASSERT_TRUE(clientHost) << clientHost.error();
        host_ = std::move(clientHost).value();
        target_.agentAddress = "127.0.0.1";
        target_.port = agent_->port();
        target_.version = GetParam();
        target_.menuFileName = "epononuother_menu.xml";
        host::useDemoAccess(target_);
    }

    // Opens the basic page of an ONU, waits for its values and does the work.
    void onPage(const char* onu, const std::function<void(QWidget&)>& work) {
        ASSERT_TRUE(host::parseOnuIndex(onu, target_));
        ctl::WindowDriver driver(*qobject_cast<QApplication*>(QApplication::instance()), *host_);
        driver_ = &driver;
        bool worked = false;
        driver.run(target_, [&] {
            ASSERT_TRUE(driver.open(606));
            driver.waitUntilQuiet();
            work(*driver.page());
            worked = true;
        });
        EXPECT_TRUE(worked);
    }
    void click(QWidget& page, const char* button) {
        auto* found = page.findChild<QPushButton*>(QString::fromLatin1(button));
        ASSERT_TRUE(found->isEnabled()) << button;
        test::click(*found);
        driver_->waitUntilQuiet();
    }
    static QLineEdit& edit(QWidget& page, const char* name) {
        return *page.findChild<QLineEdit*>(QString::fromLatin1(name));
    }
    // What the agent holds, as snmpget prints it.
    [[nodiscard]] QString onAgent(const char* column, const char* onu) const {
        QProcess tool;
        tool.start(QStringLiteral("snmpget"),
                   {QStringLiteral("-v2c"), QStringLiteral("-cpublic"), QStringLiteral("-Oqv"),
                    QStringLiteral("127.0.0.1:%1").arg(agent_->port()),
                    QString::fromLatin1(kBasicTable) + QString::fromLatin1(column) +
                        QLatin1Char('.') + QString::fromLatin1(onu)});
        EXPECT_TRUE(tool.waitForFinished(30000));
        return QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
    }

    const ctl::Recorder recorder_;

private:
    std::optional<host::AgentLauncher> agent_;
    std::unique_ptr<ClientHost> host_;
    host::OnuTarget target_;
    ctl::WindowDriver* driver_ = nullptr;
};

TEST_P(BasicPageEndToEnd, BindsAMacInTwoWritesAndDeletesItAgain) {
    onPage("1.1.4", [&](QWidget& page) {
        QLineEdit& mac = edit(page, "macEdit");
        ASSERT_TRUE(mac.isEnabled());
        mac.clear();
        mac.setCursorPosition(0);
        test::type(mac, QStringLiteral("0a1b2c3d4e5f"));
        click(page, "configBtn");
        EXPECT_EQ(onAgent(kMacColumn, "1.1.4"), QStringLiteral("\"0A 1B 2C 3D 4E 5F \""));
        EXPECT_TRUE(onAgent(kRowStatusColumn, "1.1.4").startsWith(QStringLiteral("No Such")));
        click(page, "configBtn");
        EXPECT_EQ(onAgent(kRowStatusColumn, "1.1.4"), QStringLiteral("1"));
    });
    onPage("1.1.4", [&](QWidget& page) { // a new session finds it bound
        EXPECT_EQ(edit(page, "macEdit").text(), QStringLiteral("0A:1B:2C:3D:4E:5F"));
        click(page, "macBtn");
        EXPECT_TRUE(onAgent(kRowStatusColumn, "1.1.4").startsWith(QStringLiteral("No Such")));
        EXPECT_TRUE(onAgent(kMacColumn, "1.1.4").startsWith(QStringLiteral("No Such")));
    });
    ASSERT_EQ(recorder_.boxes().size(), 3U);
    for (const platform::Prompt& box : recorder_.boxes()) {
        EXPECT_EQ(box.icon, platform::PromptIcon::information) << box.text;
    }
}

TEST_P(BasicPageEndToEnd, NamesAnOnuAndDeletesTheName) {
    onPage("1.2.5", [&](QWidget& page) {
        QLineEdit& name = edit(page, "nameEdit");
        ASSERT_TRUE(name.isEnabled());
        name.selectAll();
        test::type(name, QStringLiteral("Keller <3> 北"));
        click(page, "configBtn");
        EXPECT_EQ(name.text(), QStringLiteral("Keller <3> 北")) << "as read back";
        EXPECT_EQ(onAgent(kNameColumn, "1.2.5"), QStringLiteral("\"4B 65 6C 6C 65 72 20 3C 33 3E "
                                                                "20 E5 8C 97 \""));
        click(page, "nameBtn");
        EXPECT_EQ(name.text(), QString());
        EXPECT_EQ(onAgent(kNameColumn, "1.2.5"), QStringLiteral("\"\""));
    });
    EXPECT_EQ(recorder_.boxes().size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(Versions, BasicPageEndToEnd,
                         testing::Values(SnmpVersion::v1, SnmpVersion::v2c, SnmpVersion::v3),
                         [](const auto& instance) {
                             return "v" + std::to_string(static_cast<int>(instance.param));
                         });

TEST_P(BasicPageEndToEnd, AMacThatIsBoundElsewhereIsRefusedByTheOnu) {
    QString taken;
    onPage("1.2.5", [&](QWidget& page) { taken = edit(page, "macEdit").text(); });
    onPage("1.1.4", [&](QWidget& page) {
        QLineEdit& mac = edit(page, "macEdit");
        mac.clear();
        mac.setCursorPosition(0);
        test::type(mac, QString(taken).remove(QLatin1Char(':')));
        click(page, "configBtn");
        click(page, "configBtn");
        EXPECT_EQ(onAgent(kRowStatusColumn, "1.1.4"), QStringLiteral("3"));
        EXPECT_EQ(mac.text(), QStringLiteral("00:00:00:00:00:00"));
    });
    ASSERT_EQ(recorder_.boxes().size(), 3U); // two results and the refusal
}

} // namespace
} // namespace onudesk
