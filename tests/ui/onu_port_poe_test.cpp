// SPDX-License-Identifier: MIT
#include "pages/port/onu_port_poe.h"

#include "page_test.h"

namespace onudesk {
namespace {

using test::Texts;

class PoeTest : public test::PageTest<TOnuPortPoE, 888> {};

TEST_F(PoeTest, ModeComesFirstAndIsShownLast) {
    readRow("1", {"1", "0"}, "maintable");
    readRow("2", {"0", "1", "x"}, "maintable", 0);
    readRow("3", {"0"}, "maintable");
    readRow("4", {"0", "1"}, "group");
    ASSERT_EQ(page().mainTable->rowCount(), 2);
    EXPECT_EQ(page().mainTable->cells(0), (Texts{"1", messageText(11044), messageText(11008)}));
    EXPECT_EQ(page().mainTable->cells(1), (Texts{"2", messageText(11043), messageText(11007)}));
    EXPECT_TRUE(enabled("configBtn"));
}

TEST_F(PoeTest, UnknownCodesAreToldOncePerRefreshAndStopConfig) {
    readRow("1", {"1", "0"}, "maintable");
    readRow("2", {"0", "2"}, "maintable");
    expectBox({3194});
    readRow("3", {"", "0"}, "maintable");
    readRow("4", {"2", "0"}, "maintable");
    readRow("5", {"0", "1"}, "maintable");
    EXPECT_EQ(page().mainTable->rowCount(), 2) << "the others are left out";
    for (const int row : {-1, 0, 1}) {
        page().mainTable->clearSelection();
        page().mainTable->selectRow(row);
        test::click(*page().configBtn);
        expectBox({3194}); // before everything else
    }
    page().refreshBtnClick();
    takeRead();
    readRow("2", {"0", "2"}, "maintable");
    expectBox({3194});
    page().refreshBtnClick();
    takeRead();
    readRow("1", {"1", "0"}, "maintable");
    expectRefused("configBtn", "mainTable", {11204});
}

TEST_F(PoeTest, TheFirstRowIsFixedTheOthersAreWritten) {
    for (const char* port : {"7", "8", "9"}) {
        readRow(port, {"1", "0"}, "maintable");
    }
    page().mainTable->selectRow(0);
    expectRefused("configBtn", "mainTable", {11774});
    page().mainTable->selectRow(2);
    inDialog<TOnuPortPoEItem>([](TOnuPortPoEItem& dialog) {
        EXPECT_EQ(bytesOf(dialog.TitlePanel->TitleLabel->text()), messageText(11006));
        auto* port = dialog.findChild<QLineEdit*>(QStringLiteral("portNoEdt"));
        EXPECT_EQ(stateOf(*port).text, "9");
        EXPECT_TRUE(port->isReadOnly());
        auto* mode = dialog.findChild<QComboBox*>(QStringLiteral("enableComb"));
        EXPECT_EQ(stateOf(*mode).text, messageText(11008));
        selectByText(*mode, messageText(11007));
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(), Texts{"onuportpoemode@1.2.5.9=0"});
    EXPECT_EQ(takeRead(), ".1.2.5");
    expectWrittenAndRead();
}

} // namespace
} // namespace onudesk
