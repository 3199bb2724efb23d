// SPDX-License-Identifier: MIT
//
// What tests of single pages share.
#pragma once

#include "env/language_module.h"
#include "pages/framework/controls.h"
#include "pages/framework/row_table.h"
#include "ui_test.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

namespace onudesk::test {

using Texts = std::vector<std::string>;

// A box as a page test states it; without text id none is expected.
struct Box {
    int textId = 0;
    std::vector<std::string> arguments{};
    int captionId = 11054;
    platform::PromptIcon icon = platform::PromptIcon::warning;
    std::string after{};
    platform::PromptButtons buttons = platform::PromptButtons::ok;
};

// What a field refuses and how, and a value that it takes.
struct Check {
    const char* control;
    Texts bad;
    Box refusal;
    const char* good;
};

// What the dialog of a row shows ("-" before what cannot be edited), is given, and writes.
struct RowEdit {
    std::string title;
    std::vector<std::pair<std::string, std::string>> states;
    std::vector<std::pair<std::string, std::string>> entered;
    Texts written;
};

// One page, shown, whose first read is answered by the test.
template <typename Page, std::int32_t Item>
class PageTest : public UiTest {
protected:
    PageTest() { session.context.currentItemType = Item; }

    // Made on first use, so that a test can change the session before.
    Page& page() {
        if (!page_) {
            page_ = std::make_unique<Page>(session, Item, nullptr);
            page_->resize(620, 540);
            page_->show();
            registerReadRoute(session, Item, page_->replyHandle());
        }
        return *page_;
    }

    template <typename Control>
    Control& control(const std::string& name) {
        return UiTest::in<Control>(page(), name);
    }
    std::string text(const std::string& name) { return textIn(page(), name); }
    void setText(const std::string& name, const std::string& value) {
        setTextIn(page(), name, value);
    }
    bool enabled(const std::string& name) { return control<QWidget>(name).isEnabled(); }
    bool focused(const char* name) { return page().focusWidget() == &control<QWidget>(name); }
    std::string label(const char* name) { return bytesOf(control<QLabel>(name).text()); }
    std::string usable() { return usableIn(page()); }
    void expectRows(const std::vector<Texts>& expected) {
        std::vector<Texts> rows;
        for (int row = 0; row < page().mainTable->rowCount(); ++row) {
            rows.push_back(page().mainTable->cells(row));
        }
        EXPECT_EQ(rows, expected);
    }

    // A reply to a read of the item.
    void read(Texts values, const std::string& group, std::uint32_t status = 1) {
        page();
        ASSERT_TRUE(host.replyRead(
            Item, {.values = std::move(values), .status = status, .resultText = group}));
    }
    // The same for a row of a table.
    void readRow(const std::string& index, Texts values, const std::string& group,
                 std::uint32_t status = 1) {
        page();
        ASSERT_TRUE(host.replyRead(Item, {.values = std::move(values),
                                          .oids = Texts{"1.3.6.1.1." + index},
                                          .status = status,
                                          .resultText = group}));
    }
    void failRead() {
        page();
        ASSERT_TRUE(host.replyRead(Item, {.errorText = "time-out", .errorStatus = -5}));
    }

    // Reads again; returns the instance suffix of the read.
    std::string refresh() {
        page().refreshBtnClick();
        return takeRead();
    }
    // Chooses a port of a list that is read by ports.
    void choosePort(const std::string& port, const std::string& suffix = ".1.2.5.") {
        choose(*page().portComb, port);
        EXPECT_EQ(takeRead(), suffix + port);
    }

    // Presses a button; what it would refuse shows the box and leaves the focus on the control.
    void expectRefused(const char* button, const char* control, const Box& box) {
        expectRefused(&control_(button), control, box);
    }
    void expectRefused(QWidget* button, const char* control, const Box& box) {
        control_(control).clearFocus();
        click(*button);
        expectBox(box);
        EXPECT_TRUE(focused(control)) << control << " " << text(control);
        EXPECT_EQ(host.pending(), 0U) << control << " " << text(control);
    }
    // Wrong texts in all these fields at first, then mended one after the other, so that the order
    // of the checks is seen.
    void expectChecks(const std::vector<Check>& checks) {
        expectChecksIn(page(), checks, [this](const Check& check) {
            expectRefused(page().configBtn, check.control, check.refusal);
        });
    }
    template <typename Dialog>
    void expectChecks(Dialog& dialog, const std::vector<Check>& checks) {
        expectChecksIn(dialog, checks, [&](const Check& check) {
            expectNotOk(dialog, check.control, check.refusal);
        });
    }
    void expectBox(const Box& box) {
        const auto boxes = desk.takeBoxes();
        ASSERT_EQ(boxes.size(), box.textId == 0 ? 0U : 1U);
        if (box.textId != 0) {
            EXPECT_EQ(boxes[0].text,
                      fillPlaces(messageText(box.textId), box.arguments) + box.after);
            EXPECT_EQ(boxes[0].caption, messageText(box.captionId));
            EXPECT_EQ(boxes[0].icon, box.icon);
            EXPECT_EQ(boxes[0].buttons, box.buttons);
        }
    }
    // Says no to the question of a button, and yes to what is asked from now on.
    void expectDeclined(const char* button, int textId, const std::string& caption) {
        desk.answer = platform::PromptAnswer::no;
        click(control_(button));
        const platform::Prompt question = desk.takeBox();
        EXPECT_EQ(question.text, messageText(textId));
        EXPECT_EQ(question.caption, caption);
        EXPECT_EQ(question.buttons, platform::PromptButtons::yesNo);
        EXPECT_EQ(host.pending(), 0U);
        desk.answer = platform::PromptAnswer::yes;
    }
    // Presses Config, which writes this.
    void expectConfigWrites(const Texts& bindings) {
        click(*page().configBtn);
        EXPECT_EQ(takeWrite(), bindings);
    }
    // Presses Config and does the work while the dialog that it opens is there; what is left open
    // is cancelled.
    template <typename Dialog>
    void inDialog(const std::function<void(Dialog&)>& work) {
        bool opened = false;
        QTimer::singleShot(0, &page(), [&] {
            auto* dialog = page().template findChild<Dialog*>();
            ASSERT_NE(dialog, nullptr);
            opened = true;
            work(*dialog);
            if (dialog->isVisible()) {
                dialog->reject();
            }
        });
        click(*page().configBtn);
        EXPECT_TRUE(opened);
    }
    // The same on a row.
    template <typename Dialog>
    void inDialog(
        int row, const std::function<void(Dialog&)>& work = [](Dialog&) {}) {
        page().mainTable->selectRow(row);
        inDialog<Dialog>(work);
    }
    // Edits a row, which is selected again when the page reads its rows anew.
    template <typename Dialog>
    void expectRowEdited(int row, const RowEdit& edit, const std::function<void()>& readRows) {
        inDialog<Dialog>(row, [&](Dialog& dialog) {
            EXPECT_EQ(bytesOf(dialog.TitlePanel->TitleLabel->text()), edit.title);
            for (const auto& [name, state] : edit.states) {
                EXPECT_EQ(stateIn(dialog, name), state) << name;
            }
            for (const auto& [name, value] : edit.entered) {
                setTextIn(dialog, name, value);
            }
            click(*dialog.okBtn);
        });
        EXPECT_EQ(takeWrite(), edit.written);
        EXPECT_EQ(takeRead(), ".1.2.5") << "closing the dialog reads again";
        expectWrittenAndRead();
        readRows();
        EXPECT_EQ(page().mainTable->selectedRow(), row);
    }
    // Presses OK; what it would refuse shows the box and leaves the focus on the control.
    template <typename Dialog>
    void expectNotOk(Dialog& dialog, const std::string& control, const Box& box) {
        dialog.okBtn->setFocus();
        click(*dialog.okBtn);
        expectBox(box);
        EXPECT_EQ(dialog.focusWidget(), &UiTest::in(dialog, control)) << textIn(dialog, control);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(host.pending(), 0U) << control << " " << textIn(dialog, control);
    }
    // The notice of a write that went well, after the read that comes before it.
    void expectWrittenAndRead(const std::string& suffix = ".1.2.5") {
        ASSERT_TRUE(host.replyWrite(Item, {.status = 1}));
        EXPECT_EQ(takeRead(), suffix);
        EXPECT_EQ(desk.takeBox().text, messageText(11045) + messageText(11002));
    }

private:
    QWidget& control_(const char* name) { return control<QWidget>(name); }

    static void expectChecksIn(QWidget& window, const std::vector<Check>& checks,
                               const std::function<void(const Check&)>& expectRefusal) {
        for (const Check& check : checks) {
            setTextIn(window, check.control, check.bad.front());
        }
        for (const Check& check : checks) {
            for (const std::string& bad : check.bad) {
                setTextIn(window, check.control, bad);
                expectRefusal(check);
            }
            setTextIn(window, check.control, check.good);
        }
    }

    std::unique_ptr<Page> page_;
};

} // namespace onudesk::test
