// SPDX-License-Identifier: MIT
#pragma once

#include "pages/voip/h248_page.h"

namespace onudesk {

// How the voice module names its RTP terminations.
class TOnuVoipH248Rtp : public H248Page {
    Q_OBJECT
public:
    TOnuVoipH248Rtp(Session& session, std::int32_t itemType, QWidget* parent);

protected:
    bool mayWrite() override;
};

} // namespace onudesk
