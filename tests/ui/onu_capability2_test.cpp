// SPDX-License-Identifier: MIT
#include "pages/port/onu_capability2.h"

#include "page_test.h"

namespace onudesk {
namespace {

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
    struct Case {
        Texts values;
        Texts shown;
    };
    const std::string yes = messageText(11043);
    for (const Case& known :
         {Case{{"1", "1", "2", "1", "0", "3", "1"},
               {"HGU", messageText(3191), messageText(3187), "1", "0", "3", yes}},
          Case{{"9", "2", "", "7", "8", "", "5"}, {"other", "2", "other", "7", "8", "", yes}},
          Case{{"8", "0", "3", "1", "0", "3", "0", "x"},
               {"MTU", messageText(3190), "other", "1", "0", "3", messageText(11044)}},
          Case{{"4", "0", "0", "1", "0", "3", "0"},
               {messageText(3181), messageText(3190), messageText(3185), "1", "0", "3",
                messageText(11044)}}}) {
        read(known.values, "maintable");
        EXPECT_EQ(shownTexts(), known.shown);
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
    ASSERT_EQ(page().mainTable->rowCount(), 2);
    EXPECT_EQ(page().mainTable->cells(0), (Texts{"4", "WLAN", "2"}));
    EXPECT_EQ(page().mainTable->cells(1), (Texts{"5", "", "1"}));
    page().mainTable->onDoubleClick();
    EXPECT_EQ(host.pending(), 0U) << "there is nothing to open";
}

TEST_F(CapabilityTest, RefreshEmptiesEverythingAndWaitsForTheTimer) {
    EXPECT_TRUE(enabled("refreshBtn"));
    EXPECT_FALSE(page().Timer1->isActive());
    EXPECT_EQ(page().configBtn, nullptr);
    read({"1", "1", "9", "1", "0", "3", "1"}, "maintable");
    readRow("1", {"1", "4"}, "group");
    test::click(*page().refreshBtn);
    EXPECT_EQ(takeRead(), ".1.2.5");
    EXPECT_EQ(shownTexts(), Texts(7));
    EXPECT_EQ(page().mainTable->rowCount(), 0);
    EXPECT_EQ(control<QComboBox>("typeComb").count(), 9);
    read({"8", "0", "1", "1", "0", "3", "0"}, "maintable");
    EXPECT_FALSE(enabled("refreshBtn"));
    test::elapse(page());
    EXPECT_TRUE(enabled("refreshBtn"));
    EXPECT_EQ(shownTexts().front(), "MTU");
}

} // namespace
} // namespace onudesk
