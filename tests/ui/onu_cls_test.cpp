// SPDX-License-Identifier: MIT
#include "pages/qos/onu_cls.h"

#include "page_test.h"

#include <array>

namespace onudesk {
namespace {

using test::Box;
using test::Texts;

constexpr std::array kMatches = {"DestIp", "DestMac", "DestPort",   "Dot1qPriority",
                                 "Dscp",   "EthType", "IpProtocol", "Ipv6Precedence",
                                 "SrcIp",  "SrcMac",  "SrcPort",    "Vlan"};

class ClsTest : public test::PageTest<TOnuCls, 613> {
protected:
    // The values of a slot; `any` and what follows as in a reply.
    static Texts slot(const std::string& precedence, const std::string& any = "0",
                      const std::string& ports = "4") {
        return {precedence, "6",  "5", "0.0.0.0",  "000000000000", "0", "0", "46",
                "2048",     "0",  "0", "10.0.0.9", "00259C0A1B2C", "0", "0", any,
                "0",        ports};
    }
    static Texts emptySlot(const std::string& ports = "4") {
        return {"0", "0",  "0", "0.0.0.0", "000000000000", "0", "0", "0",
                "0", "0",  "0", "0.0.0.0", "000000000000", "0", "0", "0",
                "0", ports};
    }
    // Slot 1 has a rule by fields, slot 2 is empty.
    void readSlots() {
        readRow("1", slot("1"), "maingroup", 0);
        readRow("2", emptySlot(), "maingroup", 1);
    }
    void choosePort(const char* port) {
        selectByText(*page().portComb, port);
        Q_EMIT page().portComb->activated(page().portComb->currentIndex());
        takeRead();
        readSlots();
    }
    // Opens the dialog on a row.
    void onRow(int row, const std::function<void(TOnuClsItem&)>& work) {
        page().mainTable->selectRow(row);
        inDialog<TOnuClsItem>(work);
    }
    template <typename Control>
    static Control& in(TOnuClsItem& dialog, const std::string& name) {
        return *dialog.findChild<Control*>(QString::fromStdString(name));
    }
    static QCheckBox& box(TOnuClsItem& dialog, const std::string& name) {
        return in<QCheckBox>(dialog, name + "ChBox");
    }
    static void type(TOnuClsItem& dialog, const std::string& name, const std::string& value) {
        setControlText(in<QLineEdit>(dialog, name), value);
    }
    static void tick(TOnuClsItem& dialog, const std::string& name) {
        test::click(box(dialog, name));
    }
    // The names of the fields that can be ticked.
    static Texts free(TOnuClsItem& dialog) {
        Texts names;
        for (const char* name : kMatches) {
            const bool enabled = box(dialog, name).isEnabled();
            EXPECT_EQ(in<QLineEdit>(dialog, name + std::string("Edit")).isEnabled(), enabled);
            if (enabled) {
                names.emplace_back(name);
            }
        }
        return names;
    }
};

TEST_F(ClsTest, ListsTheSlotsOfAPort) {
    Texts short17 = slot("1");
    short17.pop_back();
    readRow("1", short17, "maingroup");
    readRow("1", slot("1"), "rowstat");
    readRow("1", {}, "maingroup");
    EXPECT_EQ(page().mainTable->rowCount(), 0);
    EXPECT_EQ(text("portComb"), "");
    readSlots();
    Texts cells = page().mainTable->cells(0);
    EXPECT_EQ(cells, (Texts{"1", "1", "6", "5", "0.0.0.0", "00:00:00:00:00:00", "0", "0", "46",
                            "0800", "0", "0", "10.0.0.9", "00:25:9C:0A:1B:2C", "0", "0", "0"}));
    EXPECT_EQ(page().mainTable->cell(1, 9), "0000");
    EXPECT_TRUE(page().mainTable->isColumnHidden(16));
    EXPECT_EQ(page().portComb->count(), 5);
    EXPECT_EQ(text("portComb"), "1");
    EXPECT_EQ(host.pending(), 0U);
    EXPECT_FALSE(session.PortPending) << "the first read is for no port";
}

TEST_F(ClsTest, TheFlagSetsConfigOnlyAndDeleteIsAlwaysThere) {
    EXPECT_FALSE(enabled("cfgBtn") || enabled("refreshBtn"));
    EXPECT_TRUE(enabled("deleteBtn"));
    readRow("1", slot("1"), "maingroup", 0);
    EXPECT_FALSE(enabled("cfgBtn"));
    readRow("2", slot("2"), "maingroup", 1);
    EXPECT_TRUE(enabled("cfgBtn"));
    EXPECT_FALSE(enabled("refreshBtn")) << "only the timer gives it back";
    test::elapse(page());
    test::click(*page().refreshBtn);
    EXPECT_EQ(takeRead(), ".1.2.5.1");
    EXPECT_FALSE(enabled("cfgBtn") || enabled("refreshBtn"));
    EXPECT_TRUE(enabled("deleteBtn"));
    failRead();
    EXPECT_TRUE(enabled("cfgBtn"));
}

TEST_F(ClsTest, OnlyEmptySlotsOfOnePortCanBeFilled) {
    readSlots();
    expectRefused("cfgBtn", "mainTable", {11204});
    page().mainTable->selectRow(0);
    expectRefused("cfgBtn", "mainTable", {11686});
    choosePort("2");
    page().mainTable->selectRow(0);
    expectRefused("cfgBtn", "mainTable", {11686});
    onRow(1, [](TOnuClsItem& dialog) {
        EXPECT_EQ(stateOf(in<QLineEdit>(dialog, "portEdit")).text, "2");
        EXPECT_EQ(stateOf(in<QLineEdit>(dialog, "clsEdit")).text, "2");
    });
    takeRead();
    choosePort("all");
    onRow(0, [](TOnuClsItem& dialog) {
        EXPECT_EQ(bytesOf(dialog.TitlePanel->TitleLabel->text()), "Onu Cls");
        EXPECT_EQ(stateOf(in<QLineEdit>(dialog, "portEdit")).text, "all");
        EXPECT_EQ(stateOf(in<QLineEdit>(dialog, "indexEdit")).text, "1");
        EXPECT_EQ(stateOf(in<QLineEdit>(dialog, "QuemappedEdit")).text, "6");
        EXPECT_EQ(stateOf(in<QLineEdit>(dialog, "EthPriorityEdt")).text, "5");
        EXPECT_EQ(stateOf(in<QLineEdit>(dialog, "DscpEdit")).text, "46");
        EXPECT_EQ(stateOf(in<QLineEdit>(dialog, "EthTypeEdit")).text, "0800");
        EXPECT_EQ(stateOf(in<QLineEdit>(dialog, "SrcMacEdit")).text, "00:25:9C:0A:1B:2C");
        EXPECT_EQ(stateOf(in<QLineEdit>(dialog, "VlanEdit")).text, "0");
        for (const char* name : {"portEdit", "clsEdit", "indexEdit"}) {
            EXPECT_FALSE(in<QLineEdit>(dialog, name).isEnabled()) << name;
        }
        for (const QCheckBox* each : dialog.findChildren<QCheckBox*>()) {
            EXPECT_FALSE(each->isChecked()) << bytesOf(each->objectName());
        }
    });
    EXPECT_EQ(takeRead(), ".1.2.5.1") << "the port read for all";
    EXPECT_EQ(page().mainTable->rowCount(), 0);
}

TEST_F(ClsTest, OneRuleOfAPortMatchesAnyTraffic) {
    for (const bool listed : {true, false, true}) {
        readRow("1", slot("1", listed ? "1" : "0"), "maingroup");
        readRow("2", emptySlot(), "maingroup");
        onRow(1,
              [&](TOnuClsItem& dialog) { EXPECT_EQ(dialog.PhyPortChBox->isEnabled(), !listed); });
        takeRead(); // the refresh starts afresh
    }
}

TEST_F(ClsTest, AtMostThreeFieldsCanBeTicked) {
    readSlots();
    const Texts all(kMatches.begin(), kMatches.end());
    onRow(1, [&](TOnuClsItem& dialog) {
        EXPECT_EQ(free(dialog), all);
        tick(dialog, "Vlan");
        tick(dialog, "SrcMac");
        EXPECT_EQ(free(dialog), all);
        tick(dialog, "DestIp");
        EXPECT_EQ(free(dialog), (Texts{"DestIp", "SrcMac", "Vlan"}));
        tick(dialog, "Dscp");
        EXPECT_FALSE(box(dialog, "Dscp").isChecked());
        tick(dialog, "Vlan");
        EXPECT_EQ(free(dialog), all);
        tick(dialog, "Dscp");
        EXPECT_EQ(free(dialog), (Texts{"DestIp", "Dscp", "SrcMac"}));
        test::click(*dialog.PhyPortChBox);
        EXPECT_EQ(free(dialog), Texts());
        EXPECT_TRUE(box(dialog, "Dscp").isChecked());
        test::click(*dialog.PhyPortChBox);
        EXPECT_EQ(free(dialog), all);
    });
}

struct OkCase {
    std::vector<std::pair<const char*, const char*>> texts; // of edits, whose boxes are ticked
    const char* focus;
    Box refusal;
};

// One case after the other in one dialog: what is put right stays right.
TEST_F(ClsTest, OkChecksQueueAndPriorityThenTheFieldsInOrder) {
    readSlots();
    const Box range7{11068, {"0", "7"}};
    const Box mac{3036, {}, 113};
    const OkCase rates[] = {
        {{{"QuemappedEdit", ""}, {"EthPriorityEdt", ""}}, "QuemappedEdit", {}},
        {{{"QuemappedEdit", "8"}}, "EthPriorityEdt", {}}, // before the queue is out of range
        {{{"EthPriorityEdt", "8"}}, "QuemappedEdit", range7},
        {{{"QuemappedEdit", "7"}}, "EthPriorityEdt", range7},
    };
    onRow(1, [&](TOnuClsItem& dialog) {
        for (const OkCase& each : rates) {
            for (const auto& [name, value] : each.texts) {
                type(dialog, name, value);
            }
            test::click(*dialog.okBtn);
            expectBox(each.refusal);
            EXPECT_EQ(bytesOf(dialog.focusWidget()->objectName()), each.focus);
        }
        type(dialog, "EthPriorityEdt", "0");
        test::click(*dialog.okBtn);
        expectBox({3021});
    });
    takeRead();
    struct FieldCase {
        const char* name;
        std::vector<std::pair<const char*, Box>> bad;
        const char* good;
    };
    const auto numbers = [](const char* beyond, const char* most) {
        return std::vector<std::pair<const char*, Box>>{{"", {}}, {beyond, {11068, {"0", most}}}};
    };
    const FieldCase fields[] = {
        {"DestIp", {{"", {11069}}, {"10.0.0.x", {11069}}}, "10.0.0.1"},
        {"DestMac", {{"0g:00:00:00:00:01", mac}, {"", {3029, {}, 113}}}, "0 :00:00:00:00:01"},
        {"DestPort", numbers("65536", "65535"), "65535"},
        {"Dot1qPriority", numbers("8", "7"), "7"},
        {"Dscp", numbers("64", "63"), "63"},
        {"EthType", numbers("GGGG", "65535"), "FFFF"},
        {"IpProtocol", numbers("256", "255"), "255"},
        {"Ipv6Precedence", numbers("64", "63"), "63"},
        {"SrcIp", {{"1.2.3", {11069}}}, "255.255.255.255"},
        {"SrcMac", {{"00:00:00:00:00:00", {3029, {}, 113}}}, "FF:ff:FF:ff:FF:ff"},
        {"SrcPort", numbers("65536", "65535"), "1"},
        {"Vlan", {{"0", {11068, {"1", "4094"}}}, {"4095", {11068, {"1", "4094"}}}}, "4094"},
        {"Vlan", {{"", {11068, {"1", "4094"}}}}, "1"},
    };
    for (const FieldCase& field : fields) {
        readSlots();
        onRow(1, [&](TOnuClsItem& dialog) {
            const std::string edit = field.name + std::string("Edit");
            tick(dialog, field.name);
            for (const auto& [value, refusal] : field.bad) {
                type(dialog, edit, value);
                test::click(*dialog.okBtn);
                expectBox(refusal);
                EXPECT_EQ(bytesOf(dialog.focusWidget()->objectName()), edit) << value;
                EXPECT_EQ(host.pending(), 0U) << edit << " " << value;
            }
            type(dialog, edit, field.good);
            test::click(*dialog.okBtn);
            EXPECT_EQ(takeWrite().size(), 5U) << edit;
        });
        takeRead();
    }
}

TEST_F(ClsTest, UntickedFieldsAreNeitherCheckedNorWritten) {
    readSlots();
    onRow(1, [](TOnuClsItem& dialog) {
        type(dialog, "VlanEdit", "9999");
        type(dialog, "DestMacEdit", "zz:00:00:00:00:00");
        tick(dialog, "Dscp");
        type(dialog, "DscpEdit", "0063");
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(), (Texts{"clsPrecedenceIndex@1.2.5.1.2=2", "clsQuemapped@1.2.5.1.2=0",
                                  "clsEthPriority@1.2.5.1.2=0", "clsDscp@1.2.5.1.2=0063",
                                  "clsRowStatus@1.2.5.1.2=4"}));
}

TEST_F(ClsTest, RulesAreWrittenInTheOrderOfTheirColumns) {
    readSlots();
    choosePort("3");
    onRow(1, [](TOnuClsItem& dialog) {
        tick(dialog, "SrcPort");
        tick(dialog, "EthType");
        tick(dialog, "DestMac");
        type(dialog, "SrcPortEdit", "80");
        type(dialog, "EthTypeEdit", "88a8");
        type(dialog, "DestMacEdit", "01:00:5E:0f:  :1 ");
        type(dialog, "QuemappedEdit", "7");
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(),
              (Texts{"clsPrecedenceIndex@1.2.5.3.2=2", "clsQuemapped@1.2.5.3.2=7",
                     "clsEthPriority@1.2.5.3.2=0", "clsDestMac@1.2.5.3.2=#01005E0F0010",
                     "clsEthType@1.2.5.3.2=34984", "clsSrcPort@1.2.5.3.2=80",
                     "clsRowStatus@1.2.5.3.2=4"}));
    EXPECT_EQ(takeRead(), ".1.2.5.3");
    EXPECT_EQ(host.routedWindow(CP_KIND_WRITE, 613), page().replyHandle());
    expectWrittenAndRead(".1.2.5.3");
    readSlots();
    EXPECT_EQ(page().mainTable->selectedRow(), 1) << "the slot just filled";
}

TEST_F(ClsTest, ARuleForAnyTrafficHasNoFieldsAndNoDuplicate) {
    readSlots();
    choosePort("all");
    onRow(0, [](TOnuClsItem& dialog) {
        tick(dialog, "Dscp"); // stays ticked, and is the listed rule's together with two others
        tick(dialog, "EthType");
        tick(dialog, "SrcIp");
        type(dialog, "DscpEdit", "99");
        test::click(*dialog.PhyPortChBox);
        test::click(*dialog.okBtn);
    });
    EXPECT_EQ(takeWrite(), (Texts{"clsPrecedenceIndex@1.2.5.1.1=1", "clsQuemapped@1.2.5.1.1=6",
                                  "clsEthPriority@1.2.5.1.1=5", "clsPhyPort@1.2.5.1.1=1",
                                  "clsAllPort@1.2.5.1.1=1", "clsRowStatus@1.2.5.1.1=4"}));
}

struct DuplicateCase {
    Texts listed; // match fields of a row in their order, then its rule for any traffic
    std::vector<std::pair<const char*, const char*>> chosen;
    bool refused;
};

TEST_F(ClsTest, ARuleThatIsListedAlreadyIsRefused) {
    const Texts none = {"0.0.0.0", "000000000000", "0", "0", "0", "0", "0", "0",
                        "0.0.0.0", "000000000000", "0", "0", "0"};
    const auto with = [&](std::vector<std::pair<std::size_t, std::string>> values) {
        Texts all = none;
        for (auto& [at, value] : values) {
            all[at] = value;
        }
        return all;
    };
    const DuplicateCase cases[] = {
        {with({{11, "100"}}), {{"Vlan", "100"}}, true},
        {with({{11, "100"}}), {{"Vlan", "0100"}}, false}, // as typed
        {with({{11, "100"}}), {{"Vlan", "100"}, {"Dscp", "1"}}, false},
        {with({{11, "100"}, {4, "1"}}), {{"Vlan", "100"}, {"Dscp", "1"}}, true},
        {with({{11, "100"}, {12, "1"}}), {{"Vlan", "100"}}, false}, // matches any traffic
        {with({{5, "34984"}}), {{"EthType", "88a8"}}, true},
        {with({{5, "2048"}}), {{"EthType", "800"}}, false},
        {with({{1, "00259C0A1B2C"}}), {{"DestMac", "00:25:9c:0a:1b:2c"}}, true},
        {with({{1, "00259c0a1b2c"}}), {{"DestMac", "00:25:9c:0a:1b:2c"}}, false}, // as listed
        {with({{9, "0000000000F0"}}), {{"SrcMac", "  :  :  :  :  :f "}}, true},
        {with({{9, "0000000000F0"}}), {{"DestMac", "  :  :  :  :  :f "}}, false},
        {with({{3, "1"}}), {{"Dscp", "0"}}, true}, // the empty slot beside it
    };
    for (const DuplicateCase& each : cases) {
        Texts values = {"1", "0", "0"};
        values.insert(values.end(), each.listed.begin(), each.listed.end());
        values.insert(values.end(), {"0", "4"});
        readRow("1", values, "maingroup");
        readRow("2", emptySlot(), "maingroup");
        onRow(1, [&](TOnuClsItem& dialog) {
            for (const auto& [name, value] : each.chosen) {
                tick(dialog, name);
                type(dialog, name + std::string("Edit"), value);
            }
            test::click(*dialog.okBtn);
            EXPECT_EQ(dialog.isVisible(), each.refused);
        });
        expectBox(each.refused ? Box{11157} : Box{});
        EXPECT_EQ(host.pending(), each.refused ? 1U : 2U) << each.chosen[0].second;
        while (host.pending() > 0) {
            host.take();
        }
    }
}

TEST_F(ClsTest, DeleteNamesTheRuleByItsPrecedence) {
    readRow("1", emptySlot(), "maingroup");
    readRow("2", slot("5"), "maingroup");
    expectRefused("deleteBtn", "mainTable", {11204});
    page().mainTable->selectRow(0);
    expectRefused("deleteBtn", "mainTable", {3034});
    struct Case {
        const char* port;
        const char* instance;
    };
    for (const Case& each : {Case{"4", "1.2.5.4.1"}, Case{"all", "1.2.5.1.1"}}) {
        choosePort(each.port);
        readRow("2", slot("5"), "maingroup");
        page().mainTable->selectRow(1);
        test::click(*page().deleteBtn);
        const std::string instance = each.instance;
        EXPECT_EQ(takeWrite(), (Texts{"clsPrecedenceIndex@" + instance + "=5",
                                      "clsRowStatus@" + instance + "=6"}));
        EXPECT_FALSE(enabled("cfgBtn") || enabled("refreshBtn"));
        expectWrittenAndRead("." + instance.substr(0, 7));
        readSlots();
        EXPECT_EQ(page().mainTable->selectedRow(), 1);
    }
}

} // namespace
} // namespace onudesk
