// SPDX-License-Identifier: MIT
#include "pages/port/onu_port_status.h"
#include "pages/port/onu_port_status_p.h"

#include "page_test.h"

#include <QCoreApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QRadioButton>
#include <QToolTip>

namespace onudesk {
namespace {

using test::Texts;

class PortStatusTest : public test::PageTest<TOnuPortStatus, 617> {
protected:
    void readPort(const std::string& port, const std::string& advertised) {
        readRow(port, {"1", "0", "1", "2", advertised}, "maintable");
    }
    void moveMouseTo(int x, int y) {
        const QPointF at(x, y);
        QMouseEvent move(QEvent::MouseMove, at, page().mainTable->viewport()->mapToGlobal(at),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(page().mainTable->viewport(), &move);
    }
};

TEST_F(PortStatusTest, ListsTextsAndAdvertisedCapabilities) {
    struct Case {
        const char* value;
        const char* cell;
    };
    for (const Case& known :
         {Case{"0000000E0000008E00000019", "10BASE-T;Full duplex 10BASE-T;100BASE-TX;"},
          Case{"0000ABCD", "0000ABCD;"}, Case{"00000000", ""}, Case{"", ""}, Case{"0000000", ""},
          Case{"0000000000000000", "00000000;00000000;"}, Case{"00001F5D0000", "802.9 ISLAN-16T;"},
          Case{"0000000e", "0000000e;"}}) {
        readPort("3", known.value);
        EXPECT_EQ(page().mainTable->cells(0),
                  (Texts{"3", messageText(11012), messageText(11008), messageText(11008),
                         messageText(11007), known.cell}));
    }
    readRow("4", {"0", "1", "2", "1"}, "maintable");
    read({"0", "1", "2", "1", ""}, "maintable"); // without OID
    EXPECT_EQ(page().mainTable->rowCount(), 1);
    readRow("4", {"0", "1", "2", "3", ""}, "maintable", 0);
    EXPECT_EQ(page().mainTable->cells(1),
              (Texts{"4", messageText(11013), messageText(11007), messageText(11007), "", ""}));
    EXPECT_TRUE(enabled("cfgBtn")) << "whatever the flag says";
}

TEST_F(PortStatusTest, TheHintFollowsTheMouse) {
    readPort("1", "0000000E0000ABCD");
    readPort("2", "00000000");
    RowTable& table = *page().mainTable;
    const int rowHeight = table.rowHeight(0);
    moveMouseTo(20, rowHeight / 2);
    EXPECT_EQ(bytesOf(table.toolTip()), messageText(11316) + "\n10BASE-T\n0000ABCD\n");
    QHelpEvent asks(QEvent::ToolTip, {20, rowHeight / 2},
                    table.viewport()->mapToGlobal(QPoint(20, rowHeight / 2)));
    QCoreApplication::sendEvent(table.viewport(), &asks);
    EXPECT_EQ(QToolTip::text(), table.toolTip());
    QToolTip::hideText();
    moveMouseTo(20, rowHeight + rowHeight / 2);
    EXPECT_EQ(bytesOf(table.toolTip()), messageText(11316) + "\n");
    moveMouseTo(20, 4 * rowHeight);
    EXPECT_EQ(table.toolTip(), QString());
}

TEST_F(PortStatusTest, OkWritesTheChosenSettingOnly) {
    readPort("3", "");
    expectRefused("cfgBtn", "mainTable", {11204});
    struct Case {
        const char* radio; // null: as it opens
        const char* written;
    };
    for (const Case& known :
         {Case{nullptr, "lanFlowControl@1.2.5.3=0"}, Case{"shutdownRabtn", "lanShutDown@1.2.5.3=2"},
          Case{"autonegRabtn", "lanautoNeg@1.2.5.3=2"}}) {
        readPort("3", "");
        page().mainTable->selectRow(0);
        inDialog<TOnuPortStatusItem>([&](TOnuPortStatusItem& dialog) {
            EXPECT_EQ(stateOf(*dialog.findChild<QLineEdit*>(QStringLiteral("IndexEdit"))).text,
                      "3");
            EXPECT_TRUE(
                dialog.findChild<QRadioButton*>(QStringLiteral("flowconRabtn"))->isChecked());
            selectByText(*dialog.findChild<QComboBox*>(QStringLiteral("shutdownComb")),
                         messageText(11007));
            if (known.radio != nullptr) {
                dialog.findChild<QRadioButton*>(QString::fromLatin1(known.radio))->setChecked(true);
            }
            test::click(*dialog.okBtn);
        });
        EXPECT_EQ(takeWrite(), Texts{known.written});
        takeRead();
        expectWrittenAndRead();
    }
    readPort("2", "");
    readPort("3", "");
    EXPECT_EQ(page().mainTable->selectedRow(), 0) << "the place that Config remembered";
}

class SinglePortTest : public test::PageTest<TOnuPortStatusP, 617> {
protected:
    SinglePortTest() {
        session.context.subIndex = 3;
        session.SubIndex = 3;
    }
    Texts settings() {
        return {text("IndexEdit"), text("stateComb"), text("flowconComb"), text("shutdownComb"),
                text("autonegComb")};
    }
};

TEST_F(SinglePortTest, ShowsItsPortWhateverTheGroupIsCalled) {
    read({"1", "1", "2", "1", "0000000E000000FC"}, "anything");
    const Texts shownThen = {"3", messageText(11012), messageText(11007), messageText(11007),
                             messageText(11008)};
    EXPECT_EQ(settings(), shownThen);
    EXPECT_EQ(text("noticeMemo"), "10BASE-T\nFull duplex 100BASE-TX");
    read({"7", "7", "0", "", ""}, "maintable"); // unknown codes
    EXPECT_EQ(settings(), shownThen);
    read({"0", "0", "1", "2"}, "maintable", 0); // too short
    EXPECT_EQ(settings(), shownThen);
    EXPECT_FALSE(enabled("configBtn"));
    read({"1", "1", "2", "1", ""}, "maintable");
    EXPECT_TRUE(enabled("configBtn"));
}

TEST_F(SinglePortTest, NoticesAddUpUntilRefresh) {
    struct Case {
        const char* value;
        const char* notices;
    };
    for (const Case& known :
         {Case{"000000000000000E", "\n10BASE-T"}, Case{"0000ABCD", "\n10BASE-T\n0000ABCD"},
          Case{"00000000", "\n10BASE-T\n0000ABCD\n"},
          Case{"000000190000", "\n10BASE-T\n0000ABCD\n\n100BASE-TX"}}) {
        read({"1", "1", "2", "1", known.value}, "maintable");
        EXPECT_EQ(text("noticeMemo"), known.notices);
    }
    page().refreshBtnClick();
    EXPECT_EQ(takeRead(), ".1.2.5.3");
    EXPECT_EQ(text("noticeMemo"), "");
    failRead();
    EXPECT_FALSE(enabled("configBtn")) << "a failed read gives nothing back";
    read({"1", "1", "2", "1", "0000000E"}, "maintable");
    EXPECT_EQ(text("noticeMemo"), "10BASE-T");
}

TEST_F(SinglePortTest, ConfigWritesTheChosenSettingAndLeavesTheButtons) {
    read({"1", "1", "1", "1", ""}, "maintable");
    page().Timer1->stop();
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), Texts{"lanFlowControl@1.2.5.3=1"}) << "chosen at first";
    selectByText(control<QComboBox>("shutdownComb"), messageText(11007));
    struct Case {
        const char* radio;
        const char* written;
    };
    for (const Case& known : {Case{"flowconRabtn", "lanFlowControl@1.2.5.3=1"},
                              Case{"shutdownRabtn", "lanShutDown@1.2.5.3=2"},
                              Case{"autonegRabtn", "lanautoNeg@1.2.5.3=1"}}) {
        control<QRadioButton>(known.radio).setChecked(true);
        test::click(*page().configBtn);
        EXPECT_EQ(takeWrite(), Texts{known.written});
        EXPECT_TRUE(enabled("configBtn"));
        EXPECT_FALSE(page().Timer1->isActive());
    }
    expectWrittenAndRead(".1.2.5.3");
}

} // namespace
} // namespace onudesk
