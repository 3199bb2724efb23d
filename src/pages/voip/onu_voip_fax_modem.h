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
    void fillPage(const ReadResult& result) override;

private:
    const ValueMap switches_;
    const ValueMap modes_{{{"negotiation", "0"}, {"auto", "1"}}};
};

} // namespace onudesk
