// SPDX-License-Identifier: MIT
#include "pages/framework/controls.h"

#include "env/language_module.h"
#include "pages/framework/form_grid.h"
#include "pages/framework/title_bar.h"
#include "ui_test.h"

#include <QCheckBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextCursor>

namespace onudesk {
namespace {

using platform::PromptIcon;

class ControlsTest : public test::UiTest {};

ValueMap yesNo() {
    return ValueMap({{"yes", "1"}, {"no", "2"}});
}

TEST_F(ControlsTest, CombosCarryCodesAndStartUnselected) {
    QComboBox combo;
    int changes = 0;
    QObject::connect(&combo, &QComboBox::currentIndexChanged, [&] { ++changes; });
    fillCombo(combo, yesNo());
    EXPECT_EQ(combo.count(), 2);
    EXPECT_EQ(combo.itemText(0), QStringLiteral("no"));
    EXPECT_EQ(combo.currentIndex(), -1);
    EXPECT_FALSE(selectedCode(combo));
    selectOrClear(combo, "1");
    EXPECT_EQ(bytesOf(combo.currentText()), "yes");
    EXPECT_EQ(selectedCode(combo), "1");
    selectIfKnown(combo, "9");
    EXPECT_EQ(selectedCode(combo), "1");
    selectOrClear(combo, "9");
    EXPECT_EQ(combo.currentIndex(), -1);
    selectByText(combo, "no");
    EXPECT_EQ(selectedCode(combo), "2");
    selectByText(combo, "NO");
    EXPECT_EQ(combo.currentIndex(), -1);
    selectIfKnown(combo, "2");
    selectByText(combo, "");
    EXPECT_EQ(combo.currentIndex(), -1);
    EXPECT_EQ(changes, 0) << "the program's changes must not look like the operator's";
}

TEST_F(ControlsTest, LoadCaptionKnowsItsRangeOfIds) {
    QLabel label(QStringLiteral("before"));
    loadCaption(label, 606);
    EXPECT_EQ(label.text(), QStringLiteral("Basic Information"));
    loadCaption(label, 11006);
    loadCaption(label, 499);
    loadCaption(label, 4001);
    EXPECT_EQ(label.text(), QStringLiteral("Basic Information"));
    loadCaption(label, 3999); // in range, without a text
    EXPECT_EQ(label.text(), QString());
}

TEST_F(ControlsTest, TypingLimitsCountBytesAndNeverCutTheProgramsText) {
    QLineEdit edit;
    limitTyping(edit, 4);
    test::type(edit, QStringLiteral("中a文b"));
    EXPECT_EQ(edit.text(), QStringLiteral("中a"));
    setControlText(edit, "longer than four");
    EXPECT_EQ(edit.text(), QStringLiteral("longer than four"));
    edit.end(false);
    test::type(edit, QStringLiteral("!"));
    EXPECT_EQ(edit.text(), QStringLiteral("longer than four"));
    test::key(edit, Qt::Key_Backspace);
    EXPECT_EQ(edit.text(), QStringLiteral("longer than fou"));
    edit.selectAll();
    test::type(edit, QStringLiteral("afresh"));
    EXPECT_EQ(edit.text(), QStringLiteral("afre")) << "the old length is no licence";
    setControlText(edit, "\xD6\xD0\xCE\xC4\xB2\xE2"); // no UTF-8: shown longer than it is
    edit.end(false);
    test::type(edit, QStringLiteral("x"));
    EXPECT_EQ(bytesOf(edit.text()).find('x'), std::string::npos);
}

TEST_F(ControlsTest, TypingIntoAMemoIsLimitedWhereItIsTyped) {
    QPlainTextEdit memo;
    limitTyping(memo, 4);
    test::type(memo, QStringLiteral("中a文"));
    EXPECT_EQ(memo.toPlainText(), QStringLiteral("中a"));
    memo.moveCursor(QTextCursor::Start);
    test::type(memo, QStringLiteral("x"));
    EXPECT_EQ(memo.toPlainText(), QStringLiteral("中a")) << "the end stays";
    setControlText(memo, "longer than four");
    EXPECT_EQ(stateOf(memo).text, "longer than four");
    test::type(memo, QStringLiteral("!"));
    EXPECT_EQ(stateOf(memo).text, "longer than four");
    memo.selectAll();
    test::type(memo, QStringLiteral("afresh"));
    EXPECT_EQ(stateOf(memo).text, "afre") << "the old length is no licence";
}

TEST_F(ControlsTest, FieldsOfOneTickHaveLabelsThatDiffer) {
    QWidget panel;
    FormGrid form(panel, 1);
    form.add({{.control = "one", .labelId = 20010, .enabledBy = checkBox("box")},
              {.control = "beside", .labelId = 20010, .enabledBy = checkBox("box")},
              {.control = "two", .labelId = 20011, .enabledBy = checkBox("box")}});
    EXPECT_EQ(panel.findChildren<QCheckBox*>().size(), 1);
    const auto labels = panel.findChildren<QLabel*>();
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels[0]->objectName(), QStringLiteral("twoLabel"));
    EXPECT_EQ(bytesOf(labels[0]->text()), messageText(20011));
    EXPECT_EQ(labels[0]->buddy(), form.find("two"));
}

TEST_F(ControlsTest, DigitsOnlyLimitsTypingNotSetting) {
    QLineEdit edit;
    digitsOnly(edit);
    setControlText(edit, "n/a");
    edit.end(false);
    test::type(edit, QStringLiteral("x1"));
    EXPECT_EQ(edit.text(), QStringLiteral("n/a1"));
}

TEST_F(ControlsTest, StatesReadWhatIsShown) {
    QLineEdit masked;
    masked.setInputMask(QStringLiteral("nn:nn;_"));
    setControlText(masked, "0");
    EXPECT_EQ(stateOf(masked).text, "0 :  ");
    QCheckBox box;
    EXPECT_TRUE(stateOf(box).enabled);
    EXPECT_FALSE(stateOf(box).ticked);
    box.setChecked(true);
    box.setEnabled(false);
    EXPECT_FALSE(stateOf(box).enabled);
    EXPECT_TRUE(stateOf(box).ticked);
}

TEST_F(ControlsTest, UntouchedTextGoesBackByteForByte) {
    QLineEdit edit;
    setControlText(edit, "ab\xFF"); // no valid UTF-8
    EXPECT_EQ(stateOf(edit).text, "ab\xFF");
    QPlainTextEdit memo;
    setControlText(memo, "two\r\nlines\xC2\xA0");
    EXPECT_EQ(stateOf(memo).text, "two\r\nlines\xC2\xA0");
    edit.end(false);
    test::type(edit, QStringLiteral("c"));
    EXPECT_EQ(stateOf(edit).text, "ab\xEF\xBF\xBD"
                                  "c");
}

TEST_F(ControlsTest, RefusalsTellAndMoveTheFocus) {
    QWidget window;
    QLineEdit first(&window);
    QLineEdit second(&window);
    window.show();
    window.activateWindow();
    first.setFocus();
    refuse({message::outOfRange, {"1", "9"}}, &second, 5);
    const auto box = desk.takeBox();
    EXPECT_NE(box.text.find("1"), std::string::npos);
    EXPECT_NE(box.text.find("9"), std::string::npos);
    EXPECT_EQ(box.owner, 5U);
    EXPECT_EQ(window.focusWidget(), &second);
    refuse({.textId = message::subject, .after = "7!"}, nullptr, 5);
    EXPECT_EQ(desk.takeBox().text, messageText(message::subject) + "7!");
    refuse({}, &first, 5); // focus only
    EXPECT_EQ(window.focusWidget(), &first);
    refuseNotANumber("twelve", 5);
    const auto number = desk.takeBox();
    EXPECT_NE(number.text.find("twelve"), std::string::npos);
    EXPECT_EQ(number.icon, PromptIcon::warning);
}

TEST_F(ControlsTest, DeletingAsksFirst) {
    for (const auto answer : {platform::PromptAnswer::no, platform::PromptAnswer::yes}) {
        desk.answer = answer;
        EXPECT_EQ(confirmDelete(3), answer == platform::PromptAnswer::yes);
        EXPECT_EQ(desk.takeBox().buttons, platform::PromptButtons::yesNo);
    }
}

TEST_F(ControlsTest, ANoteStandsBelowTheForm) {
    QWidget area;
    FormGrid form(area, 1);
    const QLineEdit* edit = form.edit("nameEdit", 20013);
    addNote(area, 66407);
    area.show();
    EXPECT_GE(in(area, "noteLabel").y(), edit->geometry().bottom());
}

TEST_F(ControlsTest, TitlesStandAboveTheControlsOfTheirPairs) {
    QWidget area;
    FormGrid form(area, 2);
    form.titles({20013, 20014});
    const QLineEdit* edits[] = {form.edit("highEdit", 20013), form.edit("lowEdit", 20013)};
    area.show();
    int pair = 0;
    for (const QLabel* title : area.findChildren<QLabel*>(QString())) {
        if (!title->objectName().isEmpty()) {
            continue;
        }
        ASSERT_LT(pair, 2);
        EXPECT_EQ(bytesOf(title->text()), messageText(20013 + pair));
        EXPECT_EQ(title->x(), edits[pair]->x());
        EXPECT_LT(title->geometry().bottom(), edits[pair]->y());
        ++pair;
    }
    EXPECT_EQ(pair, 2);
}

TEST_F(ControlsTest, TitleBarColoursItsClosePanelAndCloses) {
    QWidget window;
    TitleBar bar(&window, QColor(131, 197, 228));
    int closed = 0;
    bar.onClose = [&] { ++closed; };
    const auto colour = [&] { return bar.ClosePanel->palette().color(QPalette::Window); };
    EXPECT_EQ(colour(), QColor(131, 197, 228));
    test::hover(*bar.ClosePanel);
    EXPECT_EQ(colour(), QColor(255, 0, 0));
    test::hover(bar);
    EXPECT_EQ(colour(), QColor(131, 197, 228));
    test::click(bar);
    EXPECT_EQ(closed, 0);
    test::click(*bar.ClosePanel);
    EXPECT_EQ(closed, 1);
}

} // namespace
} // namespace onudesk
