// SPDX-License-Identifier: MIT
//
// Tables, rows and item dialogs, on a list page made for it.
#include "env/language_module.h"
#include "pages/framework/item_dialog.h"
#include "pages/framework/port_list_page.h"
#include "ui_test.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QEvent>
#include <QGroupBox>
#include <QHeaderView>
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
    SampleList(Session& pageSession, const ValueMap& modeMap)
        : ListPage(pageSession, kItem, {}, nullptr), modes(modeMap) {
        mainTable->setColumns({{.titleId = 20013},
                               {.titleId = 3030, .position = 0, .show = doubled},
                               {.titleId = 20015, .position = 1, .codes = modes},
                               {.titleId = 20016, .position = 2, .hidden = true},
                               {.titleId = 20017, .show = doubled}});
        start();
    }
    void mainTableClick() override { clicks.push_back(mainTable->selectedRow()); }
    const ValueMap& modes;
    std::vector<int> clicks;
    std::vector<int> opened;
    Texts arrived; // "row:first value"

protected:
    bool mayOpen() override {
        opened.push_back(mainTable->selectedRow());
        return false;
    }
    void rowArrived(int row, const ReadResult& result) override {
        arrived.push_back(std::to_string(row) + ":" + valueAt(result, 0));
    }
};

class SampleItem : public ItemDialog {
public:
    SampleItem(SampleList& page, int row)
        : ItemDialog(page,
                     {.fields = {{.control = "modeComb",
                                  .labelId = 20015,
                                  .kind = ControlKind::combo,
                                  .position = 2,
                                  .codes = page.modes}}},
                     row) {}
};

class ListPageTest : public test::UiTest {
protected:
    std::unique_ptr<SampleList> makeList() {
        auto page = std::make_unique<SampleList>(session, modes_);
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

    const ValueMap modes_{{{"slow", "1"}}};
};

TEST_F(ListPageTest, ColumnsAreAsWideAsTheirTitlesAndGrowWithTheirTexts) {
    const auto page = makeList();
    const RowTable& table = *page->mainTable;
    const QHeaderView& header = *table.horizontalHeader();
    ASSERT_GT(header.sectionSizeHint(1), header.defaultSectionSize());
    EXPECT_EQ(table.columnWidth(1), header.sectionSizeHint(1));
    EXPECT_EQ(table.columnWidth(0), header.defaultSectionSize());
    row(std::string(20, '7'), {"a", "1"});
    const int grown = table.columnWidth(0);
    EXPECT_GT(grown, header.defaultSectionSize());
    row("7", {"a", "1"});
    EXPECT_EQ(table.columnWidth(0), grown);
    row(std::string(1000, '8'), {"a", "1"});
    EXPECT_LT(table.columnWidth(0), page->width());
}

TEST_F(ListPageTest, AKnownKeyReplacesItsRowUntilTheTableIsEmptied) {
    const auto page = makeList();
    const RowTable& table = *page->mainTable;
    for (const char* index : {"7", "8", "9", "7"}) { // a late answer to an earlier refresh
        row(index, {"c", "1"});
    }
    EXPECT_EQ(table.rowCount(), 3);
    page->refreshBtnClick();
    host.take();
    for (const char* index : {"9", "8", "8"}) {
        row(index, {index, "1"});
    }
    ASSERT_EQ(table.rowCount(), 2);
    EXPECT_EQ(table.cells(0), (Texts{"9", "99", "slow", "", "99"}));
    EXPECT_EQ(table.rowIndex(1), "8");
    EXPECT_EQ(table.cell(5, 0), "");
    for (const int count : {3, 4}) {
        ASSERT_TRUE(host.replyRead(kItem, {.values = Texts{"b"}, .status = 1}));
        EXPECT_EQ(table.rowCount(), count) << "replies without row index have no key";
    }
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
    page->mainTable->selectRow(0);
    row("8", {"c", "1"});
    EXPECT_EQ(page->mainTable->selectedRow(), 1);
}

// Whether a widget is painted, and whether it would be.
class PaintCount : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
    int count = 0;
};

TEST_F(ListPageTest, AFloodOfRowsBelowTheVisibleOnesIsPaintedOnce) {
    const auto page = makeList();
    RowTable& table = *page->mainTable;
    PaintCount paints;
    table.viewport()->installEventFilter(&paints);
    row("1", {"a", "1"});
    QCoreApplication::processEvents();
    EXPECT_GT(paints.count, 0);
    for (int index = 2; index <= 100; ++index) {
        row(std::to_string(index), {"a", "1"});
    }
    paints.count = 0;
    row("101", {"a", "1"});
    QCoreApplication::processEvents();
    EXPECT_EQ(paints.count, 0);
    ASSERT_TRUE(QMetaObject::invokeMethod(table.findChild<QTimer*>(QStringLiteral("PaintTimer")),
                                          "timeout"));
    QCoreApplication::processEvents();
    EXPECT_EQ(paints.count, 1);
    row("102", {"a", "1"});
    page->refreshBtnClick();
    QCoreApplication::processEvents();
    EXPECT_EQ(paints.count, 2) << "an emptied table is shown at once";
    host.take();
}

TEST_F(ListPageTest, ClicksBesideTheRowsSelectNothing) {
    const auto page = makeList();
    row("7", {"a", "1"});
    const RowTable& table = *page->mainTable;
    test::clickRow(table, 0);
    test::clickRow(table, -1);
    EXPECT_EQ(page->clicks, (std::vector<int>{0, -1}));
    test::doubleClickRow(table, 0);
    EXPECT_EQ(page->opened, std::vector<int>{0});
    test::doubleClickRow(table, -1);
    EXPECT_EQ(page->opened, std::vector<int>{0});
    EXPECT_EQ(desk.takeBox().text, messageText(11204));
    page->configBtn->setEnabled(false);
    test::doubleClickRow(table, 0);
    EXPECT_EQ(page->opened, std::vector<int>{0}) << "nothing opens while Config is disabled";
}

TEST_F(ListPageTest, DialogsChooseByCodeEvenWhereTextsAreMissing) {
    const ValueMap nameless({{"", "1"}, {"", "2"}});
    SampleList page(session, nameless);
    registerReadRoute(session, kItem, page.replyHandle());
    for (const auto& [code, chosen] : {std::pair("2", 1), std::pair("9", -1)}) {
        row("7", {"a", code});
        EXPECT_EQ(in<QComboBox>(SampleItem(page, 0), "modeComb").currentIndex(), chosen) << code;
    }
}

TEST_F(ListPageTest, RowsWithoutTheValueTheyNeedDoNotArrive) {
    const auto page = makeList();
    page->mainTable->setColumns({{.titleId = 20013, .required = true}});
    row("7", {"a"});
    ASSERT_TRUE(host.replyRead(kItem, {.values = Texts{"b"}, .status = 1}));
    row("8", {"c"});
    row("7", {"d"});
    EXPECT_EQ(page->arrived, (Texts{"0:a", "1:c", "0:d"}));
}

TEST_F(ListPageTest, DialogsAreClosedByCancelOrPanelAndMakeThePageReadAgain) {
    const auto page = makeList();
    for (const bool byPanel : {false, true}) {
        row("7", {"a", "1"});
        SampleItem dialog(*page, -1);
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

// One with fields in a box below its own.
class BoxItem : public SampleItem {
public:
    explicit BoxItem(SampleList& page) : SampleItem(page, 0) {
        addFields(*new QGroupBox(WorkPanel), {{.control = "boxEdit", .labelId = 20014}}, 1);
    }
};

TEST_F(ListPageTest, ButtonsComeBehindTheFieldsOfBoxesInTheOrderOfTabs) {
    const auto page = makeList();
    const BoxItem dialog(*page);
    EXPECT_EQ(in(dialog, "boxEdit").nextInFocusChain(), dialog.okBtn);
}

class SamplePorts : public PortListPage {
public:
    explicit SamplePorts(Session& pageSession)
        : PortListPage(pageSession, kItem, {}, {.countPosition = 1}, nullptr) {
        mainTable->setColumns({{.titleId = 20013}, {.titleId = 20014, .position = 0}});
        start();
    }
};

class PortListPageTest : public ListPageTest {
protected:
    std::unique_ptr<SamplePorts> makePorts() {
        auto page = std::make_unique<SamplePorts>(session);
        registerReadRoute(session, kItem, page->replyHandle());
        return page;
    }
    static Texts ports(const SamplePorts& page) { return entriesOf(*page.portComb); }
};

TEST_F(PortListPageTest, TheFirstCountFillsThePortsAndReadsNothing) {
    const auto page = makePorts();
    for (const char* none : {"0", "", "-1", "many"}) {
        row("7", {"a", none});
        EXPECT_EQ(ports(*page), Texts()) << none;
        EXPECT_EQ(page->port(), "");
    }
    row("7", {"a", "2"});
    EXPECT_EQ(ports(*page), (Texts{"1", "2"}));
    EXPECT_EQ(page->port(), "1");
    row("8", {"a", "5"});
    EXPECT_EQ(ports(*page).size(), 2U) << "only an empty box is filled";
    EXPECT_EQ(host.pending(), 0U);
    const auto plain = makePorts();
    row("7", {"a", "4294967295"});
    EXPECT_EQ(ports(*plain).size(), 255U);
    EXPECT_EQ(ports(*plain).back(), "255");
}

TEST_F(PortListPageTest, ThePortsComeBeforeTheTableInTheOrderOfTabs) {
    const auto page = makePorts();
    EXPECT_EQ(page->portComb->nextInFocusChain(), page->mainTable);
}

} // namespace
} // namespace onudesk
