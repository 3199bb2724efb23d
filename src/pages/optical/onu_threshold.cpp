// SPDX-License-Identifier: MIT
#include "pages/optical/onu_threshold.h"

#include "env/language_module.h"
#include "pages/framework/controls.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include <QCheckBox>

namespace onudesk {

namespace {

constexpr int kFirstCaption = 66701; // of the rows, in their order
constexpr int kHigh = 66711;
constexpr int kLow = 66712;
constexpr int kNothingToWrite = 11304;
constexpr unsigned kRowState = 11292; // and the state

constexpr std::size_t kRowStatus = 20; // position in the reply
constexpr std::size_t kLeastValues = 22;
constexpr const char* kNoRow = "0";

// What two rows are about: one of alarms, one of warnings.
struct Quantity {
    const char* control; // how names of controls and objects begin
    const char* object;
    int bytes; // that can be typed
    bool isPower;
};
constexpr Quantity kQuantities[] = {{"temp", "Temp", 4, false},
                                    {"voltage", "Vcc", 4, false},
                                    {"electric", "Bias", 3, false},
                                    {"sp", "TXPower", 6, true},
                                    {"rp", "RXPower", 6, true}};

// The milliwatts of the agent in dBm, cut as the page shows them; nothing for what has none.
std::string inDbm(const std::string& milliwatts) {
    constexpr const char* kZeroPower = "-40";
    constexpr int kDigits = 15;
    constexpr std::size_t kShown = 6;
    const auto power = decimalNumber(milliwatts);
    if (!power || !std::isfinite(*power) || *power < 0) {
        return {};
    }
    if (*power == 0) {
        return kZeroPower;
    }
    std::array<char, 32> text{};
    char* const end = std::to_chars(text.data(), text.data() + text.size(), 10 * std::log10(*power),
                                    std::chars_format::general, kDigits)
                          .ptr;
    return std::string(text.data(), end).substr(0, kShown);
}

Field threshold(std::size_t position) {
    const Quantity& quantity = kQuantities[position / 4];
    const bool isWarning = position / 2 % 2 == 1;
    const bool isLow = position % 2 == 1;
    const std::string control = quantity.control;
    const std::string object = quantity.object;
    return {.control = control + (isLow ? "L" : "H") + (isWarning ? "WEdit" : "AEdit"),
            .labelId = kFirstCaption + static_cast<int>(position / 2),
            .typing = {.bytes = quantity.bytes},
            .position = position,
            .object = {object + (isLow ? "Low" : "High") + (isWarning ? "Warning" : "Alarm")},
            .written = Written::always,
            .enabledBy = {.tick = control + (isWarning ? "HWCheckBox" : "HACheckBox")},
            .show = {quantity.isPower ? inDbm : nullptr}};
}

} // namespace

TOnuThreshold::TOnuThreshold(Session& session, std::int32_t itemType, QWidget* parent)
    : ConfigPage(session, itemType,
                 {.helpKeyId = 6260,
                  .onDecoded = OnDecoded::followsFlag,
                  .onFailedDecode = OnFailedDecode::disables,
                  .resultText = "maintable",
                  .minimumValues = kLeastValues},
                 parent) {
    std::vector<Field> thresholds;
    for (std::size_t position = 0; position < kRowStatus; ++position) {
        thresholds.push_back(threshold(position));
    }
    buildForm(std::move(thresholds), {kHigh, kLow});
    start();
}

void TOnuThreshold::configBtnClick() {
    const std::string& onu = session().OnuIndexText;
    pendingOnuText_ = onu.substr(onu.rfind('.') + 1);
    WriteRequest request = beginWrite();
    if (!request) {
        return;
    }
    if (thresholdRowPending_) {
        request.bind({"ThresholdRowStatus"}, rowStatusText(RowStatus::createAndGo),
                     session().OnuIndexText);
    } else if (bindThresholds(request) == 0) {
        configBtn->setEnabled(true);
        refuse({kNothingToWrite}, nullptr);
        return;
    }
    finishWrite(std::move(request));
    thresholdRowPending_ = true;
}

int TOnuThreshold::bindThresholds(WriteRequest& request) {
    int writeCount = 0;
    for (std::size_t position = 0; position < kRowStatus; ++position) {
        const Field field = threshold(position);
        const std::string text = stateOf(*fields().control(field.control)).text;
        if (fields().control<QCheckBox>(field.enabledBy.tick)->isChecked() &&
            text.find_first_not_of(' ') != std::string::npos) {
            request.bind(field.object, text, session().OnuIndexText);
            ++writeCount;
        }
    }
    return writeCount;
}

bool TOnuThreshold::mayShow(const ReadResult& result) {
    if (result.oids.empty() || result.oids.front().find('.') == std::string::npos) {
        return false;
    }
    const std::string& state = result.values[kRowStatus];
    if (pendingOnuText_.empty() || rowIndexOf(result.oids.front()) != pendingOnuText_) {
        return true;
    }
    CheckFailure notice{message::subject, {}, message::noticeCaption};
    if (state != kNoRow) {
        const auto number = static_cast<unsigned>(leadingNumber(state).value_or(0));
        notice.after = messageText(message::failed) + "!\n" +
                       messageText(static_cast<int>(kRowState + number));
        endSequence();
        refuse(notice, nullptr);
        return true;
    }
    if (!thresholdRowPending_) {
        return true;
    }
    configBtnClick();
    endSequence();
    notice.after = messageText(message::succeeded);
    refuse(notice, nullptr);
    return false;
}

void TOnuThreshold::showReply(const ReadResult& result) {
    if (mayShow(result)) {
        ConfigPage::showReply(result);
        thresholdRowPending_ = false;
    }
}

void TOnuThreshold::handleReply(const ReadResult& result) {
    if (cycle().isOfOtherGroup(result)) {
        thresholdRowPending_ = false;
    }
    ConfigPage::handleReply(result);
}

void TOnuThreshold::handleWriteReply(void* reply) {
    refreshBtnClick();
    BorrowedReply(session(), reply).giveBack();
}

// Before the box: replies come while it is open.
void TOnuThreshold::endSequence() {
    thresholdRowPending_ = false;
    pendingOnuText_.clear();
}

} // namespace onudesk
