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
#include <stdexcept>
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
    Control& control(const char* name) {
        auto* found = page().template findChild<Control*>(QString::fromLatin1(name));
        if (found == nullptr) {
            throw std::invalid_argument(name); // ends the test
        }
        return *found;
    }
    std::string text(const char* name) { return stateOf(control<QWidget>(name)).text; }
    void setText(const char* name, const std::string& value) {
        setControlText(control<QWidget>(name), value);
    }
    bool enabled(const char* name) { return control<QWidget>(name).isEnabled(); }
    bool focused(const char* name) { return page().focusWidget() == &control<QWidget>(name); }
    std::string label(const char* name) { return bytesOf(control<QLabel>(name).text()); }

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

    // Presses a button; what it would refuse shows the box and leaves the focus on the control.
    void expectRefused(const char* button, const char* control, const Box& box) {
        control_(control).clearFocus();
        click(control_(button));
        expectBox(box);
        EXPECT_TRUE(focused(control)) << control << " " << text(control);
        EXPECT_EQ(host.pending(), 0U) << control << " " << text(control);
    }
    void expectBox(const Box& box) {
        const auto boxes = desk.takeBoxes();
        ASSERT_EQ(boxes.size(), box.textId == 0 ? 0U : 1U);
        if (box.textId != 0) {
            EXPECT_EQ(boxes[0].text,
                      fillPlaces(messageText(box.textId), box.arguments) + box.after);
            EXPECT_EQ(boxes[0].caption, messageText(box.captionId));
            EXPECT_EQ(boxes[0].icon, box.icon);
        }
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
    // The notice of a write that went well, after the read that comes before it.
    void expectWrittenAndRead(const std::string& suffix = ".1.2.5") {
        ASSERT_TRUE(host.replyWrite(Item, {.status = 1}));
        EXPECT_EQ(takeRead(), suffix);
        EXPECT_EQ(desk.takeBox().text, messageText(11045) + messageText(11002));
    }

private:
    QWidget& control_(const char* name) { return control<QWidget>(name); }

    std::unique_ptr<Page> page_;
};

} // namespace onudesk::test
