// SPDX-License-Identifier: MIT
#pragma once

#include "pages/framework/config_page.h"

namespace onudesk {

// How the voice module carries fax and modem calls.
class TOnuVoipFaxModem : public ConfigPage {
    Q_OBJECT
public:
    TOnuVoipFaxModem(Session& session, std::int32_t itemType, QWidget* parent);

protected:
    void showReply(const ReadResult& result) override;
};

} // namespace onudesk
