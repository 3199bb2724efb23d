// SPDX-License-Identifier: MIT
#include "pages/voip/onu_voip_fax_modem.h"

#include "env/language_module.h"
#include "pages/voip/voice_page.h"

namespace onudesk {

namespace {

constexpr const char* kUnknown = "255"; // a code that clears the selection; others keep it

} // namespace

TOnuVoipFaxModem::TOnuVoipFaxModem(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType, voiceRules(6265, 3), parent) {
    const ValueMap switches({{messageText(message::off), "0"}, {messageText(message::on), "1"}});
    const ValueMap modes({{"negotiation", "0"}, {"auto", "1"}});
    buildForm({voiceChoice("enableComb", 82701, 0, "voiceT38Enable", switches),
               voiceChoice("modeComb", 82702, 1, "voiceFaxModemControl", modes),
               rowStatus({"faxModemRowStatus"})});
    start();
}

void TOnuVoipFaxModem::showReply(const ReadResult& result) {
    ConfigPage::showReply(result);
    std::size_t position = 0;
    for (const char* name : {"enableComb", "modeComb"}) {
        if (result.values[position++] == kUnknown) {
            selectByText(*fields().control<QComboBox>(name), {});
        }
    }
}

} // namespace onudesk
