// SPDX-License-Identifier: MIT
#include "pages/voip/onu_voip_h248_rtp.h"

#include "env/language_module.h"

#include <optional>
#include <string_view>

namespace onudesk {

namespace {

constexpr int kBadPrefix = 3271;
constexpr const char* kAligned = "0"; // the module counts from on to off

std::optional<CheckFailure> checkPrefix(std::string_view text) {
    return text.find_first_not_of("abcdefABCDEF") == std::string_view::npos
               ? std::nullopt
               : std::optional(
                     CheckFailure{.textId = kBadPrefix, .icon = platform::PromptIcon::none});
}

} // namespace

TOnuVoipH248Rtp::TOnuVoipH248Rtp(Session& session, std::int32_t itemType, QWidget* parent)
    : H248Page(session, itemType, voiceRules(6264, 8), "H248RTPRowStatus", 7, parent) {
    const ValueMap alignments(
        {{messageText(message::on), kAligned}, {messageText(message::off), "1"}});
    Field length = voiceNumber("lenEdit", 82505, 5, 4, "RTPDigitLen", needed(0, 255));
    length.enabledBy = choiceIn("enableComb", {kAligned});
    buildForm({voiceNumber("tidEdit", 82501, 3, 0, "NumOfRTP", needed(0, 255)),
               {.control = "prefixEdit",
                .labelId = 82502,
                .typing = {.bytes = 16},
                .position = 1,
                .object = {"RTPPrefix"},
                .check = FieldCheck{.function = checkPrefix, .messageIds = {kBadPrefix}},
                .written = Written::always},
               voiceNumber("beginEdit", 82503, 10, 2, "RTPDigitBegin", needed(0, 4294967295)),
               voiceChoice("enableComb", 82504, 3, "RTPMode", alignments),
               length,
               {.control = "nameEdit", .labelId = 82506, .position = 5},
               rowStatus({"H248RTPRowStatus"})});
    start();
}

bool TOnuVoipH248Rtp::mayWrite() {
    return takesH248() && selectedCode(*fields().control<QComboBox>("enableComb")) &&
           H248Page::mayWrite();
}

} // namespace onudesk
