// SPDX-License-Identifier: MIT
//
// Tables, rows and item dialogs, on a list page made for it.
#include "env/language_module.h"
#include "pages/framework/list_page.h"
#include "ui_test.h"

#include <QTimer>

namespace onudesk {
namespace {

using test::Answer;

using Texts = std::vector<std::string>;

constexpr std::int32_t kItem = 606;

std::string doubled(const std::string& value) {
    return value + value;
}

class SampleList : public ListPage {
public:
    SampleList(Session& pageSession, const ValueMap& modes, bool keyed)
        : ListPage(pageSession, kItem, {},
                   {{.titleId = 20013},
                    {.titleId = 20014, .position = 0, .show = doubled, .isKey = keyed},
                    {.titleId = 20015, .position = 1, .map = &modes},
                    {.titleId = 20016, .position = 2, .hidden = true}},
                   nullptr) {
        start();
    }
    void mainTableClick() override { clicks.push_back(mainTable->selectedRow()); }
    void mainTableDblClick() override { doubleClicks.push_back(mainTable->selectedRow()); }
    std::vector<int> clicks;
    std::vector<int> doubleClicks;
};

class SampleItem : public ItemDialog {
public:
    explicit SampleItem(ListPage& page) : ItemDialog(page, 11006) {}
};

class ListPageTest : public test::UiTest {
protected:
    ListPageTest() {
        modes_.addPair("slow", "1");
        modes_.complete();
    }

    std::unique_ptr<SampleList> makeList(bool keyed = false) {
        auto page = std::make_unique<SampleList>(session, modes_, keyed);
        page->resize(500, 400);
        page->show();
        registerReadRoute(session, kItem, page->replyHandle());
        return page;
    }

    void row(const std::string& index, Texts values) {
        ASSERT_TRUE(
            host.replyRead(kItem, {.values = std::move(values),
                                   .oids = Texts{"1.3.6.1.1." + index, "1.3.6.1.2." + index},
                                   .status = 1}));
    }

    ValueMap modes_;
};

TEST_F(ListPageTest, EveryReplyIsARowOfConvertedCells) {
    const auto page = makeList();
    row("7", {"a", "1", "secret"});
    row("8", {"b", "9"});
    const RowTable& table = *page->mainTable;
    ASSERT_EQ(table.rowCount(), 2);
    EXPECT_EQ(table.cell(0, 0), "7");
    EXPECT_EQ(table.cell(0, 1), "aa");
    EXPECT_EQ(table.cell(0, 2), "slow");
    EXPECT_EQ(table.cell(0, 3), "secret");
    EXPECT_TRUE(table.isColumnHidden(3));
    EXPECT_EQ(table.cell(1, 2), "") << "unknown codes show nothing";
    EXPECT_EQ(table.cell(1, 3), "");
    EXPECT_EQ(table.rowIndex(1), "8");
    EXPECT_EQ(table.cell(5, 0), "");
}

TEST_F(ListPageTest, AKnownKeyReplacesItsRow) {
    const auto byIndex = makeList();
    row("7", {"a", "1"});
    row("8", {"b", "1"});
    row("7", {"c", "1"}); // a late answer to an earlier refresh
    ASSERT_EQ(byIndex->mainTable->rowCount(), 2);
    EXPECT_EQ(byIndex->mainTable->cell(0, 1), "cc");
    const auto byCell = makeList(true);
    row("7", {"a", "1"});
    row("8", {"a", "2"});
    ASSERT_EQ(byCell->mainTable->rowCount(), 1);
    EXPECT_EQ(byCell->mainTable->rowIndex(0), "8");
}

TEST_F(ListPageTest, RefreshEmptiesAndTheRememberedRowIsSelectedAgain) {
    const auto page = makeList();
    row("7", {"a", "1"});
    row("8", {"b", "1"});
    page->mainTable->rememberRow(1);
    page->refreshBtnClick();
    EXPECT_EQ(page->mainTable->rowCount(), 0);
    host.take();
    row("7", {"a", "1"});
    EXPECT_EQ(page->mainTable->selectedRow(), -1);
    row("8", {"b", "1"});
    EXPECT_EQ(page->mainTable->selectedRow(), 1);
}

TEST_F(ListPageTest, ClicksBesideTheRowsSelectNothing) {
    const auto page = makeList();
    row("7", {"a", "1"});
    RowTable& table = *page->mainTable;
    QWidget& view = *table.viewport();
    const QPoint onRow = table.visualRect(table.model()->index(0, 0)).center();
    const QPoint beside(10, view.height() - 5);
    test::clickAt(view, onRow);
    EXPECT_EQ(page->clicks, std::vector<int>{0});
    test::clickAt(view, beside);
    EXPECT_EQ(page->clicks, (std::vector<int>{0, -1}));
    test::doubleClickAt(view, onRow);
    test::doubleClickAt(view, beside);
    EXPECT_EQ(page->doubleClicks, (std::vector<int>{0, -1}));
}

TEST_F(ListPageTest, ActionsThatNeedARowSaySo) {
    const auto page = makeList();
    row("7", {"a", "1"});
    EXPECT_EQ(page->requireRow(), -1);
    EXPECT_EQ(desk.takeBox().text, messageText(11204));
    page->mainTable->selectRow(0);
    EXPECT_EQ(page->requireRow(), 0);
}

TEST_F(ListPageTest, DialogsAreClosedByCancelOrPanelAndMakeThePageReadAgain) {
    const auto page = makeList();
    for (const bool byPanel : {false, true}) {
        row("7", {"a", "1"});
        SampleItem dialog(*page);
        EXPECT_EQ(bytesOf(dialog.TitlePanel->TitleLabel->text()), messageText(11006));
        EXPECT_EQ(dialog.TitlePanel->ClosePanel->palette().color(QPalette::Window),
                  QColor(131, 180, 228));
        QTimer::singleShot(0, &dialog, [&] {
            EXPECT_TRUE(dialog.isModal());
            EXPECT_EQ(page->mainTable->rowCount(), 1);
            test::click(byPanel ? *static_cast<QWidget*>(dialog.TitlePanel->ClosePanel)
                                : *dialog.cancelBtn);
        });
        EXPECT_EQ(dialog.exec(), QDialog::Rejected);
        EXPECT_EQ(page->mainTable->rowCount(), 0);
        EXPECT_EQ(host.pending(), 1U) << "one read for one closing";
        host.take();
    }
}

class QuietItem : public SampleItem {
public:
    using SampleItem::SampleItem;

protected:
    void FormClose() override {} // closing does not read again
};

TEST_F(ListPageTest, CancelEmptiesTheTableItselfAndOkDoesNot) {
    const auto page = makeList();
    row("7", {"a", "1"});
    QuietItem accepted(*page);
    QTimer::singleShot(0, &accepted, [&] { test::click(*accepted.okBtn); });
    EXPECT_EQ(accepted.exec(), QDialog::Accepted);
    EXPECT_EQ(page->mainTable->rowCount(), 1);
    QuietItem cancelled(*page);
    QTimer::singleShot(0, &cancelled, [&] { test::click(*cancelled.cancelBtn); });
    EXPECT_EQ(cancelled.exec(), QDialog::Rejected);
    EXPECT_EQ(page->mainTable->rowCount(), 0);
    EXPECT_EQ(host.pending(), 0U);
}

TEST_F(ListPageTest, OkReadsOnce) {
    const auto page = makeList();
    SampleItem dialog(*page);
    QTimer::singleShot(0, &dialog, [&] { test::click(*dialog.okBtn); });
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
    EXPECT_EQ(host.pending(), 1U);
    host.take();
}

TEST_F(ListPageTest, RawKeysAndCellsStayWhole) {
    const auto page = makeList();
    const std::string raw("\x00\x1A", 2);
    row("7", {"a", "1", raw});
    EXPECT_EQ(page->mainTable->cell(0, 3), raw);
    ASSERT_TRUE(host.replyRead(kItem, {.values = Texts{"b"}, .status = 1}));
    ASSERT_TRUE(host.replyRead(kItem, {.values = Texts{"c"}, .status = 1}));
    EXPECT_EQ(page->mainTable->rowCount(), 3) << "replies without row index have no key";
}

} // namespace
} // namespace onudesk
