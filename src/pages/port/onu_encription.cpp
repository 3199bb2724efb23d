// SPDX-License-Identifier: MIT
#include "pages/port/onu_encription.h"

#include "env/language_module.h"
#include "pages/framework/field_kinds.h"

namespace onudesk {

namespace {

constexpr const char* kOn = "1";
constexpr std::int64_t kNoEncryption = 1; // states in which it cannot be switched on
constexpr std::int64_t kNoKeys = 2;
constexpr int kNoEncryptionNotice = 3110;
constexpr int kNoKeysNotice = 3111;

} // namespace

TOnuEncription::TOnuEncription(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = 6238,
                  .onDecoded = OnDecoded::followsFlag,
                  .resultText = "maintable",
                  .minimumValues = 2},
                 parent) {
    const ValueMap switches({{messageText(message::off), "0"}, {messageText(message::on), kOn}});
    buildForm({comboField("enableComb", 64901, 0, "onuEncrypEnable", switches)});
    start();
}

void TOnuEncription::showReply(const ReadResult& result) {
    ConfigPage::showReply(result);
    state_ = leadingNumber(result.values[1]).value_or(0);
}

bool TOnuEncription::mayWrite() {
    const int notice = state_ == kNoEncryption ? kNoEncryptionNotice
                       : state_ == kNoKeys     ? kNoKeysNotice
                                               : 0;
    if (notice == 0 || selectedCode(*fields().control<QComboBox>("enableComb")) != kOn) {
        return true;
    }
    refuse({notice, {}, message::refusalCaption, platform::PromptIcon::information}, nullptr);
    return false;
}

} // namespace onudesk
