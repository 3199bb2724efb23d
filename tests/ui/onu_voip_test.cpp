// SPDX-License-Identifier: MIT
//
// Fax and modem, parameters and identity of the voice module.
#include "pages/voip/onu_voip_fax_modem.h"

#include "page_test.h"

namespace onudesk {
namespace {

using test::Texts;

class FaxModemTest : public test::PageTest<TOnuVoipFaxModem, 827> {
protected:
    Texts shownTexts() { return {text("enableComb"), text("modeComb")}; }
};

TEST_F(FaxModemTest, UnknownClearsAndOtherCodesKeep) {
    struct Reply {
        Texts values;
        Texts shown;
    };
    const std::string on = messageText(11007);
    const std::string off = messageText(11008);
    const Reply replies[] = {
        {{"1", "1", "1"}, {on, "auto"}},
        {{"2", "7", "1"}, {on, "auto"}},
        {{"255", "1"}, {on, "auto"}}, // too short
        {{"255", "0", "1"}, {"", "negotiation"}},
        {{"3", "", "1"}, {"", "negotiation"}},
        {{"0", "255", "1"}, {off, ""}},
    };
    EXPECT_EQ(control<QComboBox>("enableComb").count(), 2);
    for (const Reply& each : replies) {
        read(each.values, "maintable");
        EXPECT_EQ(shownTexts(), each.shown) << each.values[0] << " " << each.values[1];
    }
}

TEST_F(FaxModemTest, ConfigFollowsTheFlagOfTheLastReply) {
    EXPECT_FALSE(enabled("configBtn"));
    read({}, "any", 1);
    EXPECT_TRUE(enabled("configBtn"));
    read({"1", "1", "1"}, "maintable", 0);
    EXPECT_FALSE(enabled("configBtn"));
    read({"1", "1", "1"}, "maintable");
    failRead();
    EXPECT_FALSE(enabled("configBtn"));
    EXPECT_FALSE(enabled("refreshBtn"));
    page().refreshBtnClick();
    EXPECT_EQ(takeRead(), ".1.2.5");
    EXPECT_EQ(text("modeComb"), "auto") << "nothing is emptied";
}

TEST_F(FaxModemTest, WritesBothCodesEvenWithoutSelection) {
    read({"0", "0", "1"}, "maintable");
    selectByText(control<QComboBox>("enableComb"), messageText(11007));
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), (Texts{"voiceT38Enable@1.2.5=1", "voiceFaxModemControl@1.2.5=0",
                                  "faxModemRowStatus@1.2.5=4"}));
    EXPECT_FALSE(enabled("configBtn"));
    expectWrittenAndRead();
    read({"255", "255", "1"}, "maintable");
    test::click(*page().configBtn);
    EXPECT_EQ(takeWrite(), (Texts{"voiceT38Enable@1.2.5=", "voiceFaxModemControl@1.2.5=",
                                  "faxModemRowStatus@1.2.5=4"}));
}

} // namespace
} // namespace onudesk
