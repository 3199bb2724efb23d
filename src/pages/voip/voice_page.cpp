// SPDX-License-Identifier: MIT
#include "pages/voip/voice_page.h"

#include "pages/framework/field_kinds.h"

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
    Field field = comboField(control, labelId, position, object, map.keepingUnknown());
    field.written = Written::whileEnabled;
    return field;
}

Field voiceNumber(const char* control, int labelId, int digits, std::size_t position,
                  const char* object, FieldCheck check) {
    Field field = numberField(control, labelId, digits, position, object, std::move(check));
    field.written = Written::whileEnabled;
    return field;
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
