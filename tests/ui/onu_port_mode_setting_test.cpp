// SPDX-License-Identifier: MIT
#include "pages/vlan/onu_port_mode_setting.h"

#include "page_test.h"

#include <QTimer>

namespace onudesk {
namespace {

using test::Texts;

class PortModeTest : public test::PageTest<TOnuPortModeSetting, 677> {
protected:
    void readPorts() {
        const Texts modes = {"1", "2", "3", "9"};
        for (std::size_t at = 0; at < modes.size(); ++at) {
            readRow(std::to_string(at + 1), {modes[at]}, "maintable", at + 1 == modes.size());
        }
    }
};

TEST_F(PortModeTest, ListsPortsWithTheirModes) {
    readRow("1", {"1"}, "rowstat");
    readRow("1", {}, "maintable");
    EXPECT_EQ(page().mainTable->rowCount(), 0);
    readPorts();
    EXPECT_EQ(page().mainTable->cells(0), (Texts{"1", "untagged"}));
    EXPECT_EQ(page().mainTable->cells(2), (Texts{"3", "unmodify"}));
    EXPECT_EQ(page().mainTable->cells(3), (Texts{"4", ""}));
    EXPECT_TRUE(enabled("configBtn"));
    EXPECT_TRUE(enabled("refreshBtn")) << "given back by the flag";
    readRow("5", {"1"}, "maintable", 0);
    EXPECT_FALSE(enabled("configBtn"));
    EXPECT_FALSE(enabled("refreshBtn"));
    failRead();
    EXPECT_TRUE(enabled("configBtn"));
}

TEST_F(PortModeTest, OkWritesThePortsModeAndItsRowIsSelectedAgain) {
    readPorts();
    expectRefused("configBtn", "mainTable", {11204});
    page().mainTable->selectRow(2);
    inDialog<TOnuPortModeItem>([this](TOnuPortModeItem& dialog) {
        EXPECT_EQ(bytesOf(dialog.TitlePanel->TitleLabel->text()), messageText(11006));
        EXPECT_EQ(stateOf(*dialog.findChild<QLineEdit*>(QStringLiteral("portNoEdt"))).text, "3");
        auto* mode = dialog.findChild<QComboBox*>(QStringLiteral("ifModeComb"));
        EXPECT_EQ(mode->currentText(), QStringLiteral("unmodify"));
        selectByText(*mode, "tagged");
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(), Texts{"lanTagMode@1.2.5.3=2"});
    EXPECT_EQ(takeRead(), ".1.2.5") << "closing the dialog reads again";
    expectWrittenAndRead();
    readPorts();
    EXPECT_EQ(page().mainTable->selectedRow(), 2);
}

TEST_F(PortModeTest, ARowOfUnknownModeOpensWithoutSelection) {
    readPorts();
    page().mainTable->selectRow(3);
    inDialog<TOnuPortModeItem>([](TOnuPortModeItem& dialog) {
        EXPECT_EQ(dialog.findChild<QComboBox*>()->currentIndex(), -1);
        test::click(*dialog.cancelBtn);
    });
    EXPECT_EQ(page().mainTable->rowCount(), 0);
    takeRead();
    EXPECT_EQ(host.pending(), 0U);
}

} // namespace
} // namespace onudesk
