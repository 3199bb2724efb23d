// SPDX-License-Identifier: MIT
#include "env/client_paths.h"
#include "env/language_module.h"
#include "mainform/config_main_form.h"
#include "pages/framework/controls.h"
#include "platform/window_messages.h"
#include "ui_test.h"

#include <QLabel>

namespace onudesk {
namespace {

using test::Answer;

using Texts = std::vector<std::string>;

void giveBack(const platform::WindowMessage& message) {
    auto* reply = static_cast<CodeParaReply*>(message.payload);
    test::TestHost::releaseFn()(&reply);
}

class MainFormTest : public test::UiTest {
protected:
    MainFormTest() {
        session.context.menuFileName = "epononuother_menu.xml";
        session.context.rootCaption = "";
    }

    TConfigMainForm& open() {
        form_ = std::make_unique<TConfigMainForm>(session);
        form_->show();
        return *form_;
    }
    void close() { form_.reset(); }

    // The node of an item type, anywhere in the tree.
    QTreeWidgetItem* node(std::int32_t itemType) {
        const auto all =
            form_->ConfigItemTree->findItems(QString(), Qt::MatchContains | Qt::MatchRecursive);
        for (QTreeWidgetItem* item : all) {
            if (item->childCount() == 0 && item->data(0, Qt::UserRole).toInt() == itemType) {
                return item;
            }
        }
        return nullptr;
    }
    void choose(QTreeWidgetItem* item) {
        ASSERT_NE(item, nullptr);
        form_->ConfigItemTree->setCurrentItem(item);
        form_->ConfigItemTreeClick();
    }
    [[nodiscard]] std::string topic() const {
        const std::string& command = form_->helpCommand();
        return command.substr(command.rfind("::/") + 3);
    }

private:
    std::unique_ptr<TConfigMainForm> form_;
};

TEST_F(MainFormTest, LaysOutTitleTreeAndSettings) {
    TConfigMainForm& form = open();
    EXPECT_EQ(form.size(), QSize(790, 562));
    EXPECT_EQ(form.minimumSize(), QSize(750, 562));
    EXPECT_EQ(form.TitlePanel->height(), 24);
    EXPECT_EQ(form.TitlePanel->ClosePanel->size(), QSize(23, 24));
    EXPECT_EQ(form.TitlePanel->ClosePanel->palette().color(QPalette::Window),
              QColor(131, 197, 228));
    EXPECT_EQ(form.ConfigItemTree->geometry(), QRect(0, 0, 150, form.Panel1->height()));
    EXPECT_EQ(form.ConfigItemTree->indentation(), 19);
    EXPECT_EQ(form.snmpGroup->size(), QSize(561, 353));
    EXPECT_EQ(form.snmpGroup->x(), (form.Panel1->width() - 561 - 150) / 2 + 150);
    EXPECT_EQ(form.snmpGroup->y(), (form.Panel1->height() - 353) / 2);
    EXPECT_TRUE(form.snmpGroup->isVisible());
    EXPECT_EQ(form.currentPage(), nullptr);
    EXPECT_EQ(host.pending(), 0U);
}

TEST_F(MainFormTest, TitleNamesTheLevelsThatArePresent) {
    SessionContext& context = session.context;
    for (const auto& [pon, tail] :
         {std::pair(2, "  OLT:1 PON:2 ONU:3)"), std::pair(-1, "  OLT:1 ONU:3)")}) {
        context.oltNumber = 1;
        context.ponNumber = pon;
        context.onuNumber = 3;
        const TConfigMainForm& form = open();
        const std::string title = messageText(11002) + messageText(11003) + " (IP:10.1.1.1" + tail;
        EXPECT_EQ(bytesOf(form.windowTitle()), title);
        EXPECT_EQ(bytesOf(form.TitlePanel->TitleLabel->text()), title);
    }
    context.oltNumber = context.onuNumber = -1;
    EXPECT_TRUE(bytesOf(open().windowTitle()).ends_with(" (IP:10.1.1.1)"));
}

TEST_F(MainFormTest, OpeningALeafMakesItsPageAndReadsOnce) {
    TConfigMainForm& form = open();
    choose(node(606));
    ASSERT_NE(form.currentPage(), nullptr);
    EXPECT_EQ(form.currentItemType(), 606);
    EXPECT_EQ(form.currentPage()->geometry(),
              QRect(151, 0, form.Panel1->width() - 151, form.Panel1->height()));
    EXPECT_FALSE(form.snmpGroup->isVisible()) << "the tab key must not reach it";
    const QWidget& bottom = in(*form.currentPage(), "bottomPanel");
    EXPECT_EQ(bottom.x(), (form.Panel1->width() - 150 - bottom.width()) / 2);
    EXPECT_EQ(host.routedWindow(CP_KIND_READ, 606), form.currentPage()->replyHandle());
    const auto posted = host.take();
    ASSERT_TRUE(posted);
    EXPECT_EQ(posted->kind, CP_KIND_READ);
    EXPECT_EQ(posted->itemType, 606);
    EXPECT_EQ(posted->suffix, ".1.2.5");
    choose(node(606)); // again
    EXPECT_EQ(host.pending(), 0U);
    EXPECT_EQ(form.pageCount(), 1U);
    EXPECT_EQ(topic(), "onuBasic.htm");
}

TEST_F(MainFormTest, ItemsWithoutPageShowTheSettingsAndComingBackKeepsThePage) {
    TConfigMainForm& form = open();
    choose(node(606));
    host.take();
    const ConfigPage* page = form.currentPage();
    choose(node(826));
    EXPECT_EQ(form.currentPage(), nullptr);
    EXPECT_EQ(form.currentItemType(), 826);
    EXPECT_TRUE(form.snmpGroup->isVisible());
    EXPECT_TRUE(page->isHidden());
    EXPECT_EQ(topic(), "onuVersion.htm");
    EXPECT_EQ(host.pending(), 0U);
    unregisterRoutes(session, 606);
    choose(node(606));
    EXPECT_EQ(form.currentPage(), page);
    EXPECT_FALSE(page->isHidden());
    EXPECT_EQ(host.routedWindow(CP_KIND_READ, 606), page->replyHandle());
    EXPECT_EQ(host.pending(), 0U) << "the basic page does not read again when shown";
    EXPECT_EQ(form.pageCount(), 1U);
}

TEST_F(MainFormTest, HeadingsAndTheRootChangeNothing) {
    TConfigMainForm& form = open();
    choose(node(606));
    host.take();
    QTreeWidgetItem* root = form.ConfigItemTree->topLevelItem(0);
    for (QTreeWidgetItem* heading : {root, root->child(0)}) {
        ASSERT_GT(heading->childCount(), 0);
        choose(heading);
        EXPECT_EQ(form.currentItemType(), 606);
        EXPECT_NE(form.currentPage(), nullptr);
        EXPECT_EQ(topic(), "onuBasic.htm");
    }
    form.ConfigItemTree->setCurrentItem(nullptr);
    form.ConfigItemTreeClick();
    EXPECT_EQ(form.currentItemType(), 606);
}

TEST_F(MainFormTest, F1RunsTheCommandOfTheLastItem) {
    TConfigMainForm& form = open();
    const std::string base = "hh mk:@MSITStore:" + clientRoot() + "\\Help\\confighelp.chm::/";
    test::key(form, Qt::Key_F1);
    choose(node(606));
    host.take();
    test::key(*form.currentPage()->refreshBtn, Qt::Key_F1);
    test::key(form, Qt::Key_F2);
    EXPECT_EQ(desk.commands, (Texts{base + "index.htm", base + "onuBasic.htm"}));
    ASSERT_EQ(desk.help.size(), 2U);
    EXPECT_EQ(desk.help[1].topic, "onuBasic.htm");
}

TEST_F(MainFormTest, EnterAndEscapeLeaveTheWindowOpen) {
    TConfigMainForm& form = open();
    test::key(form, Qt::Key_Escape);
    test::key(form, Qt::Key_Return);
    EXPECT_TRUE(form.isVisible());
    test::click(*form.TitlePanel->ClosePanel);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(MainFormTest, SingleItemModeShowsOnePageAcrossTheWindow) {
    session.context.subIndex = 7;
    session.SubIndex = 7;
    session.context.subUnitItemType = 606;
    TConfigMainForm& form = open();
    EXPECT_FALSE(form.ConfigItemTree->isVisible());
    ASSERT_NE(form.currentPage(), nullptr);
    EXPECT_EQ(form.currentPage()->geometry(),
              QRect(0, 0, form.Panel1->width(), form.Panel1->height()));
    EXPECT_TRUE(bytesOf(form.windowTitle()).ends_with(") " + messageText(606)));
    const auto posted = host.take();
    EXPECT_EQ(posted->suffix, ".1.2.5.7");
    EXPECT_EQ(CodeParaReader(*posted->record).integer(CP_SUB_INDEX), 7U);
}

TEST_F(MainFormTest, SettingsAreLoadedOnce) {
    session.context.snmpPort = 1161;
    TConfigMainForm& whole = open();
    whole.snmpGroup->edtSnmpPort->setText(QStringLiteral("1162"));
    whole.FormActivate();
    EXPECT_EQ(whole.snmpGroup->edtSnmpPort->text(), QStringLiteral("1162"));
    EXPECT_EQ(whole.ConfigItemTree->topLevelItemCount(), 1);
    session.context.subIndex = 7;
    session.context.subUnitItemType = 826;
    const TConfigMainForm& single = open();
    EXPECT_EQ(single.currentPage(), nullptr);
    EXPECT_TRUE(single.snmpGroup->isVisible());
    EXPECT_EQ(single.snmpGroup->edtSnmpPort->text(), QStringLiteral("1161"));
}

TEST_F(MainFormTest, TreeFollowsTheWidthStepByStep) {
    TConfigMainForm& form = open();
    choose(node(606));
    host.take();
    int width = 150;
    int before = 790;
    for (const int next : {1003, 877, 750}) {
        form.resize(next, 700);
        width = static_cast<int>(width * (static_cast<double>(next) / before));
        before = next;
        EXPECT_EQ(form.ConfigItemTree->width(), width);
        EXPECT_EQ(form.ConfigItemTree->height(), form.Panel1->height());
        EXPECT_EQ(form.currentPage()->geometry(),
                  QRect(width + 1, 0, form.Panel1->width() - width - 1, form.Panel1->height()));
        EXPECT_EQ(form.snmpGroup->x(), (form.Panel1->width() - 561 - width) / 2 + width);
    }
    form.resize(100, 100);
    EXPECT_EQ(form.size(), QSize(750, 562));
}

TEST_F(MainFormTest, ClosingWithdrawsRoutesAndDropsLateReplies) {
    TConfigMainForm& form = open();
    choose(node(606));
    host.take();
    const std::uint32_t window = form.currentPage()->replyHandle();
    registerWriteRoute(session, 606, window);
    registerReadRoute(session, 4711, 99); // somebody else's
    // A reply that is queued already when the window closes.
    ASSERT_TRUE(platform::postWindowMessage(
        window, {WM_CODEPARA_READ_REPLY, test::TestHost::makeReply({}), 0, &giveBack}));
    form.close();
    EXPECT_EQ(host.routes.routes.size(), 1U);
    EXPECT_FALSE(host.replyRead(606, {.values = Texts{"1"}}));
    EXPECT_EQ(form.ConfigItemTree->topLevelItemCount(), 0);
    EXPECT_EQ(form.currentPage(), nullptr);
    close();
    EXPECT_EQ(test::TestHost::outstandingReplies(), 0U);
    EXPECT_EQ(platform::pendingWindowMessages(), 0U);
    EXPECT_FALSE(platform::postWindowMessage(window, {}));
}

TEST_F(MainFormTest, ClosingUnderAnOpenBoxIsSafe) {
    TConfigMainForm& form = open();
    choose(node(606));
    host.take();
    QWidget& config = in(form, "configBtn");
    config.setEnabled(true);
    desk.whileOpen = [&] { form.close(); }; // as a log-out does
    test::click(config);                    // the empty MAC is refused
    EXPECT_EQ(desk.takeBox().caption, messageText(113));
    EXPECT_FALSE(form.isVisible());
}

TEST_F(MainFormTest, BrokenMenusLeaveAnEmptyTreeAndALeafWithoutItemOpensNothing) {
    const test::TemporaryDirectory directory;
    directory.write("CONF/snmp/broken.xml", "<menu><CONFIG_ITEM");
    directory.write("CONF/snmp/root.xml", "<menu type='only a root'/>");
    const test::ClientTree tree(directory.path());
    session.context.menuFileName = "broken.xml";
    EXPECT_EQ(open().ConfigItemTree->topLevelItemCount(), 0);
    session.context.menuFileName = "root.xml";
    TConfigMainForm& rootOnly = open();
    ASSERT_EQ(rootOnly.ConfigItemTree->topLevelItemCount(), 1);
    choose(rootOnly.ConfigItemTree->topLevelItem(0));
    EXPECT_EQ(rootOnly.currentPage(), nullptr);
    EXPECT_EQ(host.pending(), 0U);
}

TEST_F(MainFormTest, BorderAndTitleMoveTheWindowWithoutWindowManager) {
    TConfigMainForm& form = open();
    const QRect before = form.geometry();
    test::drag(form, QPoint(form.width() - 1, 300), QPoint(40, 25));
    EXPECT_EQ(form.geometry(), before.adjusted(0, 0, 40, 0));
    test::drag(*form.TitlePanel, QPoint(100, 10), QPoint(15, 20));
    EXPECT_EQ(form.pos(), before.topLeft() + QPoint(15, 20));
    test::drag(*form.TitlePanel->ClosePanel, QPoint(5, 5), QPoint(-60, 40));
    EXPECT_EQ(form.pos(), before.topLeft() + QPoint(15, 20)) << "the close panel drags nothing";
    EXPECT_TRUE(form.isVisible()) << "released elsewhere";
}

} // namespace
} // namespace onudesk
