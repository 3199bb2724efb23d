// SPDX-License-Identifier: MIT
#pragma once

#include "pages/voip/voice_page.h"

namespace onudesk {

// Address of the voice module and tags of its traffic.
class TOnuVoip : public VoicePage {
    Q_OBJECT
public:
    TOnuVoip(Session& session, std::int32_t itemType, QWidget* parent);

    QComboBox* modeComb = nullptr;

    void modeCombChange();

private:
    const ValueMap modes_{{{"static IP", "0"}, {"DHCP", "1"}, {"PPPoE", "2"}}};
    const ValueMap logins_{{{"AUTO", "0"}, {"CHAP", "1"}, {"PAP", "2"}}};
    const ValueMap tagging_{{{"trasparent", "0"}, {"tag", "1"}, {"vlan-stacking", "2"}}};
};

} // namespace onudesk
