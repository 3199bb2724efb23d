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
#include <QLabel>
#include <QVBoxLayout>

namespace onudesk {
namespace {

using test::Answer;
using test::Binding;

using Texts = std::vector<std::string>;

constexpr std::int32_t kItem = 606;

class SamplePage : public ConfigPage {
public:
    SamplePage(Session& pageSession, PageRules pageRules)
        : ConfigPage(pageSession, kItem, std::move(pageRules), nullptr) {
        const ValueMap modes({{"slow", "1"}, {"fast", "2"}});
        FormGrid form(*listPanel, 2);
        fields().add(form, {
                               {.control = "numberEdit",
                                .labelId = 20013,
                                .position = 0,
                                .object = {"onuName"},
                                .check = numberIn(1, 9),
                                .written = Written::always},
                               {.control = "modeComb",
                                .labelId = 20013,
                                .kind = ControlKind::combo,
                                .position = 1,
                                .object = {"MacRowStatus"},
                                .codes = modes,
                                .written = Written::whileEnabled},
                               {.control = "keptComb",
                                .labelId = 20013,
                                .kind = ControlKind::combo,
                                .position = 1,
                                .codes = modes.keepingUnknown()},
                               {.control = "tickedEdit",
                                .labelId = 20013,
                                .typing = {.bytes = 4, .digitsOnly = true},
                                .position = 2,
                                .object = {"onuBindMac"},
                                .check = FieldCheck{.empty = EmptyText::takesFocus},
                                .written = Written::whileEnabled,
                                .enabledBy = checkBox("tickBox")},
                               {.control = "besideEdit",
                                .labelId = 20013,
                                .object = {"onuLlid"},
                                .written = Written::always,
                                .enabledBy = checkBox("tickBox")},
                               {.control = "lostEdit",
                                .labelId = 20013,
                                .position = 3,
                                .object = {"notInTheCatalogue"},
                                .written = Written::always},
                               constant({"MacRowStatus"}, "4"),
                           });
        tickBox = form.find<QCheckBox>("tickBox");
        extraBtn = makeButton(bottomPanel, "extraBtn", 20004, [] {});
        onGroup("group2", [this](const ReadResult&) { ++others; });
        start({extraBtn}, {});
    }

    QCheckBox* tickBox = nullptr;
    QPushButton* extraBtn = nullptr;
    int prepared = 0;
    int filled = 0;
    int others = 0;

    void changeRange(std::int64_t maximum) {
        fields().at("numberEdit").check->range->maximum = maximum;
    }

protected:
    void prepareRefresh() override { ++prepared; }
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
    void answer(const Answer& reply) { ASSERT_TRUE(host.replyRead(kItem, reply)); }
    void read(Texts list, std::uint32_t status = 1) {
        answer({.values = std::move(list), .status = status});
    }
    const Answer failed_{.errorText = "time-out", .errorStatus = -5};
};

TEST_F(ConfigPageTest, StartsWaitingOrReady) {
    const auto waiting = makePage();
    EXPECT_EQ(usableIn(*waiting), "");
    EXPECT_TRUE(waiting->helpBtn->isEnabled());
    EXPECT_TRUE(waiting->Timer1->isActive());
    EXPECT_EQ(waiting->Timer1->interval(), 4000);
    const auto ready = makePage({.start = StartState::ready});
    EXPECT_EQ(usableIn(*ready), "configBtn extraBtn refreshBtn");
    EXPECT_FALSE(ready->Timer1->isActive());
    EXPECT_EQ(host.pending(), 0U) << "a new page sends nothing itself";
}

TEST_F(ConfigPageTest, RefreshReadsOnceAndOnlyTheTimerGivesItBack) {
    const auto page = makePage();
    test::elapse(*page);
    EXPECT_EQ(usableIn(*page), "refreshBtn") << "configuration waits for a read";
    EXPECT_FALSE(page->Timer1->isActive());
    host.routes.routes.clear();
    test::click(*page->refreshBtn);
    test::click(*page->refreshBtn);
    EXPECT_EQ(host.pending(), 1U);
    EXPECT_EQ(page->prepared, 1);
    EXPECT_EQ(host.routedWindow(CP_KIND_READ, kItem), page->replyHandle());
    const auto posted = host.take();
    EXPECT_EQ(posted->kind, CP_KIND_READ);
    EXPECT_EQ(posted->itemType, kItem);
    read({"1"});
    EXPECT_FALSE(page->refreshBtn->isEnabled());
    EXPECT_TRUE(page->Timer1->isActive()) << "a reply does not stop the timer";
    test::elapse(*page);
    EXPECT_TRUE(page->refreshBtn->isEnabled());
    read({"2"}); // late, and shown all the same
    EXPECT_EQ(textIn(*page, "numberEdit"), "2");
}

// A timer that is started anew stops before, whatever id it gets.
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

TEST_F(ConfigPageTest, FailedPostLeavesRecoveryToTheTimer) {
    const auto page = makePage({.start = StartState::ready});
    host.goAway();
    test::click(*page->refreshBtn);
    EXPECT_FALSE(page->refreshBtn->isEnabled());
    EXPECT_EQ(host.routedWindow(CP_KIND_READ, kItem), page->replyHandle());
    test::elapse(*page);
    EXPECT_TRUE(page->refreshBtn->isEnabled());
}

TEST_F(ConfigPageTest, RepliesSetTheButtonsByThePagesPolicy) {
    struct Case {
        OnDecoded onDecoded;
        OnFailedDecode onFailed;
        Answer answer;
        bool before;
        bool after;
    };
    const Answer complete{.values = Texts{"1"}, .status = 1};
    const Answer partial{.values = Texts{"1"}, .status = 0};
    const Case cases[] = {
        {OnDecoded::enables, OnFailedDecode::enables, partial, false, true},
        {OnDecoded::enables, OnFailedDecode::enables, failed_, false, true},
        {OnDecoded::enables, OnFailedDecode::disables, failed_, true, false},
        {OnDecoded::enables, OnFailedDecode::leaves, failed_, true, true},
        {OnDecoded::enables, OnFailedDecode::leaves, failed_, false, false},
        {OnDecoded::followsFlag, OnFailedDecode::enables, complete, false, true},
        {OnDecoded::followsFlag, OnFailedDecode::enables, partial, true, false},
        {OnDecoded::followsFlag, OnFailedDecode::enables, {.values = Texts{"1"}}, true, false},
        // The flag holds for replies the page cannot use, too.
        {OnDecoded::followsFlag,
         OnFailedDecode::enables,
         {.values = Texts{}, .status = 1},
         false,
         true},
    };
    for (const Case& expected : cases) {
        const auto page = makePage({.onDecoded = expected.onDecoded,
                                    .onFailedDecode = expected.onFailed,
                                    .minimumValues = 1});
        page->configBtn->setEnabled(expected.before);
        page->extraBtn->setEnabled(expected.before);
        page->refreshBtn->setEnabled(false);
        answer(expected.answer);
        EXPECT_EQ(usableIn(*page), expected.after ? "configBtn extraBtn" : "");
    }
}

TEST_F(ConfigPageTest, RefreshFollowsTheFlagOnlyWhereTheRulesSaySo) {
    const auto page = makePage({.onDecoded = OnDecoded::followsFlag,
                                .onFailedDecode = OnFailedDecode::leaves,
                                .flagSetsRefresh = true});
    read({"1"}, 1);
    EXPECT_TRUE(page->refreshBtn->isEnabled());
    answer(failed_);
    EXPECT_TRUE(page->refreshBtn->isEnabled());
    read({"1"}, 0);
    EXPECT_FALSE(page->refreshBtn->isEnabled());
}

TEST_F(ConfigPageTest, RefreshCanEmptyTheFields) {
    const auto page = makePage({.refreshEmpties = true});
    read({"5", "2", "6", "x"});
    setTextIn(*page, "besideEdit", "typed");
    page->refreshBtnClick();
    EXPECT_EQ(usableIn(*page), "");
    EXPECT_EQ(textIn(*page, "numberEdit"), "");
    EXPECT_EQ(textIn(*page, "keptComb"), "");
    EXPECT_EQ(in<QComboBox>(*page, "keptComb").count(), 2);
    EXPECT_EQ(textIn(*page, "besideEdit"), "typed") << "no reply fills it";
}

TEST_F(ConfigPageTest, ButtonsComeFromTheRules) {
    const auto page =
        makePage({.config = {"cfgBtn", 20004}, .refresh = {}, .start = StartState::ready});
    EXPECT_EQ(page->configBtn->objectName(), QStringLiteral("cfgBtn"));
    EXPECT_EQ(bytesOf(page->configBtn->text()), messageText(20004));
    EXPECT_EQ(page->refreshBtn, nullptr);
    test::click(*page->configBtn); // the empty number is refused
    desk.takeBox();
    read({"5", "2", "6"});
    test::click(*page->configBtn);
    test::elapse(*page);
    EXPECT_EQ(host.take()->kind, CP_KIND_WRITE);
    const auto readOnly = makePage({.config = {}});
    EXPECT_EQ(readOnly->configBtn, nullptr);
    read({"5"});
    EXPECT_EQ(readOnly->filled, 1);
}

TEST_F(ConfigPageTest, ShortAndForeignRepliesChangeNothing) {
    const auto page = makePage({.resultText = "group1", .minimumValues = 2});
    answer({.values = Texts{"5", "2"}, .status = 1, .resultText = "group1"});
    EXPECT_EQ(page->filled, 1);
    answer({.values = Texts{"7"}, .resultText = "group1"});
    answer({.values = Texts{"7", "1"}, .resultText = "group2"});
    answer({.values = Texts{"7", "1"}, .resultText = "group3"});
    answer({.values = Texts{}, .resultText = "group2"});
    answer({});
    EXPECT_EQ(page->filled, 1);
    EXPECT_EQ(page->others, 1) << "of the group that the page asked for, with a value";
    EXPECT_EQ(textIn(*page, "numberEdit"), "5");
    EXPECT_TRUE(page->configBtn->isEnabled());
}

TEST_F(ConfigPageTest, FieldsFillByPositionAndUnknownCodesClearOrKeep) {
    const auto page = makePage();
    read({"5", "2", "six"});
    EXPECT_EQ(textIn(*page, "tickedEdit"), "six");
    EXPECT_EQ(textIn(*page, "modeComb"), "fast");
    EXPECT_EQ(textIn(*page, "keptComb"), "fast");
    read({"6", "77"});
    EXPECT_EQ(textIn(*page, "modeComb"), "");
    EXPECT_EQ(textIn(*page, "keptComb"), "fast");
    EXPECT_EQ(textIn(*page, "tickedEdit"), "six");
}

TEST_F(ConfigPageTest, ConfigWritesFieldsInOrderAndDropsUnknownObjects) {
    const auto page = makePage();
    read({"5", "2", "six", "x"});
    page->tickBox->setChecked(true);
    setTextIn(*page, "besideEdit", "7");
    page->refreshBtn->setEnabled(true);
    test::click(*page->configBtn);
    const auto posted = host.take();
    ASSERT_TRUE(posted);
    const std::string prefix = "1.3.6.1.4.1.27315.606.1.1.";
    EXPECT_EQ(posted->bindings,
              (std::vector<Binding>{{"onuName", prefix + "19.1.2.5", "5", 4},
                                    {"MacRowStatus", prefix + "21.1.2.5", "2", 2},
                                    {"onuBindMac", prefix + "20.1.2.5", "six", 4},
                                    {"onuLlid", prefix + "2.1.2.5", "7", 2},
                                    {"MacRowStatus", prefix + "21.1.2.5", "4", 2}}));
    EXPECT_EQ(usableIn(*page), "extraBtn") << "not among the page's write buttons";
    EXPECT_TRUE(page->Timer1->isActive());
    EXPECT_EQ(host.routedWindow(CP_KIND_WRITE, kItem), page->replyHandle());
}

TEST_F(ConfigPageTest, ChecksEndTheClickWithNothingSent) {
    const auto page = makePage();
    page->show();
    read({"10", "2", ""});
    test::click(*page->configBtn);
    EXPECT_EQ(desk.takeBox().caption, messageText(11054));
    EXPECT_EQ(page->focusWidget(), &in(*page, "numberEdit"));
    EXPECT_TRUE(page->configBtn->isEnabled());
    page->changeRange(10);
    page->tickBox->setChecked(true);
    test::click(*page->configBtn); // the empty ticked edit only takes the focus
    EXPECT_EQ(page->focusWidget(), &in(*page, "tickedEdit"));
    EXPECT_EQ(host.pending(), 0U);
    page->tickBox->setChecked(false);
    test::click(*page->configBtn);
    EXPECT_EQ(host.take()->bindings.size(), 3U);
}

TEST_F(ConfigPageTest, FieldsWrittenWhileEnabledNeedTheirTickToo) {
    const auto page = makePage();
    read({"5", "2", "6"});
    page->tickBox->setChecked(true);
    in<QLineEdit>(*page, "tickedEdit").setEnabled(false);
    in<QComboBox>(*page, "modeComb").setEnabled(false);
    test::click(*page->configBtn);
    EXPECT_EQ(takeWrite(), (Texts{"onuName@1.2.5=5", "onuLlid@1.2.5=", "MacRowStatus@1.2.5=4"}));
}

TEST_F(ConfigPageTest, ACopiedRequestStandsForItselfAndTakesPartOfTheFields) {
    const auto page = makePage();
    read({"5", "2", "six"});
    page->tickBox->setChecked(true);
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
    ASSERT_EQ(posted->bindings.size(), 2U);
    EXPECT_EQ(posted->bindings[1].oid, "1.3.6.1.4.1.27315.606.1.1.21.1.2.6");
    EXPECT_EQ(CodeParaReader(*posted->record).text(CP_WRITE_COMMUNITY),
              session.context.writeCommunity);
}

TEST_F(ConfigPageTest, TypingIsLimitedAndSharedTicksStandOnce) {
    const auto page = makePage();
    page->show();
    auto& edit = in<QLineEdit>(*page, "tickedEdit");
    test::type(edit, "1a23456");
    EXPECT_EQ(textIn(*page, "tickedEdit"), "1234");
    EXPECT_EQ(page->findChildren<QCheckBox*>().size(), 1);
    EXPECT_EQ(page->findChild<QLabel*>(QStringLiteral("besideEditLabel")), nullptr);
}

TEST_F(ConfigPageTest, WriteReplyRefreshesFirstThenNotifiesUnlessThePageOnlyReads) {
    for (const bool onlyReads : {false, true}) {
        const auto page = makePage({.config = onlyReads ? PageButton{} : PageRules{}.config});
        registerWriteRoute(session, kItem, page->replyHandle());
        desk.whileOpen = [&] {
            EXPECT_EQ(host.pending(), 1U) << "the read goes out first";
            // The answer to that read is handled while the box is open.
            read({"8"});
            EXPECT_EQ(textIn(*page, "numberEdit"), "8");
        };
        ASSERT_TRUE(host.replyWrite(kItem, {.status = 1}));
        EXPECT_EQ(host.take().has_value(), !onlyReads);
        EXPECT_EQ(desk.takeBoxes().size(), onlyReads ? 0U : 1U);
        EXPECT_EQ(test::TestHost::outstandingReplies(), 0U);
        desk.whileOpen = {};
    }
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

TEST_F(ConfigPageTest, ShowingAgainRereadsOnlyWhereTheRulesSaySo) {
    const auto quiet = makePage();
    quiet->updatePage();
    EXPECT_EQ(host.pending(), 0U);
    const auto reading = makePage({.rereadsWhenShown = true});
    reading->updatePage();
    EXPECT_EQ(host.take()->kind, CP_KIND_READ);
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
