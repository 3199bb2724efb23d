// SPDX-License-Identifier: MIT
#include "pages/voip/voice_page.h"

#include <utility>

namespace onudesk {

PageRules voiceRules(int helpKeyId, std::size_t minimumValues) {
    return {.helpKeyId = helpKeyId,
            .onDecoded = OnDecoded::followsFlag,
            .onFailedDecode = OnFailedDecode::disables,
            .minimumValues = minimumValues};
}

Field voiceChoice(const char* control, int labelId, std::size_t position, const char* object,
                  const ValueMap& map) {
    return {.control = control,
            .labelId = labelId,
            .kind = ControlKind::combo,
            .position = position,
            .object = {object},
            .codes = map.keepingUnknown(),
            .written = Written::whileEnabled};
}

Field voiceNumber(const char* control, int labelId, int digits, std::size_t position,
                  const char* object, FieldCheck check) {
    return {.control = control,
            .labelId = labelId,
            .typing = {.bytes = digits, .digitsOnly = true},
            .position = position,
            .object = {object},
            .check = std::move(check),
            .written = Written::whileEnabled};
}

Field ticked(const char* box, Field field) {
    field.enabledBy.tick = box;
    return field;
}

VoicePage::VoicePage(Session& session, std::int32_t itemType, PageRules rules,
                     std::string rowStatus, QWidget* parent)
    : ConfigPage(session, itemType, std::move(rules), parent),
      deleteBtn(addRequestButton("deleteBtn", message::remove, [this] { deleteBtnClick(); })),
      rowStatus_(std::move(rowStatus)) {}

void VoicePage::deleteBtnClick() {
    if (mayDelete()) {
        writeOne({rowStatus_}, rowStatusText(RowStatus::destroy));
    }
}

} // namespace onudesk
