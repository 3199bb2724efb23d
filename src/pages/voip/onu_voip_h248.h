// SPDX-License-Identifier: MIT
#pragma once

#include "pages/voip/h248_page.h"

namespace onudesk {

// The voice module's side of H.248: its controllers, its registration and its heartbeat.
class TOnuVoipH248 : public H248Page {
    Q_OBJECT
public:
    TOnuVoipH248(Session& session, std::int32_t itemType, QWidget* parent);
};

} // namespace onudesk
