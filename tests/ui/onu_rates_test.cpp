// SPDX-License-Identifier: MIT
//
// Rates of ports and of kinds of traffic.
#include "pages/qos/onu_langress.h"
#include "pages/qos/onu_rate.h"

#include "page_test.h"

#include <QRadioButton>

namespace onudesk {
namespace {

using test::Texts;

class LangressTest : public test::PageTest<TOnuLangress, 607> {
protected:
    // Port 1 is limited in both directions, port 2 when sending, port 3 in an unknown way.
    void readPorts() {
        readRow("1", {"1", "64", "1523", "1522", "1", "1024000", "65"}, "maingroup", 0);
        readRow("2", {"0", "100", "2000", "0", "1", "200", "300"}, "maingroup", 0);
        readRow("3", {"7", "100", "2000", "0", "0", "200", "300"}, "maingroup", 1);
    }
    void inItem(int row, const std::function<void(TOnuLangressItem&)>& work) {
        page().mainTable->selectRow(row);
        inDialog<TOnuLangressItem>(work);
    }
    static QLineEdit& edit(const TOnuLangressItem& dialog, const char* name) {
        return *dialog.findChild<QLineEdit*>(QString::fromLatin1(name));
    }
    static void choose(QComboBox& combo, int messageId) {
        selectByText(combo, messageText(messageId));
        Q_EMIT combo.activated(combo.currentIndex());
    }
    // Which of the controls that depend on a direction are enabled, ingress before egress.
    static std::string enabledParts(const TOnuLangressItem& dialog) {
        std::string parts;
        for (const char* name : {"enEnableComb", "inCirEdit", "inCbsEdit", "inEbsEdt",
                                 "exEnableComb", "exCirEdit", "exPirEdit"}) {
            parts += dialog.findChild<QWidget*>(QString::fromLatin1(name))->isEnabled() ? '1' : '-';
        }
        return parts;
    }
    const Texts ingress_ = {"lanIngressRowStatus@1.2.5.1=4", "lanIngressEnable@1.2.5.1=1",
                            "lanIngressCir@1.2.5.1=64", "lanIngressCbs@1.2.5.1=1523",
                            "lanIngressEbs@1.2.5.1=1522"};
    const Texts egress_ = {"lanEgressRowStatus@1.2.5.1=4", "lanEgressEnable@1.2.5.1=1",
                           "lanEgressCir@1.2.5.1=1024000", "lanEgressPir@1.2.5.1=65"};
};

TEST_F(LangressTest, ListsRatesOfItsGroup) {
    readPorts();
    readRow("4", {"1", "1", "1", "1", "1", "1"}, "maingroup", 0);
    readRow("5", {"1", "1", "1", "1", "1", "1", "1"}, "rowstat", 0);
    ASSERT_EQ(page().mainTable->rowCount(), 3);
    const std::string on = messageText(11007);
    const std::string off = messageText(11008);
    EXPECT_EQ(page().mainTable->cells(1), (Texts{"2", off, "100", "2000", "0", on, "200", "300"}));
    EXPECT_EQ(page().mainTable->cell(2, 1), "");
    EXPECT_TRUE(enabled("cfgBtn")) << "whatever the flag says";
    failRead();
    EXPECT_TRUE(enabled("cfgBtn"));
    page().refreshBtnClick();
    EXPECT_FALSE(enabled("cfgBtn"));
}

TEST_F(LangressTest, DirectionAndSwitchesDecideWhatCanBeEdited) {
    readPorts();
    expectRefused("cfgBtn", "mainTable", {11204});
    inItem(0, [this](TOnuLangressItem& dialog) {
        EXPECT_EQ(bytesOf(dialog.windowTitle()), messageText(60716));
        EXPECT_EQ(edit(dialog, "IndexEdit").text(), QStringLiteral("1"));
        EXPECT_EQ(edit(dialog, "exPirEdit").text(), QStringLiteral("65"));
        EXPECT_EQ(bytesOf(dialog.choiceComb->currentText()), messageText(3118));
        EXPECT_EQ(enabledParts(dialog), "1111111");
        choose(*dialog.choiceComb, 3125);
        EXPECT_EQ(enabledParts(dialog), "1111---");
        choose(*dialog.enEnableComb, 11008);
        EXPECT_EQ(enabledParts(dialog), "1------");
        choose(*dialog.choiceComb, 3117);
        EXPECT_EQ(enabledParts(dialog), "----111");
        choose(*dialog.enEnableComb, 11007);
        EXPECT_EQ(enabledParts(dialog), "----111") << "this direction is not chosen";
        choose(*dialog.exEnableComb, 11008);
        EXPECT_EQ(enabledParts(dialog), "----1--");
        choose(*dialog.choiceComb, 3118);
        EXPECT_EQ(enabledParts(dialog), "11111--");
    });
    takeRead();
    readPorts();
    inItem(1, [](TOnuLangressItem& dialog) { EXPECT_EQ(enabledParts(dialog), "1---111"); });
    takeRead();
    readPorts();
    inItem(2, [](TOnuLangressItem& dialog) {
        EXPECT_EQ(dialog.enEnableComb->currentIndex(), -1);
        EXPECT_EQ(enabledParts(dialog), "1---1--");
    });
}

TEST_F(LangressTest, ChecksTheRatesThatAreOnInOrder) {
    struct Case {
        const char* control;
        std::string minimum;
        std::string maximum;
        std::string below;
        std::string above;
    };
    const Case cases[] = {
        {"inCirEdit", "64", "1024000", "63", "1024001"},
        {"inCbsEdit", "1523", "1000000", "1522", "1000001"},
        {"inEbsEdt", "0", "1522", "-1", "1523"},
        {"exCirEdit", "64", "1024000", "63", "1024001"},
        {"exPirEdit", "64", "1024000", "63", "1024001"},
    };
    readPorts();
    inItem(0, [&](TOnuLangressItem& dialog) {
        for (const Case& each : cases) {
            setControlText(edit(dialog, each.control), each.below);
        }
        for (const Case& each : cases) {
            auto& control = edit(dialog, each.control);
            for (const std::string& bad : {each.below, each.above, std::string()}) {
                setControlText(control, bad);
                control.clearFocus();
                test::click(*dialog.okBtn);
                bad.empty() ? expectBox({}) : expectBox({11068, {each.minimum, each.maximum}});
                EXPECT_EQ(dialog.focusWidget(), &control);
            }
            setControlText(control, each.maximum);
        }
        EXPECT_EQ(host.pending(), 0U);
        setControlText(edit(dialog, "inCirEdit"), "");
        choose(*dialog.choiceComb, 3117);
        test::click(*dialog.okBtn); // the direction that is not chosen is not checked
    });
    EXPECT_EQ(takeWrite().front(), egress_.front());
}

TEST_F(LangressTest, EveryDirectionGoesOutAsARequestOfItsOwn) {
    struct Case {
        int choice;
        std::vector<Texts> writes;
    };
    const Case cases[] = {
        {3125, {ingress_}},
        {3117, {egress_}},
        {3118, {ingress_, egress_}},
    };
    for (const Case& each : cases) {
        readPorts();
        inItem(0, [&](TOnuLangressItem& dialog) {
            choose(*dialog.choiceComb, each.choice);
            test::click(*dialog.okBtn);
        });
        for (const Texts& expected : each.writes) {
            EXPECT_EQ(takeWrite(), expected);
        }
        EXPECT_EQ(takeRead(), ".1.2.5") << "the dialog closed";
        for (std::size_t reply = 0; reply < each.writes.size(); ++reply) {
            expectWrittenAndRead();
        }
        EXPECT_EQ(host.pending(), 0U);
    }
}

TEST_F(LangressTest, ADirectionThatIsOffIsWrittenWithoutRates) {
    readPorts();
    inItem(1, [](TOnuLangressItem& dialog) {
        setControlText(edit(dialog, "inCirEdit"), "1");
        choose(*dialog.exEnableComb, 11008);
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(), (Texts{"lanIngressRowStatus@1.2.5.2=4", "lanIngressEnable@1.2.5.2=0"}));
    EXPECT_EQ(takeWrite(), (Texts{"lanEgressRowStatus@1.2.5.2=4", "lanEgressEnable@1.2.5.2=0"}));
}

using RateTest = test::PageTest<TOnuRate, 664>;

TEST_F(RateTest, WritesTheChosenRateOnly) {
    struct Rate {
        const char* radio;
        const char* edit;
        const char* object;
    };
    const Rate rates[] = {
        {"downMultiRaBtn", "downMultiEdit", "downMulticastRate"},
        {"upMultiRaBtn", "upMultiEdit", "upMulticastRate"},
        {"downBroadRaBtn", "downBroadEdit", "downBroadcastRate"},
        {"upBroadRaBtn", "upBroadEdit", "upBroadcastRate"},
        {"downUcastRaBtn", "downUcastEdit", "downUnkownUcastRate"},
        {"upUcastRaBtn", "upUcastEdit", "upUnkownUcastRate"},
    };
    EXPECT_TRUE(control<QRadioButton>("downMultiRaBtn").isChecked());
    int value = 300;
    for (const Rate& rate : rates) {
        read({"300", "301", "302", "303", "304", "305"}, "maintable");
        EXPECT_EQ(text(rate.edit), std::to_string(value));
        control<QRadioButton>(rate.radio).setChecked(true);
        for (const Rate& other : rates) {
            setText(other.edit, &other == &rate ? text(rate.edit) : "1"); // not checked
        }
        test::click(*page().configBtn);
        EXPECT_EQ(takeWrite(), Texts{std::string(rate.object) + "@1.2.5=" + std::to_string(value)});
        expectWrittenAndRead();
        ++value;
    }
}

TEST_F(RateTest, ChecksTheChosenRate) {
    EXPECT_EQ(label("noteLabel"), messageText(66407));
    read({"300", "301", "302", "303", "304"}, "maintable");
    EXPECT_EQ(text("downMultiEdit"), "") << "too short a reply";
    read({"254", "301", "302", "303", "304", "305"}, "maintable", 0);
    expectRefused("configBtn", "downMultiEdit", {11068, {"255", "1000000"}});
    setText("downMultiEdit", "1000001");
    expectRefused("configBtn", "downMultiEdit", {11068, {"255", "1000000"}});
    setText("downMultiEdit", "");
    expectRefused("configBtn", "downMultiEdit", {});
    test::type(control<QLineEdit>("downMultiEdit"), QStringLiteral("1k00000000"));
    EXPECT_EQ(text("downMultiEdit"), "1000000");
    for (const char* good : {"255", "1000000"}) {
        setText("downMultiEdit", good);
        page().configBtn->setEnabled(true);
        test::click(*page().configBtn);
        EXPECT_EQ(takeWrite(), Texts{std::string("downMulticastRate@1.2.5=") + good});
        expectWrittenAndRead();
    }
}

} // namespace
} // namespace onudesk
