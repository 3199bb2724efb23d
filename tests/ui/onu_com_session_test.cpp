// SPDX-License-Identifier: MIT
#include "pages/port/onu_com_session.h"

#include "page_test.h"

namespace onudesk {
namespace {

using test::Texts;

class ComSessionTest : public test::PageTest<TOnuComSession, 763> {
protected:
    // The row of a port: without session when the type is "0".
    void readPort(const std::string& id, const std::string& type, std::uint32_t status = 1) {
        readRow(id, {id, type, "5000", "10.0.0.9", "5", "2", "3", "1", "1", "12", "34"},
                "maintable", status);
    }
    template <typename Control>
    static Control& in(TOnuComSessionItem& dialog, const char* name) {
        return *dialog.findChild<Control*>(QString::fromLatin1(name));
    }
    void openDialog(const std::function<void(TOnuComSessionItem&)>& work) {
        inDialog<TOnuComSessionItem>(work);
    }
};

TEST_F(ComSessionTest, ListsPortsAndFollowsTheFlagWithAllButtons) {
    readPort("4", "1");
    EXPECT_EQ(page().mainTable->cells(0), (Texts{"4", "tcpclient", "10.0.0.9", "5000", "9600",
                                                 "odd", "8 (3)", "1.5 (1)", "12", "34"}));
    readRow("5", {"5", "7", "", "", "11", "9", "4", "3", "", "", ""}, "maintable", 0);
    EXPECT_EQ(page().mainTable->cells(1), (Texts{"5", "", "", "", "", "", "", "", "", ""}));
    for (const char* button : {"cfgBtn", "deleteBtn", "refreshBtn"}) {
        EXPECT_FALSE(enabled(button)) << button;
    }
    readRow("6", Texts(10, "0"), "maintable");
    readRow("6", Texts(11, "0"), "group");
    EXPECT_EQ(page().mainTable->rowCount(), 2);
    for (const char* button : {"cfgBtn", "deleteBtn", "refreshBtn"}) {
        EXPECT_TRUE(enabled(button)) << button;
    }
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
        auto& ports = in<QComboBox>(dialog, "comidComb");
        ASSERT_EQ(ports.count(), 2);
        EXPECT_EQ(bytesOf(ports.itemText(0) + QLatin1Char(' ') + ports.itemText(1)), "3 10");
        EXPECT_EQ(ports.currentIndex(), 0);
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
            EXPECT_EQ(stateOf(in<QComboBox>(dialog, known.control)).text, known.text);
            EXPECT_EQ(in<QComboBox>(dialog, known.control).count(), known.count);
        }
        EXPECT_EQ(bytesOf(in<QComboBox>(dialog, "rateComb").itemText(1)), "600");
        EXPECT_FALSE(dialog.ipEdit->isEnabled());
        EXPECT_EQ(stateOf(in<QLineEdit>(dialog, "portEdit")).text, "");
    });
}

TEST_F(ComSessionTest, OkChecksAddressThenPortAndWritesInOrder) {
    readPort("2", "0");
    openDialog([this](TOnuComSessionItem& dialog) {
        auto& type = *dialog.typeComb;
        auto& port = in<QLineEdit>(dialog, "portEdit");
        const auto choose = [&](const char* text) {
            selectByText(type, text);
            Q_EMIT type.activated(type.currentIndex());
        };
        struct Case {
            const char* type;
            const char* address;
            const char* port;
            int refusal;
            QLineEdit* focus;
        };
        for (const Case& bad : {Case{"udp", "", "1", 11069, dialog.ipEdit},
                                Case{"udp", "1.2.3", "0", 11069, dialog.ipEdit},
                                Case{"tcpclient", "1.2.3.4", "0", 11068, &port},
                                Case{"tcpserver", "1.2.3", "65536", 11068, &port},
                                Case{"tcpserver", "", "", 11068, &port}}) {
            choose(bad.type);
            setControlText(*dialog.ipEdit, bad.address);
            setControlText(port, bad.port);
            test::click(*dialog.okBtn);
            EXPECT_EQ(desk.takeBox().text, fillPlaces(messageText(bad.refusal), {"1", "65535"}));
            EXPECT_EQ(dialog.focusWidget(), bad.focus) << bad.type << bad.port;
        }
        choose("udp");
        setControlText(*dialog.ipEdit, "10.0.0.1");
        setControlText(port, "65535");
        selectByText(in<QComboBox>(dialog, "rateComb"), "9600");
        selectByText(in<QComboBox>(dialog, "parityComb"), "space");
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
        setControlText(in<QLineEdit>(dialog, "portEdit"), "1");
        test::click(*dialog.okBtn);
    });
    const Texts server = takeWrite();
    ASSERT_EQ(server.size(), 8U);
    EXPECT_EQ(server[2], "ComSessionPort@1.2.5.2=1") << "a server has no destination";
}

TEST_F(ComSessionTest, DeleteNeedsARowAndAsksNothing) {
    readPort("4", "1");
    readPort("7", "2");
    expectRefused("deleteBtn", "mainTable", {11204});
    page().mainTable->selectRow(1);
    test::click(*page().deleteBtn);
    EXPECT_EQ(takeWrite(), (Texts{"ComID@1.2.5.7=7", "ComSessionRowStatus@1.2.5.7=6"}));
    EXPECT_FALSE(enabled("cfgBtn") || enabled("refreshBtn"));
    expectWrittenAndRead();
    readPort("4", "1");
    readPort("7", "0");
    EXPECT_EQ(page().mainTable->selectedRow(), 1);
}

} // namespace
} // namespace onudesk
