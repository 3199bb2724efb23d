// SPDX-License-Identifier: MIT
#pragma once

#include "pages/voip/voice_page.h"

namespace onudesk {

// Address of the voice module and tags of its traffic.
class TOnuVoip : public VoicePage {
    Q_OBJECT
public:
    TOnuVoip(Session& session, std::int32_t itemType, QWidget* parent);

protected:
    bool mayWrite() override;
};

} // namespace onudesk
