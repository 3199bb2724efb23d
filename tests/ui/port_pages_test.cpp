// SPDX-License-Identifier: MIT
//
// Ports and links: capabilities, status, power over Ethernet, serial sessions, error correction,
// encryption and loopback.
#include "pages/port/onu_capability2.h"
#include "pages/port/onu_com_session.h"
#include "pages/port/onu_encription.h"
#include "pages/port/onu_fec.h"
#include "pages/port/onu_loopback.h"
#include "pages/port/onu_port_poe.h"
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

using platform::PromptIcon;
using test::Texts;

class CapabilityTest : public test::PageTest<TOnuCapability2, 886> {
protected:
    // What the boxes and edits say, in the order of the reply.
    Texts shownTexts() {
        return {boxText("typeComb"), text("llidEdit"), boxText("protypeComb"), text("ponEdit"),
                text("slotEdit"),    text("typeEdit"), text("batteryEdit")};
    }

private:
    std::string boxText(const char* name) {
        auto& combo = control<QComboBox>(name);
        return bytesOf(combo.currentIndex() < 0 ? combo.placeholderText() : combo.currentText());
    }
};

TEST_F(CapabilityTest, ShowsTheCapabilitiesInWords) {
    const std::string yes = messageText(11043);
    const std::string no = messageText(11044);
    const std::pair<Texts, Texts> cases[] = {
        {{"1", "1", "2", "1", "0", "3", "1"},
         {"HGU", messageText(3191), messageText(3187), "1", "0", "3", yes}},
        {{"9", "2", "", "7", "8", "", "5"}, {"other", "2", "other", "7", "8", "", yes}},
        {{"8", "0", "3", "1", "0", "3", "0", "x"},
         {"MTU", messageText(3190), "other", "1", "0", "3", no}},
        {{"4", "0", "0", "1", "0", "3", "0"},
         {messageText(3181), messageText(3190), messageText(3185), "1", "0", "3", no}},
    };
    for (const auto& [values, expected] : cases) {
        read(values, "maintable");
        EXPECT_EQ(shownTexts(), expected);
    }
    const Texts before = shownTexts();
    read(Texts(6, "1"), "maintable");
    read(Texts(7, "1"), "unknown");
    failRead();
    EXPECT_EQ(shownTexts(), before);
    for (const char* name : {"typeComb", "llidEdit", "protypeComb", "ponEdit", "batteryEdit"}) {
        EXPECT_FALSE(enabled(name)) << name;
    }
}

TEST_F(CapabilityTest, ListsInterfacesFromRepliesOfTheirGroup) {
    readRow("4", {"6", "2"}, "group");
    readRow("5", {"9", "1"}, "group", 0);
    readRow("6", {"1"}, "group");
    readRow("7", {"1", "1"}, "maintable");
    read({"1", "1"}, "group"); // without OID
    expectRows({{"4", "WLAN", "2"}, {"5", "", "1"}});
    page().mainTable->onDoubleClick();
    EXPECT_EQ(host.pending(), 0U) << "there is nothing to open";
}

TEST_F(CapabilityTest, RefreshEmptiesEverythingAndWaitsForTheTimer) {
    EXPECT_EQ(usable(), "refreshBtn");
    EXPECT_FALSE(page().Timer1->isActive());
    read({"1", "1", "9", "1", "0", "3", "1"}, "maintable");
    readRow("1", {"1", "4"}, "group");
    test::click(*page().refreshBtn);
    EXPECT_EQ(takeRead(), ".1.2.5");
    EXPECT_EQ(shownTexts(), Texts(7));
    expectRows({});
    EXPECT_EQ(control<QComboBox>("typeComb").count(), 9);
    read({"8", "0", "1", "1", "0", "3", "0"}, "maintable");
    EXPECT_EQ(usable(), "");
    test::elapse(page());
    EXPECT_EQ(usable(), "refreshBtn");
    EXPECT_EQ(shownTexts().front(), "MTU");
}

class PortStatusTest : public test::PageTest<TOnuPortStatus, 617> {
protected:
    void readPort(const std::string& port, const std::string& advertised) {
        readRow(port, {"1", "0", "1", "2", advertised}, "maintable");
    }
    // The hint with the mouse at this height.
    std::string hintAt(int y) {
        QWidget& view = *page().mainTable->viewport();
        const QPointF at(20, y);
        QMouseEvent move(QEvent::MouseMove, at, view.mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(&view, &move);
        return bytesOf(page().mainTable->toolTip());
    }
    const std::string on_ = messageText(11007);
    const std::string off_ = messageText(11008);
};

TEST_F(PortStatusTest, ListsTextsAndAdvertisedCapabilities) {
    const std::pair<const char*, const char*> cases[] = {
        {"0000000E0000008E00000019", "10BASE-T;Full duplex 10BASE-T;100BASE-TX;"},
        {"0000ABCD", "0000ABCD;"},
        {"00000000", ""},
        {"", ""},
        {"0000000", ""},
        {"0000000000000000", "00000000;00000000;"},
        {"00001F5D0000", "802.9 ISLAN-16T;"},
        {"0000000e", "0000000e;"}};
    for (const auto& [value, cell] : cases) {
        readPort("3", value);
        expectRows({{"3", messageText(11012), off_, off_, on_, cell}});
    }
    readRow("4", {"0", "1", "2", "1"}, "maintable");
    read({"0", "1", "2", "1", ""}, "maintable"); // without OID
    EXPECT_EQ(page().mainTable->rowCount(), 1);
    readRow("4", {"0", "1", "2", "3", ""}, "maintable", 0);
    EXPECT_EQ(page().mainTable->cells(1), (Texts{"4", messageText(11013), on_, on_, "", ""}));
    EXPECT_TRUE(enabled("cfgBtn")) << "whatever the flag says";
}

TEST_F(PortStatusTest, TheHintFollowsTheMouse) {
    readPort("1", "0000000E0000ABCD");
    readPort("2", "00000000");
    RowTable& table = *page().mainTable;
    const int height = table.rowHeight(0);
    EXPECT_EQ(hintAt(height / 2), messageText(11316) + "\n10BASE-T\n0000ABCD\n");
    const QPoint onRow(20, height / 2);
    QHelpEvent asks(QEvent::ToolTip, onRow, table.viewport()->mapToGlobal(onRow));
    QCoreApplication::sendEvent(table.viewport(), &asks);
    EXPECT_EQ(QToolTip::text(), table.toolTip());
    QToolTip::hideText();
    EXPECT_EQ(hintAt(height + height / 2), messageText(11316) + "\n");
    EXPECT_EQ(hintAt(4 * height), "");
}

TEST_F(PortStatusTest, OkWritesTheChosenSettingOnly) {
    readPort("3", "");
    expectRefused("cfgBtn", "mainTable", {11204});
    const std::pair<std::string, const char*> cases[] = {
        {"", "lanFlowControl@1.2.5.3=0"}, // as it opens
        {"shutdownRabtn", "lanShutDown@1.2.5.3=2"},
        {"autonegRabtn", "lanautoNeg@1.2.5.3=2"}};
    for (const auto& [radio, written] : cases) {
        readPort("3", "");
        inDialog<TOnuPortStatusItem>(0, [&](TOnuPortStatusItem& dialog) {
            EXPECT_EQ(textIn(dialog, "IndexEdit"), "3");
            EXPECT_TRUE(in<QRadioButton>(dialog, "flowconRabtn").isChecked());
            setTextIn(dialog, "shutdownComb", on_);
            if (!radio.empty()) {
                in<QRadioButton>(dialog, radio).setChecked(true);
            }
            test::click(*dialog.okBtn);
        });
        EXPECT_EQ(takeWrite(), Texts{written});
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
    const std::pair<const char*, const char*> cases[] = {
        {"000000000000000E", "\n10BASE-T"},
        {"0000ABCD", "\n10BASE-T\n0000ABCD"},
        {"00000000", "\n10BASE-T\n0000ABCD\n"},
        {"000000190000", "\n10BASE-T\n0000ABCD\n\n100BASE-TX"}};
    for (const auto& [value, notices] : cases) {
        read({"1", "1", "2", "1", value}, "maintable");
        EXPECT_EQ(text("noticeMemo"), notices);
    }
    EXPECT_EQ(refresh(), ".1.2.5.3");
    EXPECT_EQ(text("noticeMemo"), "");
    failRead();
    EXPECT_FALSE(enabled("configBtn")) << "a failed read gives nothing back";
    read({"1", "1", "2", "1", "0000000E"}, "maintable");
    EXPECT_EQ(text("noticeMemo"), "10BASE-T");
}

TEST_F(SinglePortTest, ConfigWritesTheChosenSettingAndLeavesTheButtons) {
    read({"1", "1", "1", "1", ""}, "maintable");
    page().Timer1->stop();
    expectConfigWrites({"lanFlowControl@1.2.5.3=1"}); // chosen at first
    setText("shutdownComb", messageText(11007));
    const std::pair<const char*, const char*> cases[] = {
        {"flowconRabtn", "lanFlowControl@1.2.5.3=1"},
        {"shutdownRabtn", "lanShutDown@1.2.5.3=2"},
        {"autonegRabtn", "lanautoNeg@1.2.5.3=1"}};
    for (const auto& [radio, written] : cases) {
        control<QRadioButton>(radio).setChecked(true);
        expectConfigWrites({written});
        EXPECT_TRUE(enabled("configBtn"));
        EXPECT_FALSE(page().Timer1->isActive());
    }
    expectWrittenAndRead(".1.2.5.3");
}

class PoeTest : public test::PageTest<TOnuPortPoE, 888> {};

TEST_F(PoeTest, ModeComesFirstAndIsShownLast) {
    readRow("1", {"1", "0"}, "maintable");
    readRow("2", {"0", "1", "x"}, "maintable", 0);
    readRow("3", {"0"}, "maintable");
    readRow("4", {"0", "1"}, "group");
    expectRows({{"1", messageText(11044), messageText(11008)},
                {"2", messageText(11043), messageText(11007)}});
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
    refresh();
    readRow("2", {"0", "2"}, "maintable");
    expectBox({3194});
    refresh();
    readRow("1", {"1", "0"}, "maintable");
    expectRefused("configBtn", "mainTable", {11204});
}

TEST_F(PoeTest, TheFirstRowIsFixedTheOthersAreWritten) {
    const auto readPorts = [this] {
        for (const char* port : {"7", "8", "9"}) {
            readRow(port, {"1", "0"}, "maintable");
        }
    };
    readPorts();
    page().mainTable->selectRow(0);
    expectRefused("configBtn", "mainTable", {11774});
    expectRowEdited<TOnuPortPoEItem>(2,
                                     {messageText(11006),
                                      {{"portNoEdt", "-9"}, {"enableComb", messageText(11008)}},
                                      {{"enableComb", messageText(11007)}},
                                      {"onuportpoemode@1.2.5.9=0"}},
                                     readPorts);
}

class ComSessionTest : public test::PageTest<TOnuComSession, 763> {
protected:
    // The row of a port: without session when the type is "0".
    void readPort(const std::string& id, const std::string& type, std::uint32_t status = 1) {
        readRow(id, {id, type, "5000", "10.0.0.9", "5", "2", "3", "1", "1", "12", "34"},
                "maintable", status);
    }
    void openDialog(const std::function<void(TOnuComSessionItem&)>& work) {
        inDialog<TOnuComSessionItem>(work);
    }
};

TEST_F(ComSessionTest, ListsPortsAndFollowsTheFlagWithAllButtons) {
    readPort("4", "1");
    readRow("5", {"5", "7", "", "", "11", "9", "4", "3", "", "", ""}, "maintable", 0);
    EXPECT_EQ(usable(), "");
    readRow("6", Texts(10, "0"), "maintable");
    readRow("6", Texts(11, "0"), "group");
    expectRows(
        {{"4", "tcpclient", "10.0.0.9", "5000", "9600", "odd", "8 (3)", "1.5 (1)", "12", "34"},
         {"5", "", "", "", "", "", "", "", "", ""}});
    EXPECT_EQ(usable(), "cfgBtn deleteBtn refreshBtn");
    EXPECT_TRUE(page().freeComIds().empty());
}

TEST_F(ComSessionTest, ConfigOffersTheFreePortsOfTheLastReadOnly) {
    readPort("3", "1");
    test::click(*page().configBtn);
    EXPECT_EQ(host.pending(), 0U) << "every port has a session: nothing opens";
    EXPECT_EQ(page().findChild<TOnuComSessionItem*>(), nullptr);
    readPort("10", "0");
    readPort("3", "0");
    readPort("1", "00");
    openDialog([](TOnuComSessionItem& dialog) {
        EXPECT_EQ(entriesOf(in<QComboBox>(dialog, "comidComb")), (Texts{"3", "10"}));
        EXPECT_EQ(textIn(dialog, "comidComb"), "3");
        test::click(*dialog.cancelBtn);
    });
    takeRead();
    test::click(*page().configBtn);
    EXPECT_EQ(page().findChild<TOnuComSessionItem*>(), nullptr) << "the read forgot them";
}

TEST_F(ComSessionTest, TheDialogOpensOnAServer) {
    readPort("1", "0");
    openDialog([](TOnuComSessionItem& dialog) {
        struct Case {
            const char* control;
            const char* text;
            int count;
        };
        for (const Case& known : {Case{"typeComb", "tcpserver", 3}, Case{"rateComb", "115200", 11},
                                  Case{"parityComb", "none", 5}, Case{"dataComb", "8 (3)", 4},
                                  Case{"stopComb", "1 (0)", 3}}) {
            EXPECT_EQ(textIn(dialog, known.control), known.text);
            EXPECT_EQ(in<QComboBox>(dialog, known.control).count(), known.count);
        }
        EXPECT_EQ(entriesOf(in<QComboBox>(dialog, "rateComb"))[1], "600");
        EXPECT_EQ(stateIn(dialog, "ipEdit"), "-");
        EXPECT_EQ(textIn(dialog, "portEdit"), "");
    });
}

TEST_F(ComSessionTest, OkChecksAddressThenPortAndWritesInOrder) {
    readPort("2", "0");
    openDialog([this](TOnuComSessionItem& dialog) {
        struct Case {
            const char* type;
            const char* address;
            const char* port;
            test::Box refusal;
            const char* focus;
        };
        const test::Box noAddress{11069};
        const test::Box range{11068, {"1", "65535"}};
        for (const Case& bad : {Case{"udp", "", "1", noAddress, "ipEdit"},
                                Case{"udp", "1.2.3", "0", noAddress, "ipEdit"},
                                Case{"tcpclient", "1.2.3.4", "0", range, "portEdit"},
                                Case{"tcpserver", "1.2.3", "65536", range, "portEdit"},
                                Case{"tcpserver", "", "", range, "portEdit"}}) {
            choose(*dialog.typeComb, bad.type);
            setControlText(*dialog.ipEdit, bad.address);
            setTextIn(dialog, "portEdit", bad.port);
            expectNotOk(dialog, bad.focus, bad.refusal);
        }
        choose(*dialog.typeComb, "udp");
        setControlText(*dialog.ipEdit, "10.0.0.1");
        setTextIn(dialog, "portEdit", "65535");
        setTextIn(dialog, "rateComb", "9600");
        setTextIn(dialog, "parityComb", "space");
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(
        takeWrite(),
        (Texts{"ComID@1.2.5.2=2", "ComSessionType@1.2.5.2=3", "ComSessionDestIP@1.2.5.2=10.0.0.1",
               "ComSessionPort@1.2.5.2=65535", "ComSessionBaudrate@1.2.5.2=5",
               "ComSessionParitytype@1.2.5.2=4", "ComSessionDatabits@1.2.5.2=3",
               "ComSessionStopbits@1.2.5.2=0", "ComSessionRowStatus@1.2.5.2=4"}));
    takeRead();
    expectWrittenAndRead();
    readPort("2", "0");
    openDialog([](TOnuComSessionItem& dialog) {
        setControlText(*dialog.ipEdit, "not checked");
        setTextIn(dialog, "portEdit", "1");
        test::click(*dialog.okBtn);
    });
    const Texts server = takeWrite();
    ASSERT_EQ(server.size(), 8U);
    EXPECT_EQ(server[2], "ComSessionPort@1.2.5.2=1") << "a server has no destination";
}

TEST_F(ComSessionTest, DeleteNeedsARowAndAsksNothing) {
    const auto readPorts = [this] {
        readPort("4", "1");
        readPort("7", "2");
    };
    readPorts();
    expectRefused("deleteBtn", "mainTable", {11204});
    page().mainTable->selectRow(1);
    test::click(*page().deleteBtn);
    EXPECT_EQ(takeWrite(), (Texts{"ComID@1.2.5.7=7", "ComSessionRowStatus@1.2.5.7=6"}));
    EXPECT_FALSE(enabled("cfgBtn") || enabled("refreshBtn"));
    expectWrittenAndRead();
    readPorts();
    EXPECT_EQ(page().mainTable->selectedRow(), 1);
}

class FecTest : public test::PageTest<TOnuFEC, 616> {};

TEST_F(FecTest, ShowsSupportAndModeOfItsOwnTableAndWritesTheMode) {
    const std::string on = messageText(11007);
    struct Case {
        Texts values;
        std::string support;
        std::string mode;
    };
    for (const Case& known :
         {Case{{"2", "3"}, messageText(11043), messageText(11008)},
          Case{{"1", "2", "9"}, messageText(11239), on}, Case{{"3", "1"}, messageText(11044), ""},
          Case{{"4", "2"}, "", on}, Case{{"2"}, "", on}}) {
        read(known.values, "maintable");
        EXPECT_EQ(text("supportComb"), known.support);
        EXPECT_EQ(text("modeComb"), known.mode);
    }
    read({"2", "3"}, "other", 0);
    EXPECT_EQ(stateIn(page(), "supportComb"), "-");
    EXPECT_FALSE(enabled("configBtn")) << "the flag of any reply counts";
    read({"2", "3"}, "maintable");
    setText("modeComb", on);
    expectConfigWrites({"onuFecMode@1.2.5=2"});
    EXPECT_EQ(usable(), "");
    expectWrittenAndRead();
}

class EncryptionTest : public test::PageTest<TOnuEncription, 649> {};

TEST_F(EncryptionTest, StatesRefuseOnAndNeverOff) {
    struct Case {
        const char* state;
        int chosen;
        int notice; // 0: it is written
    };
    for (const Case& known :
         {Case{"1", 11007, 3110}, Case{"2", 11007, 3111}, Case{"1", 11008, 0}, Case{"2", 11008, 0},
          Case{"0", 11007, 0}, Case{"3", 11007, 0}, Case{"x", 11007, 0}}) {
        read({"0", known.state}, "maintable");
        setText("enableComb", messageText(known.chosen));
        test::click(*page().configBtn);
        expectBox({known.notice, {}, 11054, PromptIcon::information});
        if (known.notice != 0) {
            EXPECT_EQ(host.pending(), 0U);
            EXPECT_TRUE(enabled("configBtn"));
            continue;
        }
        EXPECT_EQ(takeWrite(), Texts{known.chosen == 11007 ? "onuEncrypEnable@1.2.5=1"
                                                           : "onuEncrypEnable@1.2.5=0"});
        expectWrittenAndRead();
    }
}

TEST_F(EncryptionTest, TheStateOfTheLastWholeReplyCounts) {
    read({"1", "1"}, "maintable");
    EXPECT_EQ(text("enableComb"), messageText(11007));
    read({"0"}, "maintable");
    read({"0", "0"}, "state");
    EXPECT_EQ(text("enableComb"), messageText(11007));
    test::click(*page().configBtn);
    expectBox({3110, {}, 11054, PromptIcon::information});
    read({"1", "0"}, "maintable", 0);
    EXPECT_EQ(usable(), "");
    failRead();
    EXPECT_EQ(usable(), "configBtn");
}

class LoopbackTest : public test::PageTest<TOnuLoopback, 772> {};

TEST_F(LoopbackTest, KeepsTheChoiceAndWritesNothingWithoutOne) {
    EXPECT_EQ(usable(), "");
    read({"1"}, "maintable");
    EXPECT_EQ(text("enableComb"), messageText(11007));
    read({"2"}, "maintable");
    read({}, "maintable");
    read({"0"}, "group1");
    EXPECT_EQ(usable(), "configBtn");
    failRead();
    EXPECT_EQ(usable(), "");
    EXPECT_EQ(text("enableComb"), messageText(11007));
    read({"1"}, "maintable");
    expectConfigWrites({"onuloopbackoam@1.2.5=1"});
    expectWrittenAndRead();
    control<QComboBox>("enableComb").setCurrentIndex(-1);
    read({"5"}, "maintable");
    expectConfigWrites({"onuloopbackoam@1.2.5="});
}

} // namespace
} // namespace onudesk
