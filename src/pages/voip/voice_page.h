// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

#include <cstddef>
#include <cstdint>
#include <string>

#include <QPushButton>

namespace onudesk {

// How the pages of the voice module take replies.
[[nodiscard]] PageRules voiceRules(int helpKeyId, std::size_t minimumValues);

// Fields of the voice module, written while they are enabled. An unknown code leaves a choice as it
// is. Ticked, a field is only written with its box.
[[nodiscard]] Field voiceChoice(const char* control, int labelId, std::size_t position,
                                const char* object, const ValueMap& map);
// At most so many digits can be typed, or any number with -1.
[[nodiscard]] Field voiceNumber(const char* control, int labelId, int digits, std::size_t position,
                                const char* object, FieldCheck check);
[[nodiscard]] Field ticked(const char* box, Field field);

// One row of the voice module, which deleteBtn destroys without asking.
class VoicePage : public ConfigPage {
    Q_OBJECT
public:
    // `rowStatus` is an object of the page's group.
    VoicePage(Session& session, std::int32_t itemType, PageRules rules, std::string rowStatus,
              QWidget* parent);

    QPushButton* deleteBtn; // a write leaves it as it is

    void deleteBtnClick();

protected:
    // Everything that can stop Delete, told to the operator.
    [[nodiscard]] virtual bool mayDelete() { return true; }

private:
    const std::string rowStatus_;
};

} // namespace onudesk
