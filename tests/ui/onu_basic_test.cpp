// SPDX-License-Identifier: MIT
#include "env/help_index.h"
#include "env/language_module.h"
#include "pages/basic/onu_basic.h"
#include "ui_test.h"

#include <cstdlib>
#include <set>

#include <QPlainTextEdit>

namespace onudesk {
namespace {

using platform::PromptIcon;
using test::Answer;

using Texts = std::vector<std::string>;

constexpr std::int32_t kItem = 606;
constexpr const char* kNoMac = "00:00:00:00:00:00";

// An ONU that is not registered: its MAC can be bound.
Texts freeSlot() {
    const Texts capabilities = {"GE FE VoIP", "1", "3", "4", "15", "2", "0", "8", "2", "8", "4"};
    Texts values = {"000000000000", "26", "V", "M"};
    values.insert(values.end(), capabilities.begin(), capabilities.end());
    values.insert(values.end(), {"1", "133", "now", "ab", "001A2B3C4D5E", "", "1"});
    return values;
}

Texts changed(Texts values, std::size_t position, const std::string& value) {
    values[position] = value;
    return values;
}

Texts registered() {
    return changed(freeSlot(), 0, "001A2B3C4D5E");
}

class OnuBasicTest : public test::UiTest {
protected:
    OnuBasicTest() { registerReadRoute(session, kItem, page.replyHandle()); }

    void read(const Texts& values, std::uint32_t nameLength = 2) {
        std::vector<std::uint32_t> lengths(values.size(), 0);
        if (lengths.size() > 18) {
            lengths[18] = nameLength;
        }
        ASSERT_TRUE(
            host.replyRead(kItem, {.values = values, .lengths = std::move(lengths), .status = 1}));
    }
    std::string text(const char* control) { return textIn(page, control); }
    // The only request posted since the last call.
    Texts written() {
        EXPECT_EQ(host.pending(), 1U);
        return takeWrite();
    }
    void finishWrite() {
        ASSERT_TRUE(host.replyWrite(kItem, {.status = 1}));
        desk.takeBox();
        EXPECT_EQ(host.take()->kind, CP_KIND_READ);
    }

    TOnuBasic page{session, kItem, nullptr};
};

TEST_F(OnuBasicTest, StartsWaitingWithHiddenAuthentication) {
    EXPECT_EQ(usableIn(page), "");
    EXPECT_TRUE(page.Timer1->isActive());
    EXPECT_TRUE(page.authValidComb->isHidden());
    EXPECT_TRUE(page.authValidLabel->isHidden());
    EXPECT_EQ(page.authValidComb->currentIndex(), 0);
    EXPECT_EQ(page.authValidComb->count(), 2);
    EXPECT_FALSE(page.llidEdt->isEnabled());
    EXPECT_TRUE(page.llidEdt->isReadOnly());
    EXPECT_EQ(maskedText(*page.macEdit), "  :  :  :  :  :  ");
}

TEST_F(OnuBasicTest, ShowsEveryValueInItsControl) {
    read(registered());
    const std::pair<const char*, const char*> shownTexts[] = {
        {"llidEdt", "1A"},    {"serviceMemo", "GE FE VoIP"},
        {"numgeEdit", "1"},   {"mapgeEdit", "0x0003"},
        {"numfeEdit", "4"},   {"mapfeEdit", "0x000F"},
        {"numpotsEdit", "2"}, {"numE1Edit", "0"},
        {"numUSEdit", "8"},   {"queUSEdit", "2"},
        {"numDSEdit", "8"},   {"queDSEdit", "4"},
        {"rttEdit", "133"},   {"timeEdit", "now"},
        {"nameEdit", "ab"},
    };
    for (const auto& [control, value] : shownTexts) {
        EXPECT_EQ(text(control), value) << control;
    }
    EXPECT_EQ(text("batteryEdit"), messageText(11043));
    EXPECT_EQ(maskedText(*page.macEdit), "00:1A:2B:3C:4D:5E");
    read(changed(registered(), 15, "7"));
    EXPECT_EQ(text("batteryEdit"), "");
}

TEST_F(OnuBasicTest, LlidNeedsTheFirstValueAndShowsTheSecond) {
    read(changed(registered(), 1, "4095"));
    EXPECT_EQ(text("llidEdt"), "FFF");
    read(changed(changed(registered(), 0, ""), 1, "5"));
    EXPECT_EQ(text("llidEdt"), "FFF");
    read(changed(freeSlot(), 1, "5")); // zero, but not empty
    EXPECT_EQ(text("llidEdt"), "05");
}

TEST_F(OnuBasicTest, ShortRepliesOnlyGiveTheButtonsBack) {
    read(registered());
    Texts few = changed(registered(), 16, "999");
    few.pop_back();
    page.configBtn->setEnabled(false);
    read(few);
    EXPECT_EQ(text("rttEdit"), "133");
    EXPECT_TRUE(page.configBtn->isEnabled());
    page.configBtn->setEnabled(false);
    ASSERT_TRUE(host.replyRead(kItem, {.errorText = "time-out", .errorStatus = -5}));
    EXPECT_EQ(usableIn(page), "configBtn macBtn nameBtn");
}

TEST_F(OnuBasicTest, NamesComeAsTextOrAsHexadecimal) {
    struct Case {
        const char* value;
        std::uint32_t length;
        const char* shownName;
    };
    const Case cases[] = {
        {"4F4E5531", 4, "ONU1"},
        {"4F4E5531", 8, "4F4E5531"},
        {"4F4E553", 4, ""},
        {"4F4E0031", 4, "ON"},
        {"", 0, ""},
        {"\xE4\xB8\xAD", 3, "\xE4\xB8\xAD"},
    };
    for (const Case& expected : cases) {
        read(changed(registered(), 18, expected.value), expected.length);
        EXPECT_EQ(text("nameEdit"), expected.shownName) << expected.value;
    }
    ASSERT_TRUE(host.replyRead(kItem, {.values = changed(registered(), 18, "cellar")}));
    EXPECT_EQ(text("nameEdit"), "cellar") << "without lengths as it is";
}

TEST_F(OnuBasicTest, FailedPostsLeaveRecoveryToTheTimer) {
    read(freeSlot());
    host.goAway();
    test::click(*page.configBtn);
    EXPECT_FALSE(page.configBtn->isEnabled());
    EXPECT_EQ(host.routedWindow(CP_KIND_WRITE, kItem), page.replyHandle());
    test::elapse(page);
    EXPECT_TRUE(page.refreshBtn->isEnabled());
    read(changed(freeSlot(), 19, "FFFFFFFFFFFF"));
    EXPECT_EQ(maskedText(*page.macEdit), "00:1A:2B:3C:4D:5E") << "the bind is pending all the same";
}

TEST_F(OnuBasicTest, WithoutCataloguePostsNothing) {
    const test::TemporaryDirectory directory;
    const test::ClientTree empty(directory.path());
    TOnuBasic bare(session, kItem, nullptr);
    EXPECT_EQ(desk.takeBox().text, messageText(11140));
    registerReadRoute(session, kItem, bare.replyHandle());
    read(freeSlot());
    test::click(*bare.configBtn);
    EXPECT_EQ(host.pending(), 0U);
    EXPECT_FALSE(bare.configBtn->isEnabled());
    test::elapse(bare);
    EXPECT_TRUE(bare.refreshBtn->isEnabled());
}

TEST_F(OnuBasicTest, RegisteredOrLockedMacsGiveTheNameFree) {
    read(freeSlot());
    EXPECT_TRUE(page.macEdit->isEnabled());
    EXPECT_FALSE(page.nameEdit->isEnabled());
    EXPECT_FALSE(page.nameBtn->isEnabled());
    EXPECT_EQ(text("nameEdit"), "");
    EXPECT_FALSE(page.macBtn->isHidden());
    read(changed(freeSlot(), 20, "2"));
    EXPECT_FALSE(page.macEdit->isEnabled());
    EXPECT_FALSE(page.macBtn->isHidden()) << "only a registered ONU hides the button";
    EXPECT_TRUE(page.nameEdit->isEnabled());
    EXPECT_TRUE(page.nameBtn->isEnabled());
    read(freeSlot());
    EXPECT_FALSE(page.macEdit->isEnabled()) << "nothing enables it again";
    EXPECT_EQ(text("nameEdit"), "ab");
}

TEST_F(OnuBasicTest, AnyHexadecimalDigitMeansRegistered) {
    read(changed(freeSlot(), 0, "A"));
    EXPECT_FALSE(page.macEdit->isEnabled());
    EXPECT_TRUE(page.macBtn->isHidden());
}

TEST_F(OnuBasicTest, BindingTakesTwoWritesAndStaysPending) {
    read(freeSlot());
    test::click(*page.configBtn);
    EXPECT_EQ(written(), Texts{"onuBindMac@1.2.5=#001A2B3C4D5E"});
    finishWrite();
    read(changed(freeSlot(), 19, "FFFFFFFFFFFF"));
    EXPECT_EQ(maskedText(*page.macEdit), "00:1A:2B:3C:4D:5E") << "kept while a bind is pending";
    test::click(*page.configBtn);
    EXPECT_EQ(written(), Texts{"MacRowStatus@1.2.5=4"});
    finishWrite();
    read(changed(freeSlot(), 20, "1"));
    test::click(*page.configBtn);
    EXPECT_EQ(written(), Texts{"MacRowStatus@1.2.5=4"});
}

TEST_F(OnuBasicTest, AfterAFailedFirstReadConfigSendsMacAndName) {
    ASSERT_TRUE(host.replyRead(kItem, {.errorText = "time-out", .errorStatus = -5}));
    setControlText(*page.macEdit, "00:1A:2b:3c:4d:5e");
    test::type(*page.nameEdit, "cellar");
    test::click(*page.configBtn);
    EXPECT_EQ(written(), (Texts{"onuBindMac@1.2.5=#001A2B3C4D5E", "onuName@1.2.5=cellar"}));
}

TEST_F(OnuBasicTest, RefusedActivationIsToldOnceAndTakenBack) {
    read(changed(freeSlot(), 20, "3"));
    EXPECT_TRUE(desk.takeBoxes().empty()) << "nothing is pending";
    test::click(*page.configBtn);
    written();
    finishWrite();
    desk.whileOpen = [&] {
        EXPECT_EQ(maskedText(*page.macEdit), kNoMac);
        read(changed(freeSlot(), 20, "3")); // another answer meanwhile
    };
    read(changed(freeSlot(), 20, "3"));
    desk.whileOpen = {};
    const auto box = desk.takeBox();
    EXPECT_EQ(box.text, messageText(3026));
    EXPECT_EQ(box.caption, messageText(11054));
    EXPECT_EQ(box.icon, PromptIcon::warning);
    test::click(*page.configBtn);
    EXPECT_EQ(written(), Texts{"onuBindMac@1.2.5=#001A2B3C4D5E"}) << "the next Config starts over";
}

TEST_F(OnuBasicTest, BadMacsAreRefusedInPlace) {
    struct Case {
        const char* typed;
        int textId;
    };
    const Case cases[] = {{"001g2b3c4d5e", 3028}, {"", 3029}, {"000000000000", 3029}};
    page.show();
    for (const Case& expected : cases) {
        read(changed(freeSlot(), 19, ""));
        page.macEdit->home(false);
        test::type(*page.macEdit, QString::fromLatin1(expected.typed));
        page.helpBtn->setFocus();
        test::click(*page.configBtn);
        const auto box = desk.takeBox();
        EXPECT_EQ(box.text, messageText(expected.textId)) << expected.typed;
        EXPECT_EQ(box.caption, messageText(113));
        EXPECT_EQ(box.icon, PromptIcon::none);
        EXPECT_EQ(page.focusWidget(), page.macEdit);
        EXPECT_EQ(host.pending(), 0U);
        EXPECT_TRUE(page.configBtn->isEnabled());
    }
}

TEST_F(OnuBasicTest, TypedBlanksCountAsZeros) {
    read(changed(freeSlot(), 19, ""));
    page.macEdit->home(false);
    test::type(*page.macEdit, "a");
    test::click(*page.configBtn);
    EXPECT_EQ(written(), Texts{"onuBindMac@1.2.5=#A00000000000"});
}

TEST_F(OnuBasicTest, LockedMacWritesTheNameOnly) {
    read(registered());
    page.nameEdit->selectAll();
    test::type(*page.nameEdit, "attic");
    test::click(*page.configBtn);
    EXPECT_EQ(written(), Texts{"onuName@1.2.5=attic"});
    EXPECT_FALSE(page.macBtn->isEnabled());
    EXPECT_TRUE(page.nameBtn->isEnabled()) << "a write leaves the name's button alone";
    finishWrite();
    EXPECT_FALSE(page.nameBtn->isEnabled()) << "a refresh does not";
}

TEST_F(OnuBasicTest, NamesAreLimitedTo32TypedBytes) {
    test::type(*page.nameEdit, QString(40, QLatin1Char('n')));
    EXPECT_EQ(page.nameEdit->text().size(), 32);
}

TEST_F(OnuBasicTest, DeletingTheNameWritesAnEmptyOne) {
    read(registered());
    test::click(*page.nameBtn);
    EXPECT_EQ(written(), Texts{"onuName@1.2.5="});
    EXPECT_FALSE(page.configBtn->isEnabled());
    EXPECT_TRUE(page.Timer1->isActive());
}

TEST_F(OnuBasicTest, DeletingTheMacDestroysItsRowUnlessThereIsNone) {
    read(changed(freeSlot(), 19, "000000000000"));
    test::click(*page.macBtn);
    const auto box = desk.takeBox();
    EXPECT_EQ(box.text, messageText(3030));
    EXPECT_EQ(box.caption, messageText(113));
    EXPECT_EQ(box.icon, PromptIcon::none);
    EXPECT_EQ(host.pending(), 0U);
    EXPECT_TRUE(page.macEdit->isEnabled());
    read(freeSlot());
    test::click(*page.macBtn);
    EXPECT_EQ(written(), Texts{"MacRowStatus@1.2.5=6"});
    EXPECT_FALSE(page.macEdit->isEnabled());
}

TEST_F(OnuBasicTest, HelpOpensItsTopic) {
    loadHelpIndexOnce(messageText(6201));
    test::click(*page.helpBtn);
    ASSERT_EQ(desk.help.size(), 1U);
    EXPECT_EQ(desk.help[0].topic, "onuBasic.htm");
}

TEST_F(OnuBasicTest, ControlsAreNamedOnceAndTabInReadingOrder) {
    std::set<QString> names;
    for (const QWidget* control : page.findChildren<QWidget*>()) {
        const QString name = control->objectName();
        if (!name.isEmpty() && !name.startsWith(QStringLiteral("qt_"))) {
            EXPECT_TRUE(names.insert(name).second) << bytesOf(name);
        }
    }
    page.resize(635, 520);
    page.show();
    std::vector<const QWidget*> order;
    for (const QWidget* next = page.llidEdt; order.empty() || next != page.llidEdt;
         next = next->nextInFocusChain()) {
        if ((next->focusPolicy() & Qt::TabFocus) != 0 && next->isVisibleTo(&page)) {
            order.push_back(next);
        }
    }
    ASSERT_EQ(order.size(), 5U + 2U + 12U + 3U); // identity, its buttons, capabilities, bottom
    // Reading order: rows from above, in a row from the left.
    const auto comesBefore = [&](const QWidget* first, const QWidget* second) {
        const QPoint from = first->mapTo(&page, first->rect().center());
        const QPoint to = second->mapTo(&page, second->rect().center());
        const bool sameRow = std::abs(from.y() - to.y()) < first->height() / 2;
        return sameRow ? from.x() < to.x() : from.y() < to.y();
    };
    for (std::size_t at = 1; at < order.size(); ++at) {
        EXPECT_TRUE(comesBefore(order[at - 1], order[at]))
            << bytesOf(order[at - 1]->objectName()) << " before "
            << bytesOf(order[at]->objectName());
    }
}

} // namespace
} // namespace onudesk
