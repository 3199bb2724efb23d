// SPDX-License-Identifier: MIT
//
// The life cycle of pages, on a page made for it.
#include "env/language_module.h"
#include "pages/framework/config_page.h"
#include "pages/framework/form_grid.h"
#include "platform/window_messages.h"
#include "ui_test.h"

#include <QBindable>
#include <QCheckBox>
#include <utility>

namespace onudesk {
namespace {

using test::Binding;

using Texts = std::vector<std::string>;

constexpr std::int32_t kItem = 606;

class SamplePage : public ConfigPage {
public:
    SamplePage(Session& pageSession, PageRules pageRules)
        : ConfigPage(pageSession, kItem, std::move(pageRules), nullptr) {
        FormGrid form(*listPanel, 2);
        fields().add(form, {
                               {.control = "numberEdit",
                                .labelId = 20013,
                                .position = 0,
                                .object = {"onuName"},
                                .written = Written::always},
                               {.control = "tickedEdit",
                                .labelId = 20013,
                                .position = 1,
                                .object = {"onuBindMac"},
                                .written = Written::whileEnabled,
                                .enabledBy = checkBox("tickBox")},
                               {.control = "besideEdit",
                                .labelId = 20013,
                                .object = {"onuLlid"},
                                .written = Written::always,
                                .enabledBy = checkBox("tickBox")},
                               {.control = "lostEdit",
                                .labelId = 20013,
                                .object = {"notInTheCatalogue"},
                                .written = Written::always},
                               constant({"MacRowStatus"}, "4"),
                           });
        onGroup("group2", [this](const ReadResult&) { ++others; });
        start();
    }

    int filled = 0;
    int others = 0;

protected:
    void showReply(const ReadResult& result) override {
        ++filled;
        ConfigPage::showReply(result);
    }
};

class ConfigPageTest : public test::UiTest {
protected:
    std::unique_ptr<SamplePage> makePage(PageRules rules = {}) {
        auto page = std::make_unique<SamplePage>(session, std::move(rules));
        registerReadRoute(session, kItem, page->replyHandle());
        return page;
    }
    void read(Texts list) {
        ASSERT_TRUE(host.replyRead(kItem, {.values = std::move(list), .status = 1}));
    }
};

TEST_F(ConfigPageTest, RefreshReadsOnceAndOnlyTheTimerGivesItBack) {
    const auto page = makePage({.refreshEmpties = true});
    EXPECT_EQ(page->Timer1->interval(), 4000);
    EXPECT_TRUE(page->helpBtn->isEnabled());
    EXPECT_EQ(host.pending(), 0U) << "a new page sends nothing itself";
    test::elapse(*page);
    host.routes.routes.clear();
    setTextIn(*page, "besideEdit", "typed");
    test::click(*page->refreshBtn);
    test::click(*page->refreshBtn);
    EXPECT_EQ(textIn(*page, "besideEdit"), "typed") << "no reply fills it";
    EXPECT_EQ(takeRead(), ".1.2.5");
    EXPECT_EQ(host.pending(), 0U);
    EXPECT_EQ(host.routedWindow(CP_KIND_READ, kItem), page->replyHandle());
    read({"1"});
    EXPECT_EQ(usableIn(*page), "configBtn");
    EXPECT_TRUE(page->Timer1->isActive()) << "a reply does not stop the timer";
    test::elapse(*page);
    read({"2"}); // late, and shown all the same
    EXPECT_EQ(textIn(*page, "numberEdit"), "2");
    host.goAway();
    test::click(*page->refreshBtn);
    EXPECT_EQ(usableIn(*page), "");
    test::elapse(*page);
    EXPECT_EQ(usableIn(*page), "refreshBtn");
}

// The completion flag holds for replies the page cannot use, too.
TEST_F(ConfigPageTest, ShortAndForeignRepliesChangeOnlyTheButtons) {
    const auto page =
        makePage({.onDecoded = OnDecoded::followsFlag, .resultText = "group1", .minimumValues = 2});
    const std::pair<Texts, const char*> replies[] = {
        {{"7"}, "group1"}, {{"7", "1"}, "group2"}, {{"7", "1"}, "group3"}, {{}, "group2"}};
    for (const auto& [values, group] : replies) {
        for (const bool complete : {true, false}) {
            ASSERT_TRUE(host.replyRead(
                kItem, {.values = values, .status = complete ? 1U : 0U, .resultText = group}));
            EXPECT_EQ(page->configBtn->isEnabled(), complete) << group;
        }
    }
    EXPECT_EQ(page->filled, 0);
    EXPECT_EQ(page->others, 2) << "of the group that the page asked for, with a value";
}

TEST_F(ConfigPageTest, ConfigWritesFieldsInOrderAndDropsUnknownObjects) {
    const auto page = makePage();
    read({"5", "six"});
    in<QCheckBox>(*page, "tickBox").setChecked(true);
    setTextIn(*page, "besideEdit", "7");
    test::click(*page->configBtn);
    const std::string prefix = "1.3.6.1.4.1.27315.606.1.1.";
    EXPECT_EQ(host.take()->bindings,
              (std::vector<Binding>{{"onuName", prefix + "19.1.2.5", "5", 4},
                                    {"onuBindMac", prefix + "20.1.2.5", "six", 4},
                                    {"onuLlid", prefix + "2.1.2.5", "7", 2},
                                    {"MacRowStatus", prefix + "21.1.2.5", "4", 2}}));
    EXPECT_TRUE(page->Timer1->isActive());
    EXPECT_EQ(host.routedWindow(CP_KIND_WRITE, kItem), page->replyHandle());
}

TEST_F(ConfigPageTest, WriteReplyRefreshesFirstThenNotifies) {
    const auto page = makePage();
    registerWriteRoute(session, kItem, page->replyHandle());
    desk.whileOpen = [&] {
        EXPECT_EQ(takeRead(), ".1.2.5") << "the read goes out first";
        read({"8"}); // handled while the box is open
        EXPECT_EQ(textIn(*page, "numberEdit"), "8");
    };
    ASSERT_TRUE(host.replyWrite(kItem, {.status = 1}));
    EXPECT_EQ(desk.takeBoxes().size(), 1U);
    EXPECT_EQ(test::TestHost::outstandingReplies(), 0U);
}

TEST_F(ConfigPageTest, RunningTimerKeepsItsTimeAndIsNeverEarly) {
    const auto page = makePage();
    EXPECT_EQ(page->Timer1->timerType(), Qt::PreciseTimer);
    int changes = 0;
    const auto watch = page->Timer1->bindableActive().onValueChanged([&] { ++changes; });
    page->refreshBtnClick();
    EXPECT_EQ(changes, 0);
    page->readFirst();
    EXPECT_GT(changes, 0) << "a page that took long to make keeps its distance to the next read";
    test::elapse(*page);
    page->refreshBtnClick();
    EXPECT_TRUE(page->Timer1->isActive());
    EXPECT_EQ(host.pending(), 3U);
    while (host.take()) {
    }
}

TEST_F(ConfigPageTest, ACopiedRequestStandsForItselfAndTakesPartOfTheFields) {
    const auto page = makePage();
    read({"5", "six"});
    in<QCheckBox>(*page, "tickBox").setChecked(true);
    const FieldSet& fields = std::as_const(*page).fields();
    WriteRequest first = page->newRequest();
    WriteRequest second = first.copy();
    ASSERT_TRUE(second);
    fields.bind(first, "1.2.5", "onuB");
    fields.bind(second, "1.2.6", "MacRow");
    EXPECT_TRUE(first.post());
    EXPECT_FALSE(first.copy()) << "it has gone out";
    EXPECT_TRUE(second.post());
    EXPECT_EQ(takeWrite(), Texts{"onuBindMac@1.2.5=six"});
    const auto posted = host.take();
    EXPECT_EQ(posted->kind, CP_KIND_WRITE);
    EXPECT_EQ(posted->itemType, kItem);
    ASSERT_EQ(posted->bindings.size(), 1U);
    EXPECT_EQ(posted->bindings[0].oid, "1.3.6.1.4.1.27315.606.1.1.21.1.2.6");
    EXPECT_EQ(CodeParaReader(*posted->record).text(CP_WRITE_COMMUNITY),
              session.context.writeCommunity);
}

TEST_F(ConfigPageTest, AnAnswerWithoutReplyIsAFailedOneAndUnknownMessagesAreNone) {
    const auto page = makePage();
    page->handleMessage({4711, nullptr, 0, nullptr});
    EXPECT_FALSE(page->configBtn->isEnabled());
    page->handleMessage({WM_CODEPARA_READ_REPLY, nullptr, 0, nullptr});
    EXPECT_TRUE(page->configBtn->isEnabled());
    EXPECT_EQ(page->filled, 0);
}

TEST_F(ConfigPageTest, AnswersAfterTheOperatorMovedOnStayWithTheirPage) {
    const auto page = makePage();
    session.context.currentItemType = 608; // another item is shown now
    registerReadRoute(session, 608, 999);
    registerWriteRoute(session, kItem, page->replyHandle());
    ASSERT_TRUE(host.replyWrite(kItem, {.status = 1}));
    desk.takeBox();
    EXPECT_EQ(host.take()->itemType, kItem);
    EXPECT_EQ(host.routedWindow(CP_KIND_READ, 608), 999U);
    EXPECT_EQ(host.routedWindow(CP_KIND_READ, kItem), page->replyHandle());
}

TEST_F(ConfigPageTest, DestroyedPagesReceiveNothing) {
    auto page = makePage();
    const std::uint32_t window = page->replyHandle();
    registerWriteRoute(session, kItem, window);
    registerReadRoute(session, 608, 999);
    platform::WindowMessage message{WM_CODEPARA_READ_REPLY, test::TestHost::makeReply({}), 0,
                                    [](const platform::WindowMessage& left) {
                                        auto* reply = static_cast<CodeParaReply*>(left.payload);
                                        test::TestHost::releaseFn()(&reply);
                                    }};
    ASSERT_TRUE(platform::postWindowMessage(window, message));
    page.reset();
    EXPECT_EQ(test::TestHost::outstandingReplies(), 0U);
    EXPECT_EQ(host.routes.routes.size(), 1U);
    EXPECT_FALSE(platform::postWindowMessage(window, {}));
}

// Two pages of fields only: in the middle of the upper part, and in a centred panel.
class FormPage : public ConfigPage {
public:
    FormPage(Session& pageSession, bool centred) : ConfigPage(pageSession, kItem, {}, nullptr) {
        const std::vector<Field> fields = {{.control = "onlyEdit", .labelId = 20013}};
        centred ? buildCentredForm(fields) : static_cast<void>(buildForm(fields));
        start();
    }
};

TEST_F(ConfigPageTest, FormsAndButtonsKeepTheirPlaceWhenTheWindowGrows) {
    const auto page = makePage();
    FormPage upper(session, false);
    FormPage centred(session, true);
    for (const QSize size : {QSize(600, 500), QSize(901, 640)}) {
        for (ConfigPage* each :
             {static_cast<ConfigPage*>(page.get()), static_cast<ConfigPage*>(&upper),
              static_cast<ConfigPage*>(&centred)}) {
            each->show();
            each->resize(size);
        }
        EXPECT_EQ(in(upper, "bottomPanel").geometry().bottom(), size.height() - 1);
        const auto& panel = in(centred, "Panel1");
        EXPECT_EQ(panel.x(), (size.width() - panel.width()) / 2);
        EXPECT_EQ(panel.y(), (size.height() - panel.height()) / 2);
        EXPECT_TRUE(panel.isAncestorOf(centred.configBtn));
        page->FrameResize();
        const auto& bottom = in(*page, "bottomPanel");
        EXPECT_EQ(in(*page, "listPanel").height(), size.height() - bottom.height());
        EXPECT_EQ(bottom.y(), size.height() - bottom.height());
        EXPECT_EQ(bottom.x(), (size.width() - bottom.width()) / 2);
    }
}

} // namespace
} // namespace onudesk
