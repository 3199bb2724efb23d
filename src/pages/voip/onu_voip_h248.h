// SPDX-License-Identifier: MIT
#pragma once

#include "pages/voip/h248_page.h"

namespace onudesk {

// The voice module's side of H.248: its controllers, its registration and its heartbeat.
class TOnuVoipH248 : public H248Page {
    Q_OBJECT
public:
    TOnuVoipH248(Session& session, std::int32_t itemType, QWidget* parent);

    QComboBox* regComb = nullptr;

    void regCombChange();

private:
    const ValueMap active_;
    const ValueMap registrations_{{{"IP", "0"}, {"Domain", "1"}, {"Device", "2"}}};
    const ValueMap heartbeats_;
    const ValueMap states_;
};

} // namespace onudesk
